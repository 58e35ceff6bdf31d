// Opens includes where they stand.

#include "nas2zdt/flatten/DeckJoin.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/flatten/DeckError.h"
#include "nas2zdt/flatten/IncludeStatement.h"
#include "nas2zdt/text/TextReader.h"
#include "nas2zdt/text/Words.h"
#include "platform/Paths.h"

#include <algorithm>
#include <cstdlib>

namespace {

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

/// Whether sLine begins the bulk section. Forgiving, the blanks don't matter, and any BEGIN does.
bool BeginsBulk(std::string_view sLine, bool bForgiving) {
    if (!bForgiving) return StartsWithoutCase(sLine, "BEGIN BULK");
    sLine = TrimText(sLine);
    return StartsWithoutCase(sLine, "BEGIN") && sLine.size() > 5 && (sLine[5] == ' ' || sLine[5] == '\t');
}

/// Whether a line may do more than to be handed on, by its first characters.
bool MayDirect(std::string_view sLine) {
    switch (ToUpper(sLine[0])) {
    case 'C':
        return sLine.size() > 1 && ToUpper(sLine[1]) == 'E';
    case 'B':
    case 'E':
    case 'I':
    case CTRL_Z:
        return true;
    default:
        return IsWhite(sLine[0]);
    }
}

/// Whether a card comes in a deck before any section marker.
bool HoldsBulkData(const std::string& sPath, bool bForgiving) {
    CTextReader reader;
    std::string sCause;
    std::string_view sLine;
    if (!reader.Open(sPath, sCause)) return false;
    while (reader.Read(sLine)) {
        if (StartsWithoutCase(sLine, "CEND") || BeginsBulk(sLine, bForgiving)) return false;
        if (IsBulkLine(sLine)) return true;
    }
    return false;
}

/// The folder of a logical name: a given one, or else an environment variable. Empty if there is none.
std::string FolderOf(const std::string& sLogical, const std::map<std::string, std::string>& rFolders) {
    std::string sUpper = sLogical;
    std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(), &ToUpper);
    if (const auto pGiven = rFolders.find(sUpper); pGiven != rFolders.end()) return pGiven->second;
    const char* sValue = std::getenv(sLogical.c_str());
    return sValue ? sValue : std::string();
}

/// The folder of sPath with a separator at its end. Names of includes may have those of another system.
std::string FolderPart(const std::string& sPath, bool bIncluded) {
    return sPath.substr(0, sPath.find_last_of(bIncluded ? "/\\" : "/") + 1);
}

} // namespace

/// A deck that is being read.
struct CDeckJoin::T_LEVEL_D {
    std::unique_ptr<CLinesAhead> pAHEAD; // may be null
    std::unique_ptr<CTextReader> pREADER;
    std::string sPATH;
    std::string sFOLDER; // ends in a separator; empty for the current folder
    std::size_t iFILE = 0;
    std::int32_t iLINE = 0; // lines read
    bool bENCLOSED = false; // whether its text is between switches
};

CDeckJoin::CDeckJoin(CJoinSink& rSink, const T_JOINRULES_D& rRules) : m_rSink(rSink), m_rRules(rRules) {}
CDeckJoin::~CDeckJoin() = default;

void CDeckJoin::Run(const std::string& sDeck) {
    CountDeck();
    auto pReader = std::make_unique<CTextReader>();
    std::string sCause;
    const std::string& sName = m_rRules.NameOf(sDeck);
    if (!pReader->Open(sDeck, sCause)) {
        throw CDeckError(FAILURE_DECK_NOT_OPENED, {sName, 0}, "can't be opened: " + sCause);
    }
    const bool bBare = m_rRules.bFORGIVING && HoldsBulkData(sDeck, true);
    Enter(sName, std::move(pReader), false);
    if (bBare) Switch(true);
    while (!m_aLevels.empty()) Step();
}

void CDeckJoin::CountDeck() {
    if (++m_nDecks <= m_rRules.nDECKS) return;
    throw CDeckError(FAILURE_LIMIT_DECKS, m_aLevels.empty() ? T_ORIGIN_D() : Place(),
                     "limit on decks: more than " + std::to_string(m_rRules.nDECKS) +
                         " decks are opened; the option --limit decks=N sets it");
}

