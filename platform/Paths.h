#pragma once
// Paths in UTF-8 and the file system's own.

#include <filesystem>
#include <string>

inline std::filesystem::path ToPath(const std::string& sPath) {
    return std::filesystem::path(std::u8string(sPath.begin(), sPath.end()));
}

inline std::string ToText(const std::filesystem::path& rPath) {
    const std::u8string sPath = rPath.u8string();
    return {sPath.begin(), sPath.end()};
}
