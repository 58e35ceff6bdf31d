// Groups the lines of a deck into cards.

#include "nas2zdt/restate/SourceDeck.h"

#include "nas2zdt/flatten/DeckError.h"
#include "nas2zdt/restate/CardLines.h"
#include "nas2zdt/restate/CardText.h"
#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/text/Words.h"
#include "reader/FieldParser.h"
#include "reader/LineReader.h"

#include <algorithm>
#include <cstring>

namespace {

enum E_TEXTRULE { TEXT_UNREADABLE, TEXT_PART, TEXT_INCLUDE, TEXT_INCLUDE_BULK, TEXT_REPLICATED, TEXT_JOINED };

constexpr std::size_t MARK_COLUMN = 72; // from 0

} // namespace

const std::vector<T_RULE_D> CSourceDeck::RULES = {
    {"unreadable", CLASS_MODEL, "", "a line that begins with no keyword", "left out: lines that begin with no keyword"},
    {"part", CLASS_MODEL, "", "cards of a part apart", "left out: cards of another part, which --super converts",
     "part"},
    {"include-missing", CLASS_CONTROL, "INCLUDE", "an INCLUDE before BEGIN BULK that leads nowhere",
     "passed over: a deck that isn't there, before BEGIN BULK", "control-include"},
    {"include-lost", CLASS_MODEL, "INCLUDE", "an INCLUDE in the bulk data that leads nowhere",
     "left out: all of a deck that isn't there"},
    {"replicated", CLASS_NOTE, "", "lines of replication", "restated: cards made from lines of replication",
     "replication said-ignored"},
    {"joined", CLASS_NOTE, "", "continuation lines that stand elsewhere",
     "restated: continuation lines put behind the line of their mark", "stray-line"},
};

/// Makes room at the end of the text that grows.
char* CTextStore::Extend(std::size_t nText) {
    if (nText > m_nRoom) {
        const std::size_t nBlock = std::max(BLOCK, 2 * (m_nOpen + nText)); // a long text moves seldom
        auto pBlock = std::make_unique_for_overwrite<char[]>(nBlock + SLACK);
        std::memset(pBlock.get() + nBlock, 0, SLACK);
        if (m_nOpen > 0) std::memcpy(pBlock.get(), m_pEnd - m_nOpen, m_nOpen);
        m_pEnd = pBlock.get() + m_nOpen;
        m_nRoom = nBlock - m_nOpen;
        m_aBlocks.push_back(std::move(pBlock));
    }
    m_pEnd += nText;
    m_nRoom -= nText;
    m_nOpen += nText;
    return m_pEnd - nText;
}

void CTextStore::Append(std::string_view sText) {
    if (!sText.empty()) std::memcpy(Extend(sText.size()), sText.data(), sText.size());
}

void CTextStore::AppendLine(std::string_view sText) {
    char* pText = Extend(sText.size() + 1);
    if (!sText.empty()) std::memcpy(pText, sText.data(), sText.size());
    pText[sText.size()] = '\n';
}

void CTextStore::Drop(std::string_view sText) {
    if (sText.data() + sText.size() != m_pEnd) return;
    m_pEnd -= sText.size();
    m_nRoom += sText.size();
    m_nOpen = 0;
}

void CSourceDeck::Read(const std::string& sDeck, const T_JOINRULES_D& rRules, CCardSink* pSink) {
    m_pSink = pSink;
    CDeckJoin join(*this, rRules);
    join.Run(sDeck);
    EndCard();
    JoinStrays();
    if (m_pSink) {
        for (const T_SOURCECARD_D& rCard : m_aCards) m_pSink->OnCard(rCard);
        m_aCards.clear();
    }
    m_inputs = join.GetInputs();
    for (const auto& [sKeyword, nCount] : m_mapParts) m_rTold.Tell(RULES[TEXT_PART], sKeyword, {}, {}, nCount);
}

void CSourceDeck::OnMissing(const std::string& sName, const T_JOINLINE_D& rLine) {
    m_rTold.Tell(RULES[rLine.bBULK ? TEXT_INCLUDE_BULK : TEXT_INCLUDE], "INCLUDE",
                 {static_cast<std::uint32_t>(rLine.iFILE), rLine.iLINE}, sName);
}

