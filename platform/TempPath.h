#pragma once
// Temporary files and folders. They are removed with their object and, in a program that asks for it, when a signal, or
// Ctrl-C on Windows, ends the program.

#include "platform/File.h"

#include <filesystem>
#include <string>

/// An entry of the list that an interrupted program removes: plain data, since a signal may come at any time.
struct T_TEMP_D {
    const std::filesystem::path::value_type* pNAME = nullptr; // null outside of the list
    bool bFOLDER = false;
    T_TEMP_D* pNEXT = nullptr;
};

/// One path. Objects on several threads don't meet.
class CTempPath {
  public:
    CTempPath() = default;
    ~CTempPath() { Remove(); }
    CTempPath(const CTempPath&) = delete;
    CTempPath& operator=(const CTempPath&) = delete;

    /// Makes a file under a name that can't be guessed, in the folder of rTarget, which it will replace, and opens
    /// rFile on it. Throws CFileException, which names sShown.
    void MakeFile(CFile& rFile, const T_TARGET_D& rTarget, const std::string& sShown);

    /// Makes a folder that nobody else can look into, where the system has its temporary files. Throws CFileException.
    void MakeFolder();

    /// Gives the file its final name, over what has that name, and forgets the path. Throws CFileException, which names
    /// sShown.
    void Rename(const std::string& sPath, const std::string& sShown);

    /// Removes it and forgets the path. A folder must be empty.
    void Remove() noexcept;

    /// Empty if there is nothing to remove.
    const std::string& GetPath() const { return m_sPath; }

  private:
    void Link(bool bFolder) noexcept;
    void Unlink() noexcept;

    std::string m_sPath;
    std::filesystem::path m_name; // m_sPath in the system's form
    T_TEMP_D m_entry;
};

/// From now on what interrupts the program ends its processes and removes the paths first. For a program: the signals
/// of a library's host are the host's own.
void CatchInterruptions();

/// Removes all of them, the newest first. Safe in the handler of a signal.
void RemoveTempPaths() noexcept;
