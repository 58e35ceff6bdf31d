#pragma once
// An output file that exists whole or not at all.

#include "platform/File.h"
#include "platform/TempPath.h"

#include <string>

/// Writes under a temporary name in the folder of the path, which becomes the path when Finish is called. An
/// earlier file of that name stays until then, and for good if Finish isn't reached; nothing is left of a file that
/// isn't finished. A symbolic link goes on leading to the file, and a file that is replaced leaves its rights to the
/// new one. What is no file, such as a device, is written straight. Every operation throws CFileException, which names
/// the path.
class CWholeFile {
  public:
    /// A file among rInputs, which must outlive this object, is left as it is and counts as one that can't be created.
    CWholeFile(const std::string& sPath, const T_INPUTS& rInputs);
    CWholeFile(const std::string& sPath, T_INPUTS&& rInputs) = delete;

    /// What is to be written goes here.
    CFile& GetFile() { return m_file; }

    /// Its path until it is finished; empty for what is written straight.
    const std::string& GetTemporaryPath() const { return m_temporary.GetPath(); }

    /// Closes the file, if that wasn't done, and gives it its name, unless an input took it in the meantime.
    void Finish();

  private:
    const T_INPUTS& m_rInputs;
    std::string m_sShown;  // the path as it was given
    std::string m_sPath;   // the file that it leads to
    CTempPath m_temporary; // goes after the file is closed
    CFile m_file;
};

/// Throws CFileException if a file at sPath is among rInputs.
void RefuseInput(const std::string& sPath, const T_INPUTS& rInputs);
