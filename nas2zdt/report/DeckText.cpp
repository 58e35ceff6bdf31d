// The text of a run's decks, as far as a page holds it.

#include "nas2zdt/report/DeckText.h"

#include "nas2zdt/report/Block.h"
#include "nas2zdt/report/Sha256.h"
#include "nas2zdt/text/Json.h"
#include "nas2zdt/text/TextReader.h"
#include "platform/Paths.h"

#include <algorithm>
#include <memory>
#include <system_error>
#include <utility>

namespace {

/// What was read of a file.
struct T_READ_D {
    bool bREAD = false;
    std::uint64_t nBYTES = 0, nLINES = 0;
    std::string sHASH;

    std::string Members(const std::string& sName) const {
        return JsonMember("name", JsonText(sName)) + "," +
               JsonMember("bytes", bREAD ? std::to_string(nBYTES) : std::string("null")) + "," +
               JsonMember("lines", nLINES) + "," + JsonMember("sha256", JsonText(sHASH));
    }
};

/// Reads a file once and gives each line, with its number, to take.
template <class TAKE>
T_READ_D ReadLines(const std::string& sPath, TAKE take) {
    T_READ_D read;
    CTextReader reader;
    std::string sCause;
    if (!reader.Open(sPath, sCause)) return read;
    CSha256 hash;
    constexpr std::size_t PIECE = 65536; // hashing costs a call each time
    std::string sPiece;
    for (std::string_view sLine; reader.Read(sLine);) {
        read.nBYTES += sLine.size();
        ++read.nLINES;
        sPiece += sLine;
        if (sPiece.size() >= PIECE) {
            hash.Add(sPiece);
            sPiece.clear();
        }
        take(static_cast<std::int64_t>(read.nLINES), sLine);
    }
    hash.Add(sPiece);
    read.bREAD = !reader.HasFailed();
    if (read.bREAD) read.sHASH = hash.Finish();
    return read;
}

/// The same without a look at the lines.
T_READ_D ReadWhole(const std::string& sPath) {
    T_READ_D read;
    CDeckFile file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) return read;
    CSha256 hash;
    std::vector<char> aPiece(std::size_t{1} << 20);
    std::ptrdiff_t nPiece = 0;
    char cLast = '\n';
    while ((nPiece = file.Read(aPiece.data(), aPiece.size())) > 0) {
        const std::string_view sPiece(aPiece.data(), static_cast<std::size_t>(nPiece));
        hash.Add(sPiece);
        read.nBYTES += sPiece.size();
        read.nLINES += static_cast<std::uint64_t>(std::count(sPiece.begin(), sPiece.end(), '\n'));
        cLast = sPiece.back();
    }
    read.nLINES += cLast != '\n';
    read.bREAD = nPiece == 0;
    if (read.bREAD) read.sHASH = hash.Finish();
    return read;
}

std::uint64_t SizeOf(const std::vector<std::string>& rNames) {
    std::uint64_t nBytes = 0;
    for (const std::string& sName : rNames) {
        std::error_code error;
        const std::uintmax_t nFile = std::filesystem::file_size(ToPath(sName), error);
        if (!error) nBytes += nFile;
    }
    return nBytes;
}

/// Collects the wanted lines of files that are read from their beginnings, one after the other.
class CWantedLines {
  public:
    explicit CWantedLines(const std::set<T_LINES_D>& rWanted) : m_next(rWanted.begin()), m_end(rWanted.end()) {}

    void Begin(std::size_t iFile) {
        while (m_next != m_end && m_next->iFILE < iFile) ++m_next;
        m_iFile = iFile;
        m_iEnd = 0;
    }
    void Take(std::int64_t iLine, std::string_view sLine) {
        if (iLine > m_iEnd && !IsWanted(iLine)) return;
        while (IsWanted(iLine)) m_iEnd = std::max(m_iEnd, (m_next++)->iLAST);
        if (m_nLines == CDeckText::MOST_LINES) return;
        ++m_nLines;
        if (iLine != m_iLast + 1 || m_sText.empty() || m_bNewFile) {
            m_sText += m_sText.empty() ? "{" : "]},{";
            m_sText += JsonMember("file", m_iFile) + "," + JsonMember("first", std::to_string(iLine)) + ",\"text\":[";
        } else {
            m_sText += ",";
        }
        m_bNewFile = false;
        m_iLast = iLine;
        const std::size_t nText = sLine.find_last_not_of(" \t\r\n") + 1; // blanks in front are columns
        m_sText += JsonText(sLine.substr(0, std::min(nText, MOST_LENGTH)));
    }
    bool HasAny() const { return m_next != m_end && m_next->iFILE == m_iFile; } // in the file that begins
    void EndFile() { m_bNewFile = true; }
    std::string Text() const { return "[" + m_sText + (m_sText.empty() ? "]" : "]}]"); }

  private:
    static constexpr std::size_t MOST_LENGTH = 200; // of a line

    bool IsWanted(std::int64_t iLine) const {
        return m_next != m_end && m_next->iFILE == m_iFile && m_next->iFIRST <= iLine;
    }

    std::set<T_LINES_D>::const_iterator m_next, m_end;
    std::size_t m_iFile = 0, m_nLines = 0;
    std::int64_t m_iEnd = 0, m_iLast = 0; // of the lines that are wanted; the last one taken
    bool m_bNewFile = true;
    std::string m_sText;
};

} // namespace

std::string CDeckText::Write(CFile& rFile) {
    const bool bWhole = SizeOf(m_rNames) <= m_nMostBytes;
    if (bWhole) m_wanted.clear();
    const auto pBlock = bWhole ? std::make_unique<CBlock>(rFile, "decks", "u8") : nullptr;
    CWantedLines lines(m_wanted);
    std::uint64_t nFrom = 0; // bytes of the block
    std::string sFiles;
    for (std::size_t i = 0; i < m_rNames.size(); ++i) {
        lines.Begin(i);
        const std::uint64_t nBefore = nFrom;
        const auto take = [&](std::int64_t iLine, std::string_view sLine) {
            lines.Take(iLine, sLine);
            if (!pBlock || nFrom + sLine.size() > m_nMostBytes) return; // it may have grown since
            pBlock->Write(sLine);
            nFrom += sLine.size();
        };
        const T_READ_D read = pBlock || lines.HasAny() ? ReadLines(m_rNames[i], take) : ReadWhole(m_rNames[i]);
        lines.EndFile();
        const bool bHeld = pBlock && nFrom - nBefore == read.nBYTES;
        sFiles += (i == 0 ? "{" : ",{") + read.Members(m_rNames[i]) + "," +
                  JsonMember("from", bHeld ? std::to_string(nBefore) : std::string("null")) + "}";
    }
    if (pBlock) pBlock->Finish();
    return "\"files\":[" + sFiles + "],\"lines\":" + lines.Text();
}

std::string FileJson(const std::string& sName) {
    return "{" + ReadWhole(sName).Members(sName) + "}";
}