void CSourceDeck::OnLine(const T_JOINLINE_D& rLine) {
    const std::string_view sText = WithoutEnd(rLine.sTEXT);
    const T_ORIGINLINE_D origin{static_cast<std::uint32_t>(rLine.iFILE), rLine.iLINE};
    if (sText.starts_with('$') || sText.starts_with(CTRL_Z)) return;
    const T_LINELOOK_D look = rLine.bBULK ? LookAtLine(sText) : T_LINELOOK_D();
    if (look.bCARD) return BeginCard(sText, origin, look);
    if (TakeMarker(sText, rLine.bBULK)) return EndCard();
    if (rLine.bBULK) {
        TakeBulk(sText, origin, look);
    } else {
        EndCard();
        TakeControl(sText, origin);
    }
}

/// Markers of sections aren't lines of any, but for a CEND in its place. A BEGIN may say which part begins.
bool CSourceDeck::TakeMarker(std::string_view sText, bool bBulk) {
    std::size_t iFirst = 0;
    while (iFirst < sText.size() && (sText[iFirst] == ' ' || sText[iFirst] == '\t')) ++iFirst;
    if (iFirst == sText.size()) return false;
    const char c = ToUpper(sText[iFirst]);
    if (c != 'B' && c != 'C' && c != 'E') return false;
    if (StartsWithoutCase(sText, "ENDDATA")) return true;
    if (StartsWithoutCase(sText, "CEND")) return bBulk;
    sText.remove_prefix(iFirst);
    if (!StartsWithoutCase(sText, "BEGIN") || sText.size() == 5 || (sText[5] != ' ' && sText[5] != '\t')) return false;
    std::string sUpper(sText.substr(0, sText.find('$')));
    std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(), &ToUpper);
    m_iInPart = 0;
    for (const std::string_view sWord : {"SUPER", "AUXMODEL", "MODULE"}) {
        const std::size_t iWord = sUpper.find(sWord);
        if (iWord == std::string::npos) continue;
        const std::size_t iNumber = sUpper.find_first_of("0123456789", iWord);
        m_iInPart = iNumber == std::string::npos ? -1 : TextToInt(std::string_view(sUpper).substr(iNumber));
        if (sWord != "SUPER") m_iInPart = -1; // no part that can be asked for
    }
    return true;
}

void CSourceDeck::TakeControl(std::string_view sText, const T_ORIGINLINE_D& rOrigin) {
    if (TrimText(sText).empty()) return;
    m_texts.Begin();
    m_texts.Append(sText);
    m_aControl.push_back({m_texts.GetOpen(), rOrigin});
}

void CSourceDeck::TakeBulk(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINELOOK_D& rLook) {
    const char c = sText.empty() ? ' ' : sText[0];
    if (c != ' ' && c != '\t' && c != '+' && c != '*' && c != ',' && c != '=') return BeginCard(sText, rOrigin, rLook);
    if (TrimText(sText.substr(0, sText.find('$'))).empty()) return;
    const std::string_view sFirst = FirstField(sText);
    if (c == '=' || sFirst.starts_with("*(")) return Replicate(sText, rOrigin);
    if (sFirst.empty() || sFirst[0] == '+' || sFirst[0] == '*') return AddLine(sText, rLook);
    BeginCard(sText, rOrigin, rLook);
}

void CSourceDeck::BeginCard(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINELOOK_D& rLook) {
    EndCard();
    if (!rLook.bCARD) {
        const std::string_view sFirst = FirstField(sText);
        if (!BeginsCard(sFirst)) return m_rTold.Tell(RULES[TEXT_UNREADABLE], sFirst, rOrigin);
    }
    if (m_iInPart != m_iPart) {
        std::string sKeyword(KeywordOf(FirstField(sText)));
        std::transform(sKeyword.begin(), sKeyword.end(), sKeyword.begin(), &ToUpper);
        ++m_mapParts[sKeyword];
        return;
    }
    GiveCard();
    m_texts.Begin();
    const bool bAtFirst = sText[0] != ' ';
    m_aCards.push_back({nullptr, 0, rOrigin, 0, 0, bAtFirst, bAtFirst});
    m_bOpen = true;
    m_sLastMark.clear();
    AddLine(sText, rLook);
}

