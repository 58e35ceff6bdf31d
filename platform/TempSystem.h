#pragma once
// What temporary paths need of the system.

#include <filesystem>
#include <string>

/// While it lives, nothing interrupts its thread and no other thread has such an object, so that the list of temporary
/// paths and the files themselves change together. Doesn't nest.
class CUninterrupted {
  public:
    CUninterrupted();
    ~CUninterrupted();
    CUninterrupted(const CUninterrupted&) = delete;
    CUninterrupted& operator=(const CUninterrupted&) = delete;
};

/// A text that can't be guessed.
std::string RandomText();

/// The path in the form that the functions below take, at any length.
std::filesystem::path SystemName(const std::string& sPath);

/// Makes a folder for this user alone, whose path is sStart and a text that can't be guessed. Returns 1 with the path
/// in rPath, or 0 with the cause in rCause.
int MakePrivateFolder(const std::string& sStart, std::string& rPath, std::string& rCause);

/// Renames a file, over one that is there. Returns 1, or 0 with the cause in rCause.
int MoveOver(const std::filesystem::path& rFrom, const std::filesystem::path& rTo, std::string& rCause);

/// Removes a file or an empty folder, if it is there. Safe in the handler of a signal.
void RemoveNow(const std::filesystem::path::value_type* pName, bool bFolder) noexcept;
