#pragma once
// Reads the lines of a file unchanged, whatever their length.

#include "platform/File.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class CTextReader {
  public:
    /// Number of bytes behind each line that may be read. The first is that of the next line, or NUL if that isn't read
    /// yet; the others don't matter.
    static constexpr std::size_t SLACK = 16;

    /// Returns 1, or 0 with the cause in rCause.
    int Open(const std::string& sPath, std::string& rCause);

    /// The next line with its line feed, which only the last line may lack. False at the end of the file or on a read
    /// error, which HasFailed tells apart. The text is valid until the next call.
    bool Read(std::string_view& rLine);

    bool HasFailed() const { return m_bFailed; }
    const T_FILEID_D& GetId() const { return m_file.GetId(); }

  private:
    bool Fill();

    CDeckFile m_file;
    std::vector<char> m_aBuffer; // as long as the longest line
    std::size_t m_iNext = 0;     // first byte not handed out yet
    std::size_t m_iEnd = 0;      // end of what was read
    bool m_bEnd = false;
    bool m_bFailed = false;
};