/// Hands the last card on. One that lines from elsewhere may be joined to waits for the end of the deck, and so do all
/// behind it.
void CSourceDeck::GiveCard() {
    if (!m_pSink || m_aCards.empty() || IsWaiting()) return;
    const T_SOURCECARD_D card = m_aCards.back();
    m_aCards.pop_back();
    if (!m_pSink->OnCard(card)) m_texts.Drop(card.Text());
}

bool CSourceDeck::OnRun(const T_JOINLINE_D& rFirst, const T_LINERUN_D& rRun, CLinesAhead& rAhead) {
    if (m_iInPart != m_iPart) return false;
    EndCard();
    GiveCard();
    if (IsWaiting()) return false;
    m_pSink->OnRun(rFirst.sTEXT, {static_cast<std::uint32_t>(rFirst.iFILE), rFirst.iLINE}, rRun, rAhead);
    m_sGiven = WithoutEnd(rFirst.sTEXT.substr(rRun.iLAST - rRun.iBEGIN));
    return true;
}

/// Adds a line to the card in hand, or begins a stray one if its mark is another.
void CSourceDeck::AddLine(std::string_view sText, const T_LINELOOK_D& rLook) {
    if (!m_bOpen) return; // of a line that can't be read, or of another part
    const bool bGoesOn = !m_texts.GetOpen().empty();
    if (bGoesOn && !(m_sLastMark.empty() && m_aWaiting.empty())) {
        const std::string_view sMark = BareMark(FirstField(sText));
        if (!sMark.empty() && sMark != m_sLastMark) {
            EndCard();
            m_bOpen = true;
            m_texts.Begin();
            m_aStrays.push_back({{}, m_aCards.size() - 1});
        }
    }
    m_texts.AppendLine(sText);
    T_SOURCECARD_D& rCard = m_aCards.back();
    rCard.bPLAIN = rCard.bPLAIN && rLook.bPLAIN;
    rCard.bCOLUMNS = rCard.bCOLUMNS && rLook.bCOLUMNS;
    if (rLook.bPLAIN && sText.size() <= MARK_COLUMN) {
        m_sLastMark.clear();
    } else {
        m_sLastMark = LastMark(sText, rLook.bPLAIN);
    }
}

/// Keeps the text of the card or of the stray line in hand.
void CSourceDeck::EndCard() {
    if (!m_bOpen) return;
    m_bOpen = false;
    const std::string_view sText = m_texts.GetOpen();
    T_SOURCECARD_D& rCard = m_aCards.back();
    if (rCard.pTEXT) {
        m_aStrays.back().sTEXT = sText;
        return;
    }
    rCard.pTEXT = sText.data();
    rCard.nTEXT = static_cast<std::uint32_t>(sText.size());
    if (!m_sLastMark.empty()) m_aWaiting.push_back(static_cast<std::uint32_t>(m_aCards.size() - 1));
}

/// Puts stray lines behind the line that ends in their mark, or else where they stand.
void CSourceDeck::JoinStrays() {
    if (m_aStrays.empty()) return;
    std::map<std::string, std::vector<std::size_t>, std::less<>> mapStrays; // by mark, the last one first
    for (std::size_t i = m_aStrays.size(); i-- > 0;) {
        mapStrays[std::string(BareMark(FirstField(m_aStrays[i].sTEXT)))].push_back(i);
    }
    std::vector<bool> aJoined(m_aStrays.size());
    const auto join = [&](std::size_t iCard, std::size_t iStray) {
        T_SOURCECARD_D& rCard = m_aCards[iCard];
        m_texts.Begin();
        m_texts.Append(rCard.Text());
        m_texts.Append(m_aStrays[iStray].sTEXT);
        rCard.pTEXT = m_texts.GetOpen().data();
        rCard.nTEXT = static_cast<std::uint32_t>(m_texts.GetOpen().size());
        rCard.bPLAIN = rCard.bCOLUMNS = false;
        aJoined[iStray] = true;
    };
    const auto lastMark = [](std::string_view sLines) {
        sLines.remove_suffix(1);
        return LastMark(sLines.substr(sLines.rfind('\n') + 1), false); // all of it if there is no other line
    };
    for (const std::uint32_t iCard : m_aWaiting) {
        std::string sMark = lastMark(m_aCards[iCard].Text());
        for (auto pFound = mapStrays.find(sMark); pFound != mapStrays.end() && !pFound->second.empty();
             pFound = mapStrays.find(sMark)) {
            const std::size_t iStray = pFound->second.back();
            pFound->second.pop_back();
            join(iCard, iStray);
            m_rTold.Tell(RULES[TEXT_JOINED], KeywordOf(FirstField(m_aCards[iCard].Text())), m_aCards[iCard].origin);
            sMark = lastMark(m_aStrays[iStray].sTEXT);
        }
    }
    for (std::size_t i = 0; i < m_aStrays.size(); ++i) {
        if (!aJoined[i]) join(m_aStrays[i].iCARD, i);
    }
}

