#pragma once
// The log of all decks in a file.

#include "platform/WholeFile.h"

#include <memory>
#include <string>
#include <vector>

/// A file grows as lines are added; what is no file, such as a device, gets them at the end. Failures are kept until
/// then.
class CLogFile {
  public:
    /// sPath may be empty for none. rInputs must outlive this object.
    CLogFile(const std::string& sPath, const T_INPUTS& rInputs);

    /// Adds lines without their ends.
    void Add(const std::vector<std::string>& aLines);

    /// Throws CFileException if the log can't be written, or couldn't earlier.
    void Save();

  private:
    void Open();
    void Write(const std::vector<std::string>& aLines);

    const std::string m_sPath;
    const T_INPUTS& m_rInputs;
    std::vector<std::string> m_aWaiting; // lines for the end
    std::unique_ptr<CWholeFile> m_pFile; // null before the first line
    std::unique_ptr<CFileException> m_pFailure;
};
