#pragma once
// Files that exist for a while or not at all.

#include "platform/File.h"

#include <string>

/// A folder that nobody else can look into. It goes with what is in it, also when the program is interrupted.
class CJoinFolder {
  public:
    /// Throws CFileException.
    CJoinFolder();
    ~CJoinFolder();
    CJoinFolder(const CJoinFolder&) = delete;
    CJoinFolder& operator=(const CJoinFolder&) = delete;

    /// Path of the one file that the folder is for.
    std::string GetFile() const;

  private:
    std::string m_sFolder;
};
