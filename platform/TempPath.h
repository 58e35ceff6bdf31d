#pragma once
// Files and folders that exist for a while. They go with their object, and with the program if a signal ends it, or
// Ctrl-C on Windows.

#include "platform/File.h"

#include <filesystem>
#include <string>

/// An entry of the list of what an interrupted program removes: bare data, since a signal may come at any time.
struct T_TEMP_D {
    const std::filesystem::path::value_type* pNAME = nullptr; // null outside of the list
    bool bFOLDER = false;
    T_TEMP_D* pNEXT = nullptr;
};

/// One path. All objects belong to one thread.
class CTempPath {
  public:
    CTempPath() = default;
    ~CTempPath() { Remove(); }
    CTempPath(const CTempPath&) = delete;
    CTempPath& operator=(const CTempPath&) = delete;

    /// Makes a file under a name that can't be guessed, in the folder of rTarget, whose place it is to take, and opens
    /// rFile on it. Throws CFileException, which names sShown.
    void MakeFile(CFile& rFile, const T_TARGET_D& rTarget, const std::string& sShown);

    /// Makes a folder that nobody else can look into, where the system has its temporary files. Throws CFileException.
    void MakeFolder();

    /// Gives the file its final name, in place of what has that name, and forgets the path. Throws CFileException,
    /// which names sShown.
    void Rename(const std::string& sPath, const std::string& sShown);

    /// Removes what is there and is done with it. A folder must be empty.
    void Remove() noexcept;

    /// Empty if there is nothing in charge.
    const std::string& GetPath() const { return m_sPath; }

  private:
    void Link(bool bFolder) noexcept;
    void Unlink() noexcept;

    std::string m_sPath;
    std::filesystem::path m_name; // the same as the system takes it
    T_TEMP_D m_entry;
};

/// Removes all of them, the newest first. Safe in the handler of a signal.
void RemoveTempPaths() noexcept;
