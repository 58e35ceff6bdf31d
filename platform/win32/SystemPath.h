#pragma once
// Paths as the calls of the system take them.

#include <string>

/// The path in the form that the system takes at any length.
std::wstring SystemPath(const std::string& sPath);
