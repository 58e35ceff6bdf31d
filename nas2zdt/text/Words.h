#pragma once
// Words of a line in any case.

#include <algorithm>
#include <string_view>

constexpr char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Whether sLine begins with sUpper, which is in upper case.
constexpr bool StartsWithoutCase(std::string_view sLine, std::string_view sUpper) {
    return sLine.size() >= sUpper.size() && std::equal(sUpper.begin(), sUpper.end(), sLine.begin(),
                                                       [](char cUpper, char c) { return cUpper == ToUpper(c); });
}

/// The text without the blanks, tabs and ends of line around it.
constexpr std::string_view TrimText(std::string_view sText) {
    constexpr std::string_view SPACE = " \t\r\n";
    const std::size_t iFirst = sText.find_first_not_of(SPACE);
    if (iFirst == std::string_view::npos) return {};
    return sText.substr(iFirst, sText.find_last_not_of(SPACE) - iFirst + 1);
}
