// Joining a deck with its includes.

#include "nas2zdt/flatten/Flatten.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/flatten/IncludeStatement.h"
#include "nas2zdt/flatten/TextReader.h"
#include "platform/Paths.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr std::size_t LONGEST_PIECE = 499; // the converter counts a longer line as several

char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool StartsWithoutCase(std::string_view sLine, std::string_view sUpper) {
    return sLine.size() >= sUpper.size() && std::equal(sUpper.begin(), sUpper.end(), sLine.begin(),
                                                       [](char cUpper, char c) { return cUpper == ToUpper(c); });
}

bool IsAbsolute(const std::string& sName) {
    return sName.starts_with('/') || sName.starts_with('\\') || ToPath(sName).is_absolute();
}

/// Whether a line is a card of the vocabulary. A "=" makes it a line of case control.
bool IsBulkLine(std::string_view sLine) {
    if (sLine.starts_with('$') || sLine.find('=') != std::string_view::npos) return false;
    std::string sWord(sLine.substr(0, std::min<std::size_t>(sLine.find_first_of(",*\t \r\n"), 8)));
    std::transform(sWord.begin(), sWord.end(), sWord.begin(), &ToUpper);
    std::int32_t iKeyword = 0;
    return CConvertNastran::KeywordToId(sWord, iKeyword) && sWord != "INCLUDE" && sWord != "ENDDATA";
}

/// Whether a deck's first word that decides is a card's and not a section marker.
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

/// A deck that is being joined, at a depth of includes.
struct T_LEVEL_D {
    std::unique_ptr<CTextReader> pREADER;
    std::string sPATH;
    std::string sFOLDER; // with its last separator; empty for the current one
    std::size_t iFILE = 0;
    std::int32_t iLINE = 0; // lines read
    bool bENCLOSED = false; // whether markers stand around its text
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
    void Enter(const std::string& sPath, const std::string& sPlace, bool bEnclosed);
    void Leave();
    void Step();
    void Include(CIncludeStatement& rStatement);
    void Copy(std::string_view sLine);
    void WriteMarker(std::string_view sMarker, bool bBulk);
    void MarkRun(const T_LEVEL_D& rLevel, std::int32_t iLine) {
        m_joined.lines.AddRun(m_nLines + 1, rLevel.iFILE, iLine);
    }
    void CountLines(std::size_t nLines);
    static std::string Place(const T_LEVEL_D& rLevel) { return rLevel.sPATH + ":" + std::to_string(rLevel.iLINE); }

    std::int64_t m_nMostDecks;
    std::int64_t m_nDecks = 0; // opened, one that is included again among them
    CFile& m_rFile;
    std::vector<T_LEVEL_D> m_aLevels; // the main deck first; a deck's includes nest here, not on the stack
    std::int32_t m_nLines = 0;        // written
    bool m_bBulk = false;             // whether what is written next is bulk data
};

/// Opens a deck. sPlace is where its INCLUDE stands, empty for the main deck.
void CJoin::Enter(const std::string& sPath, const std::string& sPlace, bool bEnclosed) {
    if (++m_nDecks > m_nMostDecks) {
        throw CFlattenError(sPlace + ": limit on decks: more than " + std::to_string(m_nMostDecks) +
                            " decks are opened; the option --limit decks=N sets it");
    }
    T_LEVEL_D level;
    level.pREADER = std::make_unique<CTextReader>();
    level.sPATH = sPath;
    std::string sCause;
    if (!level.pREADER->Open(sPath, sCause)) {
        throw CFlattenError(sPlace.empty() ? sPath + ": can't be opened: " + sCause
                                           : sPlace + ": included deck can't be opened: " + sPath + ": " + sCause);
    }
    const T_FILEID_D id = level.pREADER->GetId();
    if (std::any_of(m_aLevels.begin(), m_aLevels.end(), [&](const T_LEVEL_D& r) { return r.pREADER->GetId() == id; })) {
        throw CFlattenError(sPlace + ": this deck includes itself, directly or through others: " + sPath);
    }
    m_joined.files.emplace(id, "the deck " + sPath);
    // the separators of the other system are taken too, as they are when the deck is opened
    const std::size_t iSeparator = sPath.find_last_of(sPlace.empty() ? "/" : "/\\");
    level.sFOLDER = iSeparator == std::string::npos ? std::string() : sPath.substr(0, iSeparator + 1);
    level.iFILE = m_joined.lines.AddFile(sPath);
    level.bENCLOSED = bEnclosed;
    MarkRun(level, 1);
    m_aLevels.push_back(std::move(level));
    if (bEnclosed) WriteMarker("BEGIN BULK\n", true);
}

