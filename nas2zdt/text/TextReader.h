#pragma once
// Reads the lines of a file unchanged, whatever their length.

#include "nas2zdt/text/LinesAhead.h"
#include "platform/File.h"
#include "platform/WorkRing.h"

#include <cstddef>
#include <memory>
#include <optional>
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

    /// Lets rAhead, which must outlive this object, look at the text before it is read. Comes right behind Open.
    void LookAhead(CLinesAhead& rAhead);

    /// The next line with its line feed, which only the last line may lack. False at the end of the file or on a read
    /// error, which HasFailed tells apart. The text is valid until the next call.
    bool Read(std::string_view& rLine);

    /// The run that the next lines are, null if they are none. Its text is valid until the next call.
    const T_LINERUN_D* PeekRun(std::string_view& rText);

    /// Passes the run of PeekRun.
    void PassRun();

    bool HasFailed() const { return m_bFailed; }
    const T_FILEID_D& GetId() const { return m_file.GetId(); }

  private:
    /// Whole lines that are looked at ahead.
    struct T_CHUNK_D {
        std::unique_ptr<char[]> pBYTES;
        std::size_t nROOM = 0, nBYTES = 0;
        std::vector<T_LINERUN_D> aRUNS;
    };

    bool Fill();
    bool FillChunk();
    bool ReadChunk(T_CHUNK_D& rChunk);

    CDeckFile m_file;
    std::vector<char> m_aBuffer;         // as long as the longest line; not used ahead
    const char* m_pText = nullptr;       // what was read
    std::size_t m_iNext = 0;             // first byte not handed out yet
    std::size_t m_iEnd = 0;              // end of what was read
    const T_LINERUN_D* m_pRun = nullptr; // the next one of the chunk, and behind its last
    const T_LINERUN_D* m_pRunsEnd = nullptr;
    bool m_bEnd = false;
    bool m_bFailed = false;
    bool m_bFileEnd = false;    // no more chunks
    bool m_bFileFailed = false; // behind the last one the file can't be read on
    std::string m_sTail;        // begin of a line that the chunk before doesn't hold
    std::vector<T_CHUNK_D> m_aChunks;
    std::optional<CWorkRing> m_ring; // last, as it works on all of them
};
