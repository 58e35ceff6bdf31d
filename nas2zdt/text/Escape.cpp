// Escapes any bytes for JSON and XML.

#include "nas2zdt/text/Escape.h"

#include "platform/PlainText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

/// Calls take with each character of sText, its code, and whether it can be shown. A byte that isn't UTF-8 counts as a
/// character with its value as the code.
template <class TAKE>
void ForEachCharacter(std::string_view sText, TAKE take) {
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::size_t nLength = ReadCharacter(sText, nCode);
        const std::string_view sCharacter = sText.substr(0, std::max<std::size_t>(nLength, 1));
        take(sCharacter, nCode, nLength > 0 && !IsControl(nCode));
        sText.remove_prefix(sCharacter.size());
    }
}

std::string_view EscapeMarkup(std::string_view sCharacter) {
    if (sCharacter == "&") return "&amp;";
    if (sCharacter == "<") return "&lt;";
    if (sCharacter == ">") return "&gt;";
    if (sCharacter == "\"") return "&quot;";
    return sCharacter;
}

/// The characters of sText as XML has them.
std::vector<std::string_view> XmlCharacters(std::string_view sText) {
    std::vector<std::string_view> aCharacters;
    ForEachCharacter(sText, [&](std::string_view sCharacter, char32_t nCode, bool bShown) {
        if (bShown && (nCode & 0xFFFE) != 0xFFFE) {
            aCharacters.push_back(EscapeMarkup(sCharacter));
        } else {
            aCharacters.insert(aCharacters.end(), sCharacter.size(), "?");
        }
    });
    return aCharacters;
}

} // namespace

std::string JsonText(std::string_view sText) {
    std::string sJson = "\"";
    ForEachCharacter(sText, [&](std::string_view sCharacter, char32_t nCode, bool bShown) {
        if (bShown) {
            if (nCode == '"' || nCode == '\\') sJson += '\\';
            sJson += sCharacter;
        } else {
            std::array<char, 8> aCode{};
            std::snprintf(aCode.data(), aCode.size(), "\\u%04x", static_cast<unsigned>(nCode));
            sJson += aCode.data();
        }
    });
    return sJson + "\"";
}

std::string EscapeXml(std::string_view sText) {
    std::string sXml;
    for (const std::string_view sCharacter : XmlCharacters(sText)) sXml += sCharacter;
    return sXml;
}

std::string XmlText(std::string_view sText) {
    constexpr std::size_t MOST = 120;
    std::vector<std::string_view> aCharacters = XmlCharacters(sText);
    std::string sXml;
    if (aCharacters.size() > MOST) {
        sXml = "\u2026";
        aCharacters.erase(aCharacters.begin(), aCharacters.end() - (MOST - 1));
    }
    for (const std::string_view sCharacter : aCharacters) sXml += sCharacter;
    return sXml;
}
