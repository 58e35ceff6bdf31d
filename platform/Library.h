#pragma once
// Loading a library by name, finding an export by name, freeing it. Nothing is loaded from the current folder,
// which anybody may write to.

/// Handle of a loaded library, null for none.
using T_MODULE = void*;

/// Loads sName from the folder of the program or library that holds this code. The first call finds that folder
/// for all: make one before the host can change its current folder. Returns null if there is no such library.
T_MODULE LoadNeighbour(const char* sName);

/// The same, and if it isn't there, by the platform's ordinary search without what depends on the current folder.
T_MODULE LoadModule(const char* sName);

/// Address of the export sName, null if the library has none.
void* FindExport(T_MODULE pModule, const char* sName);

void UnloadModule(T_MODULE pModule);