/// Begins to read an open deck.
void CDeckJoin::Enter(const std::string& sPath, std::unique_ptr<CTextReader> pReader, bool bEnclosed) {
    const T_FILEID_D id = pReader->GetId();
    if (std::any_of(m_aLevels.begin(), m_aLevels.end(),
                    [&](const T_LEVEL_D& rLevel) { return rLevel.pREADER->GetId() == id; })) {
        throw CDeckError(FAILURE_INCLUDE_CYCLE, Place(),
                         "this deck includes itself, directly or through others: " + sPath);
    }
    m_inputs.emplace(id, "the deck " + sPath);
    const std::string sFolder = FolderPart(sPath, !m_aLevels.empty());
    std::unique_ptr<CLinesAhead> pAhead = m_rSink.MakeAhead();
    if (pAhead) pReader->LookAhead(*pAhead);
    m_aLevels.push_back({std::move(pAhead), std::move(pReader), sPath, sFolder, m_nFiles++, 0, bEnclosed});
    m_rSink.OnFile(sPath);
    if (bEnclosed) Switch(true);
}

/// Ends the innermost deck.
void CDeckJoin::Leave() {
    if (m_aLevels.back().bENCLOSED) Switch(false);
    m_aLevels.pop_back();
}

T_JOINLINE_D CDeckJoin::Line(std::string_view sText) const {
    return {sText, m_aLevels.back().iFILE, m_aLevels.back().iLINE, m_bBulk};
}

void CDeckJoin::Switch(bool bBulk) {
    m_bBulk = bBulk;
    T_JOINLINE_D next = Line({});
    ++next.iLINE;
    m_rSink.OnSwitch(next);
}

/// Takes the next line of the innermost deck.
void CDeckJoin::Step() {
    constexpr std::int64_t LINES = 1 << 14; // between polls
    if (++m_nUnpolled >= LINES) {
        m_nUnpolled = 0;
        if (m_rRules.fnPOLL) m_rRules.fnPOLL();
    }
    if (m_bBulk && TakeRun()) return;
    T_LEVEL_D& rLevel = m_aLevels.back();
    std::string_view sLine;
    if (!rLevel.pREADER->Read(sLine)) {
        if (rLevel.pREADER->HasFailed()) {
            throw CDeckError(FAILURE_DECK_NOT_READ, {rLevel.sPATH, 0}, "can't be read to its end");
        }
        return Leave();
    }
    ++rLevel.iLINE;
    if (!MayDirect(sLine)) return m_rSink.OnLine(Line(sLine));
    const bool bEnd = StartsWithoutCase(sLine, "ENDDATA") && (m_bBulk || !m_rRules.bFORGIVING);
    if (bEnd || sLine.starts_with(CTRL_Z)) {
        if (m_aLevels.size() == 1) m_rSink.OnLine(Line(sLine));
        if (bEnd) PassRest();
        return Leave();
    }
    const char c = sLine[0];
    const bool bMayInclude = c == 'I' || c == 'i' || c == ' ' || c == '\t';
    if (CIncludeStatement statement; bMayInclude && statement.Begin(sLine)) return Include(statement);
    TakeLine(sLine);
}

/// Takes the run that the next lines are, if there is one and the sink takes it.
bool CDeckJoin::TakeRun() {
    T_LEVEL_D& rLevel = m_aLevels.back();
    T_JOINLINE_D first = Line({});
    ++first.iLINE;
    const T_LINERUN_D* pRun = rLevel.pAHEAD ? rLevel.pREADER->PeekRun(first.sTEXT) : nullptr;
    if (!pRun || !m_rSink.OnRun(first, *pRun, *rLevel.pAHEAD)) return false;
    rLevel.iLINE += pRun->nLINES;
    m_nUnpolled += pRun->nLINES;
    rLevel.pREADER->PassRun();
    return true;
}