/// Ends the innermost deck.
void CJoin::Leave() {
    if (m_aLevels.back().bENCLOSED) WriteMarker("CEND\n", false);
    m_aLevels.pop_back();
    if (!m_aLevels.empty()) MarkRun(m_aLevels.back(), m_aLevels.back().iLINE + 1);
}

/// Takes the next line of the innermost deck.
void CJoin::Step() {
    T_LEVEL_D& rLevel = m_aLevels.back();
    std::string_view sLine;
    if (!rLevel.pREADER->Read(sLine)) {
        if (rLevel.pREADER->HasFailed()) throw CFlattenError(rLevel.sPATH + ": can't be read to its end");
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
    if (bBegins || StartsWithoutCase(sLine, "CEND")) { // the deck's own markers rule from here on
        m_bBulk = bBegins;
        for (T_LEVEL_D& rOuter : m_aLevels) rOuter.bENCLOSED = false;
    }
}

/// Reads an INCLUDE to its end and enters the deck that it names.
void CJoin::Include(CIncludeStatement& rStatement) {
    T_LEVEL_D& rLevel = m_aLevels.back();
    const std::string sPlace = Place(rLevel);
    std::string_view sLine;
    while (!rStatement.IsWhole()) {
        const bool bLine = rLevel.pREADER->Read(sLine);
        if (!bLine || !rStatement.Continue(sLine)) {
            throw CFlattenError(sPlace + ": the name of this INCLUDE has no closing quote");
        }
        ++rLevel.iLINE;
    }
    const std::string& sName = rStatement.GetName();
    if (sName.empty()) throw CFlattenError(sPlace + ": this INCLUDE has no name");
    const std::string sPath = IsAbsolute(sName) ? sName : rLevel.sFOLDER + sName;
    Enter(sPath, sPlace, !m_bBulk && HoldsBulkData(sPath));
}

void CJoin::Copy(std::string_view sLine) {
    m_rFile.Write(sLine);
    const bool bFeed = sLine.ends_with('\n');
    if (!bFeed && m_aLevels.size() > 1) m_rFile.Write("\n"); // what follows begins a line of its own
    const std::size_t nLines = (sLine.size() - (bFeed ? 1 : 0)) / LONGEST_PIECE + 1;
    CountLines(nLines);
    if (nLines > 1) MarkRun(m_aLevels.back(), m_aLevels.back().iLINE + 1);
}

void CJoin::WriteMarker(std::string_view sMarker, bool bBulk) {
    m_bBulk = bBulk;
    m_rFile.Write(sMarker);
    CountLines(1);
    MarkRun(m_aLevels.back(), m_aLevels.back().iLINE + 1);
}

void CJoin::CountLines(std::size_t nLines) {
    const auto nLeft = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() - 1 - m_nLines);
    if (nLines > nLeft) throw CFlattenError(Place(m_aLevels.back()) + ": the joined deck has too many lines");
    m_nLines += static_cast<std::int32_t>(nLines);
}

} // namespace

T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, std::int64_t nMostDecks) {
    CJoin join(sDeck, rJoined, nMostDecks);
    return std::move(join.m_joined);
}
