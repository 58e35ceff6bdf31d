// Joins a deck with its includes.

#include "nas2zdt/flatten/Flatten.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/text/TextReader.h"
#include "platform/Paths.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t LONGEST_PIECE = 499; // the converter counts a longer line as several

char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool StartsWithoutCase(std::string_view sLine, std::string_view sUpper) {
    return sLine.size() >= sUpper.size() && std::equal(sUpper.begin(), sUpper.end(), sLine.begin(),
                                                       [](char cUpper, char c) { return cUpper == ToUpper(c); });
}

std::string_view Trim(std::string_view sText) {
    constexpr std::string_view SPACE = " \t\r\n";
    const std::size_t iFirst = sText.find_first_not_of(SPACE);
    if (iFirst == std::string_view::npos) return {};
    return sText.substr(iFirst, sText.find_last_not_of(SPACE) - iFirst + 1);
}

bool IsAbsolute(const std::string& sName) {
    return sName.starts_with('/') || sName.starts_with('\\') || ToPath(sName).is_absolute();
}

/// Whether a line is a card of the vocabulary. With a "=" it is case control.
bool IsBulkLine(std::string_view sLine) {
    if (sLine.starts_with('$') || sLine.find('=') != std::string_view::npos) return false;
    std::string sWord(sLine.substr(0, std::min<std::size_t>(sLine.find_first_of(",*\t \r\n"), 8)));
    std::transform(sWord.begin(), sWord.end(), sWord.begin(), &ToUpper);
    std::int32_t iKeyword = 0;
    return CConvertNastran::KeywordToId(sWord, iKeyword) && sWord != "INCLUDE" && sWord != "ENDDATA";
}

/// Whether a card comes in a deck before any section marker.
bool HoldsBulkData(const std::string& sPath) {
    CTextReader reader;
    std::string sCause;
    std::string_view sLine;
    if (!reader.Open(sPath, sCause)) return false;
    while (reader.Read(sLine)) {
        if (StartsWithoutCase(sLine, "CEND") || StartsWithoutCase(sLine, "BEGIN BULK")) return false;
        if (IsBulkLine(sLine)) return true;
    }
    return false;
}

/// A deck that is being joined.
struct T_LEVEL_D {
    std::unique_ptr<CTextReader> pREADER;
    std::string sPATH;
    std::string sFOLDER; // ends in a separator; empty for the current folder
    std::size_t iFILE = 0;
    std::int32_t iLINE = 0; // lines read
    bool bENCLOSED = false; // whether its text is between markers
};

class CJoin {
  public:
    CJoin(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks)
        : m_nMostDecks(nMostDecks), m_rFile(rJoined) {
        Enter(sDeck, "", false);
        while (!m_aLevels.empty()) Step();
        m_rFile.Close();
    }
    T_JOINED_D m_joined;

  private:
    /// Opens a deck. sPlace is where its INCLUDE is, empty for the main deck.
    void Enter(const std::string& sPath, const std::string& sPlace, bool bEnclosed) {
        if (++m_nDecks > m_nMostDecks) {
            throw CFileException(sPlace, "limit on decks: more than " + std::to_string(m_nMostDecks) +
                                             " decks are opened; the option --limit decks=N sets it");
        }
        auto pReader = std::make_unique<CTextReader>();
        std::string sCause;
        if (!pReader->Open(sPath, sCause)) {
            if (sPlace.empty()) throw CFileException(sPath, "can't be opened: " + sCause);
            throw CFileException(sPlace, "included deck can't be opened: " + sPath + ": " + sCause);
        }
        const T_FILEID_D id = pReader->GetId();
        if (std::any_of(m_aLevels.begin(), m_aLevels.end(),
                        [&](const T_LEVEL_D& rLevel) { return rLevel.pREADER->GetId() == id; })) {
            throw CFileException(sPlace, "this deck includes itself, directly or through others: " + sPath);
        }
        m_joined.files.emplace(id, "the deck " + sPath);
        // names of includes may use the separators of another system
        const std::size_t nFolder = sPath.find_last_of(sPlace.empty() ? "/" : "/\\") + 1;
        m_aLevels.push_back(
            {std::move(pReader), sPath, sPath.substr(0, nFolder), m_joined.lines.AddFile(sPath), 0, bEnclosed});
        MarkRun();
        if (bEnclosed) WriteMarker("BEGIN BULK\n", true);
    }

    /// Ends the innermost deck.
    void Leave() {
        if (m_aLevels.back().bENCLOSED) WriteMarker("CEND\n", false);
        m_aLevels.pop_back();
        if (!m_aLevels.empty()) MarkRun();
    }