/// Makes cards of the last one: "=" takes a field of it, "*(x)" adds x to that, "==" takes all fields that follow. The
/// count in field 1 is of cards; a line of a count alone goes on with the fields of the line before.
void CSourceDeck::Replicate(std::string_view sText, const T_ORIGINLINE_D& rOrigin) {
    EndCard();
    if (m_iInPart != m_iPart) return;
    const auto fail = [&] { m_rTold.Tell(RULES[TEXT_UNREADABLE], FirstField(sText), rOrigin); };
    CCardText line, before;
    line.Read({&sText, 1});
    const std::string_view sCount = line.GetLines()[0].sFIRST;
    if (!sCount.starts_with('=') || (m_aCards.empty() && m_sGiven.empty())) return fail();
    std::int32_t nCards = 1;
    if (sCount.size() > 1) {
        const std::string_view sNumber = sCount.substr(sCount[1] == '(' ? 2 : 1);
        nCards = TextToInt(sNumber.substr(0, sNumber.find(')')));
    }
    const std::vector<std::string_view>& rFields = line.GetFields();
    const bool bOwn = std::any_of(rFields.begin(), rFields.end(), [](std::string_view s) { return !s.empty(); });
    if (bOwn) m_sCommon = sText;
    std::string_view sCommon = m_sCommon;
    line.Read({&sCommon, 1});
    if (sCommon.empty() || nCards < 1) return fail();
    m_nMade += nCards;
    if (m_nMade > m_nMostMade) {
        throw CDeckError(FAILURE_LIMIT_RANGES, {m_aFiles[rOrigin.iFILE], rOrigin.iLINE},
                         "limit on ranges: replication makes more than " + std::to_string(m_nMostMade) +
                             " cards in all; the option --limit ranges=N sets it");
    }
    for (std::int32_t i = 0; i < nCards; ++i) {
        if (!m_aCards.empty()) m_sGiven = m_aCards.back().Text().substr(0, m_aCards.back().nTEXT - 1);
        if (m_sGiven.find('\n') != std::string::npos) return fail(); // cards of several lines have no such form
        GiveCard();
        const std::string_view sBefore = m_sGiven;
        before.Read({&sBefore, 1});
        m_texts.Begin();
        m_texts.Append(before.GetKeyword());
        bool bRest = false;
        for (std::size_t k = 0; k < before.GetFields().size(); ++k) {
            const std::string_view sField = k < rFields.size() ? rFields[k] : std::string_view();
            bRest = bRest || sField == "==";
            m_texts.Append(',');
            if (bRest || sField == "=") {
                m_texts.Append(before.GetFields()[k]);
            } else if (sField.starts_with("*(")) {
                m_texts.Append(AddToField(before.GetFields()[k], sField.substr(2, sField.find(')') - 2)));
            } else {
                m_texts.Append(sField);
            }
        }
        m_texts.Append('\n');
        const std::string_view sMade = m_texts.GetOpen();
        m_aCards.push_back({sMade.data(), static_cast<std::uint32_t>(sMade.size()), rOrigin, 0, 0, false, false});
        m_rTold.Tell(RULES[TEXT_REPLICATED], before.GetKeyword(), rOrigin);
    }
}
