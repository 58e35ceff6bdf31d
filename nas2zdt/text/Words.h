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

constexpr bool IsWhite(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// The text without the blanks, tabs and ends of line around it.
constexpr std::string_view TrimText(std::string_view sText) {
    while (!sText.empty() && IsWhite(sText.front())) sText.remove_prefix(1);
    while (!sText.empty() && IsWhite(sText.back())) sText.remove_suffix(1);
    return sText;
}