    /// Takes the next line of the innermost deck.
    void Step() {
        T_LEVEL_D& rLevel = m_aLevels.back();
        std::string_view sLine;
        if (!rLevel.pREADER->Read(sLine)) {
            if (rLevel.pREADER->HasFailed()) throw CFileException(rLevel.sPATH, "can't be read to its end");
            return Leave();
        }
        ++rLevel.iLINE;
        if (sLine.starts_with(CTRL_Z) || StartsWithoutCase(sLine, "ENDDATA")) {
            if (m_aLevels.size() == 1) Copy(sLine);
            return Leave();
        }
        if (CIncludeStatement statement; statement.Begin(sLine)) return Include(statement);
        Copy(sLine);
        const bool bBegins = StartsWithoutCase(sLine, "BEGIN BULK");
        if (bBegins || StartsWithoutCase(sLine, "CEND")) { // from here on the deck has its own markers
            m_bBulk = bBegins;
            for (T_LEVEL_D& rOuter : m_aLevels) rOuter.bENCLOSED = false;
        }
    }

    /// Reads an INCLUDE to its end and enters the deck that it names.
    void Include(CIncludeStatement& rStatement) {
        T_LEVEL_D& rLevel = m_aLevels.back();
        const std::string sPlace = Place();
        std::string_view sLine;
        while (!rStatement.IsWhole()) {
            if (!rLevel.pREADER->Read(sLine) || !rStatement.Continue(sLine)) {
                throw CFileException(sPlace, "the name of this INCLUDE has no closing quote");
            }
            ++rLevel.iLINE;
        }
        const std::string& sName = rStatement.GetName();
        if (sName.empty()) throw CFileException(sPlace, "this INCLUDE has no name");
        const std::string sPath = IsAbsolute(sName) ? sName : rLevel.sFOLDER + sName;
        Enter(sPath, sPlace, !m_bBulk && HoldsBulkData(sPath));
    }

    void Copy(std::string_view sLine) {
        m_rFile.Write(sLine);
        const bool bFeed = sLine.ends_with('\n');
        if (!bFeed && m_aLevels.size() > 1) m_rFile.Write("\n"); // what follows begins a new line
        const std::size_t nLines = (sLine.size() - (bFeed ? 1 : 0)) / LONGEST_PIECE + 1;
        CountLines(nLines);
        if (nLines > 1) MarkRun();
    }

    void WriteMarker(std::string_view sMarker, bool bBulk) {
        m_bBulk = bBulk;
        m_rFile.Write(sMarker);
        CountLines(1);
        MarkRun();
    }

    void CountLines(std::size_t nLines) {
        const auto nLeft = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() - 1 - m_nLines);
        if (nLines > nLeft) throw CFileException(Place(), "the joined deck has too many lines");
        m_nLines += static_cast<std::int32_t>(nLines);
    }

    /// What is written next comes from the innermost deck's next line.
    void MarkRun() { m_joined.lines.AddRun(m_nLines + 1, m_aLevels.back().iFILE, m_aLevels.back().iLINE + 1); }

    std::string Place() const { return m_aLevels.back().sPATH + ":" + std::to_string(m_aLevels.back().iLINE); }

    std::int64_t m_nMostDecks;
    std::int64_t m_nDecks = 0; // opened; one that is included twice counts twice
    CFile& m_rFile;
    std::vector<T_LEVEL_D> m_aLevels; // the main deck first; no recursion, since includes may nest deeply
    std::int32_t m_nLines = 0;        // written
    bool m_bBulk = false;             // whether the joined text is in the bulk section
};

} // namespace

int CIncludeStatement::Begin(std::string_view sLine) {
    m_sName.clear();
    m_cQuote = '\0';
    std::string_view sText = Trim(sLine);
    constexpr std::string_view WORD = "INCLUDE";
    if (!StartsWithoutCase(sText, WORD)) return 0;
    sText.remove_prefix(WORD.size());
    if (!sText.empty() && std::string_view(" \t,='\"").find(sText[0]) == std::string_view::npos) return 0;
    sText.remove_prefix(std::min(sText.find_first_not_of(" \t,="), sText.size()));
    if (sText.starts_with('\'') || sText.starts_with('"')) {
        m_cQuote = sText[0];
        Add(sText.substr(1));
    } else {
        const std::size_t iComment = sText.find(" $");
        m_sName = Trim(sText.substr(0, iComment));
    }
    return 1;
}

int CIncludeStatement::Continue(std::string_view sLine) {
    constexpr std::size_t LONGEST_NAME = 32768;
    Add(sLine);
    return m_sName.size() <= LONGEST_NAME ? 1 : 0;
}

void CIncludeStatement::Add(std::string_view sText) {
    const std::size_t iQuote = sText.find(m_cQuote);
    if (iQuote != std::string_view::npos) m_cQuote = '\0';
    m_sName += Trim(sText.substr(0, iQuote));
}

T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks) {
    CJoin join(sDeck, rJoined, nMostDecks);
    return std::move(join.m_joined);
}
