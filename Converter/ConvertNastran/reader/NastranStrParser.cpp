// Operations on the text of a line.

#include "reader/NastranStrParser.h"

#include <algorithm>
#include <cstring>

namespace {

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view Trim(std::string_view sText) {
    while (!sText.empty() && IsSpace(sText.front())) sText.remove_prefix(1);
    while (!sText.empty() && IsSpace(sText.back())) sText.remove_suffix(1);
    return sText;
}

} // namespace

int CNastranStrParser::NormalizeLine(std::string_view sRaw, T_LINE_D& rLine) {
    rLine.nTEXT = 0;
    rLine.bCOMMENT = sRaw.starts_with('$');
    if (rLine.bCOMMENT) return 0;
    sRaw = sRaw.substr(0, sRaw.find(':'));
    for (std::size_t i = 0; i < sRaw.size(); ++i) { // plain enough for the compiler to take many characters at a time
        const char c = sRaw[i];
        rLine.aTEXT[i] = static_cast<char>(c - (c >= 'a' && c <= 'z' ? 'a' - 'A' : 0));
    }
    rLine.nTEXT = static_cast<std::uint32_t>(sRaw.size());
    return 1;
}

bool CNastranStrParser::IsBlankLine(std::string_view sText) {
    return sText.find_first_not_of(' ') == std::string_view::npos;
}

std::string_view CNastranStrParser::RemoveBlanks(char* pBegin, char* pEnd) {
    char* pTo = std::remove_if(pBegin, pEnd, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    return {pBegin, static_cast<std::size_t>(pTo - pBegin)};
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
