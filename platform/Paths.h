#pragma once
// Paths in UTF-8 and the file system's own.

#include <filesystem>
#include <string>

/// Takes every text: bytes that aren't UTF-8 are read as those of a name in a deck are.
std::filesystem::path ToPath(const std::string& sPath);

inline std::string ToText(const std::filesystem::path& rPath) {
    const std::u8string sPath = rPath.u8string();
    return {sPath.begin(), sPath.end()};
}