/// Reads on behind an ENDDATA: nothing there counts, but somebody may have meant it to.
void CDeckJoin::PassRest() {
    T_LEVEL_D& rLevel = m_aLevels.back();
    T_JOINLINE_D first;
    std::size_t nLines = 0;
    std::string_view sLine;
    while (rLevel.pREADER->Read(sLine) && !sLine.starts_with(CTRL_Z)) {
        ++rLevel.iLINE;
        if (IsBulkLine(sLine) && nLines++ == 0) first = Line({});
    }
    if (nLines > 0) m_rSink.OnBehindEnd(first, nLines);
}

void CDeckJoin::TakeLine(std::string_view sLine) {
    const bool bBegins = BeginsBulk(sLine, m_rRules.bFORGIVING);
    const bool bEnds = StartsWithoutCase(sLine, "CEND") && !(m_rRules.bFORGIVING && m_bBulk);
    m_rSink.OnLine(Line(sLine));
    if (!bBegins && !bEnds) return;
    m_bBulk = bBegins; // from here on the deck has its own markers
    for (T_LEVEL_D& rOuter : m_aLevels) rOuter.bENCLOSED = false;
}

/// Where the deck of an INCLUDE may be, in the order of the search.
std::vector<std::string> CDeckJoin::GetCandidates(const std::string& sName) const {
    if (const std::size_t iColon = sName.find(':'); iColon != std::string::npos && iColon > 1) {
        std::string sFolder = FolderOf(sName.substr(0, iColon), m_rRules.mapFOLDERS);
        if (!sFolder.empty()) return {sFolder += '/' + sName.substr(iColon + 1)};
    }
    if (IsAbsolute(sName)) return {sName};
    std::vector<std::string> aPaths;
    for (const std::string& rFolder : {m_aLevels.back().sFOLDER, m_aLevels.front().sFOLDER, std::string()}) {
        const std::string sPath = rFolder + sName;
        if (std::find(aPaths.begin(), aPaths.end(), sPath) == aPaths.end()) aPaths.push_back(sPath);
    }
    return aPaths;
}

/// Opens the deck of an INCLUDE at rPath. Null if it is nowhere; rPath and rCause are then of the first place.
std::unique_ptr<CTextReader> CDeckJoin::Find(const std::string& sName, std::string& rPath, std::string& rCause) {
    const std::vector<std::string> aPaths = GetCandidates(sName);
    for (const std::string& rCandidate : aPaths) {
        auto pReader = std::make_unique<CTextReader>();
        std::string sCause;
        rPath = rCandidate;
        if (pReader->Open(rCandidate, sCause)) return pReader;
        if (rCause.empty()) rCause = sCause;
    }
    rPath = aPaths.front();
    return nullptr;
}

/// Reads an INCLUDE to its end and enters the deck that it names.
void CDeckJoin::Include(CIncludeStatement& rStatement) {
    T_LEVEL_D& rLevel = m_aLevels.back();
    const T_ORIGIN_D place = Place();
    const T_JOINLINE_D line = Line({});
    std::string_view sLine;
    while (!rStatement.IsWhole()) {
        if (!rLevel.pREADER->Read(sLine) || !rStatement.Continue(sLine)) {
            throw CDeckError(FAILURE_INCLUDE_NOT_OPENED, place, "the name of this INCLUDE has no closing quote");
        }
        ++rLevel.iLINE;
    }
    const std::string& sName = rStatement.GetName();
    if (sName.empty()) throw CDeckError(FAILURE_INCLUDE_NOT_OPENED, place, "this INCLUDE has no name");
    CountDeck();
    std::string sPath, sCause;
    std::unique_ptr<CTextReader> pReader = Find(sName, sPath, sCause);
    if (!pReader) {
        if (m_rRules.bFORGIVING) return m_rSink.OnMissing(sName, line);
        throw CDeckError(FAILURE_INCLUDE_NOT_OPENED, place, "included deck can't be opened: " + sPath + ": " + sCause);
    }
    Enter(sPath, std::move(pReader), !m_bBulk && HoldsBulkData(sPath, m_rRules.bFORGIVING));
}

T_ORIGIN_D CDeckJoin::Place() const {
    return {m_aLevels.back().sPATH, m_aLevels.back().iLINE};
}
