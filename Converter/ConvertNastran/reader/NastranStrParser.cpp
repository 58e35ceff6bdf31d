// Operations on the text of a line.

#include "reader/NastranStrParser.h"

#include "reader/TextBytes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

std::string_view Trim(std::string_view sText) {
    while (!sText.empty() && IsSpace(sText.front())) sText.remove_prefix(1);
    while (!sText.empty() && IsSpace(sText.back())) sText.remove_suffix(1);
    return sText;
}

/// The bytes at pRaw, of which nLeft belong to the text; blanks for the others.
T_BYTES LoadText(const char* pRaw, std::size_t nLeft) {
    const T_BYTES bytes = LoadBytes(pRaw);
    if (nLeft >= sizeof(T_BYTES)) return bytes;
    const T_BYTES inside = Mask(PLACES_OF_BYTES < static_cast<unsigned char>(nLeft));
    return (bytes & inside) | (' ' & ~inside);
}

/// Takes a line that is in upper case and whose bWORDS holds; nearly all are. Else false, and rLine is unknown.
bool TakeWords(std::string_view sRaw, T_LINE_D& rLine) {
    T_BYTES odd{}, endings{};
    T_FIELDS torn{};
    std::size_t i = 0;
    for (; i < sRaw.size(); i += sizeof(T_BYTES)) {
        const T_BYTES bytes = LoadText(sRaw.data() + i, sRaw.size() - i);
        std::memcpy(rLine.aTEXT + i, &bytes, sizeof bytes);
        const T_BYTES blank = Mask(bytes == ' ');
        odd |= ~(blank | Mask(bytes == '\r') | Mask(bytes - 'A' < 26) | Mask(bytes - '-' < 13) |
                 Mask(bytes == '+')); // -./ and digits
        torn |= TornFields(~blank);
        endings |= Mask(bytes == 'D') & Mask(LoadBytes(sRaw.data() + i + 1) == 'D');
    }
    if (AnySet(odd | reinterpret_cast<T_BYTES>(torn))) return false;
    for (; i < T_LINE_D::SMALL_COLUMNS; i += sizeof(T_BYTES)) std::memset(rLine.aTEXT + i, ' ', sizeof(T_BYTES));
    rLine.bWORDS = true;
    rLine.bMARKED = rLine.bTABBED = rLine.bCUT = false;
    rLine.bENDING = AnySet(endings);
    rLine.nTEXT = static_cast<std::uint32_t>(sRaw.size());
    return true;
}

} // namespace

int CNastranStrParser::NormalizeLine(std::string_view sRaw, T_LINE_D& rLine) {
    rLine.nTEXT = 0;
    rLine.bCOMMENT = sRaw.starts_with('$');
    if (rLine.bCOMMENT) return 0;
    if (sRaw.size() <= T_LINE_D::SMALL_COLUMNS && TakeWords(sRaw, rLine)) return 1;
    T_BYTES marks{}, tabs{}, returns{}, colons{}, endings{}, all{};
    T_FIELDS torn{};
    std::size_t i = 0;
    for (; i < sRaw.size(); i += sizeof(T_BYTES)) {
        T_BYTES bytes = LoadText(sRaw.data() + i, sRaw.size() - i);
        bytes -= Mask(bytes - 'a' < 26) & ('a' - 'A');
        marks |= Mask(bytes == ',') | Mask(bytes == '*') | Mask(bytes == '=') | Mask(bytes == '$');
        tabs |= Mask(bytes == '\t');
        returns |= Mask(bytes == '\r');
        colons |= Mask(bytes == ':');
        all |= bytes;
        torn |= TornFields(Mask(bytes != ' '));
        std::memcpy(rLine.aTEXT + i, &bytes, sizeof bytes);
        // A double D is rare enough to leave the rest of the word to a search.
        endings |= Mask(bytes == 'D') &
                   (Mask(LoadBytes(sRaw.data() + i + 1) == 'D') | Mask(LoadBytes(sRaw.data() + i + 1) == 'd'));
    }
    for (; i < T_LINE_D::SMALL_COLUMNS; i += sizeof(T_BYTES)) std::memset(rLine.aTEXT + i, ' ', sizeof(T_BYTES));
    rLine.bMARKED = AnySet(marks);
    rLine.bTABBED = AnySet(tabs);
    rLine.bRETURN = AnySet(returns);
    rLine.bENDING = AnySet(endings);
    rLine.nTEXT = static_cast<std::uint32_t>(sRaw.size());
    rLine.bCUT = AnySet(colons);
    rLine.bWORDS = sRaw.size() <= T_LINE_D::SMALL_COLUMNS && !(rLine.bMARKED || rLine.bTABBED || rLine.bCUT) &&
                   !AnySet((all & 0x80) | reinterpret_cast<T_BYTES>(torn));
    if (rLine.bCUT) {
        rLine.nTEXT = static_cast<std::uint32_t>(rLine.Text().find(':'));
        std::memset(rLine.aTEXT + rLine.nTEXT, ' ', sRaw.size() - rLine.nTEXT);
        rLine.bMARKED = rLine.Text().find_first_of(",*=$") != std::string_view::npos;
    }
    return 1;
}

