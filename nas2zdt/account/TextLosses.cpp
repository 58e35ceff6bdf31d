// Comparing a card with what NASTRAN reads from its lines.

#include "nas2zdt/account/TextLosses.h"

#include "driver/CConvertNastran.h"
#include "reader/FieldParser.h"
#include "reader/Keywords.h"

#include <algorithm>

namespace {

constexpr std::size_t COLUMNS_WITH_FIELDS = 72;
constexpr std::size_t MOST_NAMES = 4; // of fields that differ: the first ones tell which way it went

std::string_view WithoutReturn(std::string_view sField) {
    return sField.substr(0, std::min(sField.find('\r'), sField.size()));
}

bool IsKeyword(std::string_view sWord) {
    std::int32_t iKeyword = 0;
    return CConvertNastran::KeywordToId(sWord, iKeyword) != 0;
}

bool IsContinuation(std::string_view sFirst) {
    return sFirst.empty() || sFirst[0] == '+' || sFirst[0] == '*';
}

TEXTWORD MarkWord(std::string_view sMark) {
    return LoadWord(sMark.data(), std::min(sMark.size(), WORD_LENGTH));
}

std::string MeantKeyword(std::string_view sKeyword) {
    return "the keyword, which is " + std::string(sKeyword);
}

/// Whether a comment that stands right behind a number changes nothing, whatever the field is read as.
bool IsSameNumber(std::string_view sRead, std::string_view sMeant) {
    if (sMeant.empty() || !sRead.starts_with(sMeant) || sRead[sMeant.size()] != '$') return false;
    if (sMeant.find_first_not_of("0123456789+-.ED") != std::string_view::npos) return false;
    if (sRead.find_first_of("0123456789", sMeant.size()) != std::string_view::npos) return false; // components
    return TextToInt(sRead) == TextToInt(sMeant) && TextToReal(sRead) == TextToReal(sMeant);
}

bool HasBlank(std::string_view sField) {
    return sField.find_first_of(" \t") != std::string_view::npos;
}

} // namespace

bool BeginsPart(std::string_view sText) {
    if (!sText.starts_with("BEGIN")) return false;
    for (const std::string_view sPart : {"SUPER", "AUXMODEL", "MODULE"}) {
        const std::size_t iPart = sText.find(sPart);
        if (iPart == std::string_view::npos) continue;
        const std::string_view sNumber = sText.substr(iPart + sPart.size());
        return sNumber.find_first_of("123456789") != std::string_view::npos;
    }
    return false;
}

void CTextLosses::TakeText(std::span<const T_RAWLINE_D> aLines, std::int32_t iFirst) {
    m_iFirst = iFirst;
    m_sCopy.clear();
    m_aCut.clear();
    for (const T_RAWLINE_D& rLine : aLines) {
        m_sCopy += rLine.sTEXT;
        m_aCut.push_back(rLine.bCUT);
    }
    m_aLines.clear();
    std::size_t iBegin = 0;
    for (const T_RAWLINE_D& rLine : aLines) {
        m_aLines.push_back(std::string_view(m_sCopy).substr(iBegin, rLine.sTEXT.size()));
        iBegin += rLine.sTEXT.size();
    }
}

/// Begins the losses of a group. False if its text wasn't taken: nothing is lost then.
bool CTextLosses::ReadText(std::int32_t iFirst, std::int32_t iKeyword) {
    m_aLosses.clear();
    m_bBeginsPart = false;
    if (!HasText(iFirst)) return false;
    m_iFirst = NO_LINE;
    m_text.Read(m_aLines);
    TakeMarks(iFirst, iKeyword);
    return true;
}

void CTextLosses::TakeMarks(std::int32_t iFirst, std::int32_t iKeyword) {
    std::string_view sBefore;
    std::int32_t iLine = iFirst;
    for (const T_CARDLINE_D& rLine : m_text.GetLines()) {
        if (iLine > iFirst) {
            const std::string_view sOwn = BareMark(rLine.sFIRST);
            if (sOwn != sBefore) {
                if (!sOwn.empty()) m_aStrays.push_back({MarkWord(sOwn), iKeyword, m_nDecks - 1, iLine});
                if (!sBefore.empty()) m_aOpenMarks.push_back(MarkWord(sBefore));
            }
        }
        sBefore = BareMark(rLine.sMARK);
        ++iLine;
    }
    if (!sBefore.empty()) m_aOpenMarks.push_back(MarkWord(sBefore));
}

std::vector<T_STRAY_D> CTextLosses::FindStrays() {
    std::sort(m_aOpenMarks.begin(), m_aOpenMarks.end());
    std::vector<T_STRAY_D> aFound;
    std::copy_if(m_aStrays.begin(), m_aStrays.end(), std::back_inserter(aFound), [&](const T_STRAY_D& rStray) {
        return std::binary_search(m_aOpenMarks.begin(), m_aOpenMarks.end(), rStray.nMARK);
    });
    return aFound;
}

