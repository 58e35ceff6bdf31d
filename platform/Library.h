#pragma once
// Loading a library by name, finding an export by name, freeing it.

/// Handle of a loaded library, null for none.
using T_MODULE = void*;

/// Loads sName by the platform's ordinary search or from beside the program or library that holds this code; which
/// comes first is the platform's custom. Returns null if neither finds it.
T_MODULE LoadModule(const char* sName);

/// Address of the export sName, null if the library has none.
void* FindExport(T_MODULE pModule, const char* sName);

void UnloadModule(T_MODULE pModule);