bool CNastranStrParser::IsBlankLine(std::string_view sText) {
    return sText.find_first_not_of(' ') == std::string_view::npos;
}

std::string_view CNastranStrParser::RemoveBlanks(char* pBegin, char* pEnd) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n'; };
    while (pEnd - pBegin >= 8 && std::memcmp(pBegin, "        ", 8) == 0) pBegin += 8; // most of a wide field
    while (pBegin < pEnd && isBlank(*pBegin)) ++pBegin;
    while (pBegin < pEnd && isBlank(pEnd[-1])) --pEnd;
    pEnd = std::remove_if(pBegin, pEnd, isBlank);
    return {pBegin, static_cast<std::size_t>(pEnd - pBegin)};
}

std::string_view CNastranStrParser::SplitFirstField(std::string_view sText) {
    const std::size_t iComma = sText.find(',');
    return sText.substr(0, iComma == std::string_view::npos ? 8 : iComma);
}

std::string_view CNastranStrParser::SliceColumns(std::size_t iFirst, std::size_t iLast, std::string_view sText) {
    if (iFirst > iLast || iFirst > sText.size()) return {};
    return sText.substr(iFirst - 1, iLast - iFirst + 1);
}

std::string_view CNastranStrParser::CutBeforeEquals(std::string_view sText) {
    const std::size_t iEquals = sText.find('=');
    if (iEquals == std::string_view::npos || iEquals == 0) return sText;
    const std::size_t iBlank = sText.substr(0, iEquals).rfind(' ');
    // the walk back ends at the second place, so a blank in column 1 alone doesn't count
    return iBlank == std::string_view::npos || iBlank == 0 ? sText : sText.substr(0, iBlank + 1);
}

void CNastranStrParser::SplitFreeFields(T_LINE_D& rLine, std::vector<std::string_view>& rFields) {
    char* pText = rLine.aTEXT;
    char* pEnd = pText + CutBeforeEquals(rLine.Text()).size();
    std::replace(pText, pEnd, '\t', ' ');
    char cBetween = ',';
    if (!std::memchr(pText, ',', static_cast<std::size_t>(pEnd - pText))) {
        cBetween = ' ';
        pText = std::find_if(pText, pEnd, [](char c) { return c != ' '; });
        pEnd = std::unique(pText, pEnd, [](char a, char b) { return a == ' ' && b == ' '; });
    }
    if (pText == pEnd) return;
    for (;;) { // a separator at the very end has one more, empty field behind it
        char* pField = pText;
        pText = std::find(pText, pEnd, cBetween);
        rFields.push_back(Trim({pField, static_cast<std::size_t>(pText - pField)}));
        if (pText == pEnd) return;
        ++pText;
    }
}