/// Why the group is cut in two ways: the first reason that its text has.
E_NOTE CTextLosses::FindCause() const {
    const std::vector<T_CARDLINE_D>& rLines = m_text.GetLines();
    const auto any = [&](auto has) { return std::any_of(rLines.begin(), rLines.end(), has); };
    const auto inFields = [&](auto has) {
        return std::any_of(m_text.GetFields().begin(), m_text.GetFields().end(), has);
    };
    if (any([](const T_CARDLINE_D& r) { return r.bTABBED; })) return NOTE_TEXT_TAB;
    if (any([](const T_CARDLINE_D& r) { return r.bCOMMENTED; })) return NOTE_TEXT_COMMENT;
    if (any([](const T_CARDLINE_D& r) { return r.bFREE && r.bLARGE; })) return NOTE_TEXT_LARGE_FREE;
    const bool bShort = std::any_of(rLines.begin(), rLines.end() - 1, // behind the last one there is nothing to move up
                                    [](const T_CARDLINE_D& r) { return r.bSHORT && (r.bFREE || r.bLARGE); });
    if (bShort) return NOTE_TEXT_SHORT;
    if (inFields([](std::string_view s) { return s.find('+') != std::string_view::npos; })) return NOTE_PLUS_SIGN;
    if (HasBlank(m_text.GetKeyword()) || inFields(&HasBlank)) return NOTE_TEXT_BLANK;
    // an empty field 10 counts, too
    if (any([](const T_CARDLINE_D& r) { return r.bFREE && !r.bSHORT; })) return NOTE_TEXT_MARK;
    return NOTE_TEXT_OTHER;
}

/// A ":" takes the rest of a line away, but for a comment and columns without fields.
void CTextLosses::FindColons() {
    for (std::size_t i = 0; i < m_aLines.size(); ++i) {
        const T_CARDLINE_D& rLine = m_text.GetLines()[i];
        if (!m_aCut[i] || rLine.bCOMMENTED) continue;
        if (rLine.bFREE || m_aLines[i].size() < COLUMNS_WITH_FIELDS) return Lose(NOTE_TEXT_COLON, "");
    }
}

/// Fields of the card that aren't those of its text. Where nobody looks, what is too much does no harm.
void CTextLosses::FindFields(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse) {
    const auto& rRead = rCard.aFIELDS;
    m_meant.aFIELDS = m_text.GetFields();
    if (m_meant.aFIELDS.size() < rRead.size()) m_meant.aFIELDS.resize(rRead.size());
    const auto differs = [&](std::size_t i) {
        const std::string_view sRead = i < rRead.size() ? WithoutReturn(rRead[i]) : std::string_view();
        const std::string_view sMeant = m_meant.aFIELDS[i];
        if (sRead == sMeant || IsSameNumber(sRead, sMeant)) return false;
        const auto isHere = [&](const T_FIELDUSE_D::T_SKIP_D& rSkip) { return rSkip.iFIELD == i; };
        return !sMeant.empty() ||
               (i < rUse.nREACHED && std::none_of(rUse.aSKIPPED.begin(), rUse.aSKIPPED.end(), isHere));
    };
    std::size_t iFirst = 0;
    while (iFirst < m_meant.aFIELDS.size() && !differs(iFirst)) ++iFirst;
    if (iFirst == m_meant.aFIELDS.size()) return;
    const std::string_view sKeyword = T_KEYWORD_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].sNAME;
    const CFieldNames& rNames = m_mapNames.try_emplace(rCard.iKEYWORD, sKeyword).first->second;
    std::string sText;
    std::size_t nNames = 0;
    rNames.Walk(m_meant, [&](std::size_t i, const T_NAME_D& rName) {
        if (i < iFirst || nNames > MOST_NAMES || !differs(i)) return;
        sText += nNames == 0 ? "" : ", ";
        sText += nNames == MOST_NAMES ? "..." : rName.sNAME == "-" ? "a field without a name" : rName.Text();
        ++nNames;
    });
    Lose(FindCause(), std::move(sText));
}

const std::vector<T_TEXTLOSS_D>& CTextLosses::FindInCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse,
                                                         std::int32_t iFirst, bool bDeleted) {
    if (!ReadText(iFirst, rCard.iKEYWORD)) return m_aLosses;
    const std::vector<T_CARDLINE_D>& rLines = m_text.GetLines();
    for (auto pLine = rLines.begin() + 1; pLine < rLines.end(); ++pLine) {
        const std::string_view sWord = pLine->sFIRST.substr(0, pLine->sFIRST.find('*'));
        if (!IsContinuation(pLine->sFIRST) && IsKeyword(sWord)) {
            Lose(NOTE_TEXT_BLANK, "a card " + std::string(sWord) + ", read as a continuation line");
            return m_aLosses; // fields that came along need no other explanation
        }
    }
    const std::string_view sKeyword = m_text.GetKeyword();
    const E_CARD_ACTION eAction = T_KEYWORD_D::TABLE[static_cast<std::size_t>(rCard.iKEYWORD)].eACTION;
    if (sKeyword != rCard.sWORD) {
        if (IsContinuation(sKeyword)) {
            Lose(FindCause(), "continuation lines, read as cards", true);
        } else {
            Lose(FindCause(), MeantKeyword(sKeyword));
        }
    } else if (eAction == CARD_PARSED || eAction == CARD_INCLUDED) {
        FindColons();
        if (eAction == CARD_PARSED && !bDeleted) FindFields(rCard, rUse);
    }
    return m_aLosses;
}

const std::vector<T_TEXTLOSS_D>& CTextLosses::FindInLoss(const T_LOSS_D& rLoss) {
    if (!ReadText(rLoss.iFIRST, rLoss.iKEYWORD) || rLoss.eLOSS != LOSS_UNKNOWN_WORD) return m_aLosses;
    const std::string_view sKeyword = m_text.GetKeyword();
    m_bBeginsPart = ::BeginsPart(m_aLines[0]);
    if (m_text.GetLines()[0].IsReplication()) {
        Lose(NOTE_REPLICATION, "");
    } else if (IsContinuation(sKeyword)) {
        Lose(FindCause(), "continuation lines, read as cards", true);
    } else if (sKeyword != rLoss.sWORD && IsKeyword(sKeyword)) {
        Lose(FindCause(), MeantKeyword(sKeyword));
    }
    return m_aLosses;
}
