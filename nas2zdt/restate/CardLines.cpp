// Cuts text into lines and cards.

#include "nas2zdt/restate/CardLines.h"

#include "nas2zdt/restate/CardText.h"
#include "nas2zdt/restate/LineLook.h"
#include "nas2zdt/text/Words.h"

#include <cstring>

namespace {

constexpr std::size_t FIELD_WIDTH = 8;
constexpr std::size_t MARK_COLUMN = 72; // from 0
constexpr std::size_t FREE_COLUMNS = 10;

bool IsWord(std::string_view sFirst) {
    const std::size_t nWord = KeywordOf(sFirst).size();
    return nWord > 0 && nWord <= FIELD_WIDTH && sFirst.find_first_of(" \t") == std::string_view::npos;
}

/// The first line of a text without what ends it. False if its line feed isn't there.
bool CutLine(std::string_view sText, std::string_view& rLine, std::size_t& rBytes) {
    const auto* pFeed = static_cast<const char*>(std::memchr(sText.data(), '\n', sText.size()));
    if (!pFeed) return false;
    rBytes = static_cast<std::size_t>(pFeed - sText.data()) + 1;
    rLine = WithoutEnd(sText.substr(0, rBytes));
    return true;
}

/// Whether a line begins with a letter with which nothing else than a card does.
bool BeginsWithCardLetter(std::string_view sText) {
    const char c = ToUpper(sText[0]);
    if (c < 'A' || c > 'Z' || c == 'B' || c == 'E' || c == 'I') return false;
    return c != 'C' || sText.size() < 2 || ToUpper(sText[1]) != 'E';
}

/// Whether a line goes on with the card before it for sure, if its mark fits.
bool IsContinuation(std::string_view sLine) {
    const std::size_t iFirst = sLine.find_first_not_of(" \t");
    if (iFirst == std::string_view::npos || sLine[iFirst] == '$') return false;
    const char c = ToUpper(sLine[iFirst]);
    if (iFirst > 0 && (c == 'B' || c == 'C' || c == 'E' || c == 'I')) return false;
    const std::string_view sFirst = FirstField(sLine);
    return sFirst.empty() || sFirst[0] == '+' || (sFirst[0] == '*' && !sFirst.starts_with("*("));
}

} // namespace

std::string_view WithoutEnd(std::string_view sLine) {
    while (!sLine.empty() && (sLine.back() == '\n' || sLine.back() == '\r')) sLine.remove_suffix(1);
    return sLine;
}

std::string_view FirstField(std::string_view sLine) {
    const std::size_t iComma = sLine.substr(0, FREE_COLUMNS).find(',');
    if (iComma != std::string_view::npos) return TrimText(sLine.substr(0, iComma));
    const std::string_view sColumns = sLine.substr(0, FIELD_WIDTH);
    return TrimText(sColumns.substr(0, sColumns.find('\t')));
}

std::string LastMark(std::string_view sLine, bool bPlain) {
    if (bPlain) {
        if (sLine.size() <= MARK_COLUMN) return {};
        return std::string(BareMark(TrimText(sLine.substr(MARK_COLUMN, FIELD_WIDTH))));
    }
    CCardText text;
    text.Read({&sLine, 1});
    return std::string(BareMark(text.GetLines()[0].sMARK));
}

std::string_view KeywordOf(std::string_view sFirst) {
    return sFirst.ends_with('*') ? TrimText(sFirst.substr(0, sFirst.size() - 1)) : sFirst;
}

bool BeginsCard(std::string_view sFirst) {
    return IsWord(sFirst) && !HoldsEnd(sFirst);
}

bool CutWholeCard(std::string_view sText, T_WHOLECARD_D& rCard) {
    rCard = T_WHOLECARD_D();
    std::string_view sLine;
    std::size_t nBytes = 0;
    if (sText.empty() || !BeginsWithCardLetter(sText) || !CutLine(sText, sLine, nBytes)) return false;
    T_LINELOOK_D look = LookAtLine(sLine);
    if (!look.bCARD && !BeginsCard(FirstField(sLine))) return false;
    std::string sMark;
    for (;;) {
        rCard.bPLAIN = rCard.bPLAIN && look.bPLAIN;
        rCard.bCOLUMNS = rCard.bCOLUMNS && look.bCOLUMNS;
        rCard.bRETURNS = rCard.bRETURNS || nBytes > sLine.size() + 1;
        rCard.nBYTES += nBytes;
        ++rCard.nLINES;
        if (look.bPLAIN && sLine.size() <= MARK_COLUMN) {
            sMark.clear();
        } else {
            sMark = LastMark(sLine, look.bPLAIN);
        }
        if (rCard.nBYTES == sText.size()) return false;
        const char cNext = ToUpper(sText[rCard.nBYTES]);
        if (cNext >= 'A' && cNext <= 'Z') return sMark.empty() && cNext != 'E' && cNext != 'I';
        if (!CutLine(sText.substr(rCard.nBYTES), sLine, nBytes) || !IsContinuation(sLine)) return false;
        if (!sMark.empty()) {
            const std::string_view sFirst = BareMark(FirstField(sLine));
            if (!sFirst.empty() && sFirst != sMark) return false;
        }
        look = LookAtLine(sLine);
    }
}
