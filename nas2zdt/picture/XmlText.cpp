// Any bytes as text of an XML file.

#include "picture/XmlText.h"

#include <cstdint>
#include <vector>

namespace {

/// Length of the character that sText begins with, 0 if it isn't one that XML allows.
std::size_t CharacterLength(std::string_view sText) {
    const auto Byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(sText[i])); };
    const std::uint32_t nFirst = Byte(0);
    if (nFirst < 0x80) return nFirst >= 0x20 && nFirst != 0x7F ? 1 : 0;
    const std::size_t nLength = nFirst >= 0xF0 ? 4 : nFirst >= 0xE0 ? 3 : 2;
    if (nFirst < 0xC2 || nFirst > 0xF4 || sText.size() < nLength) return 0;
    std::uint32_t nCode = nFirst & (0xFFu >> (nLength + 1));
    for (std::size_t i = 1; i < nLength; ++i) {
        if ((Byte(i) & 0xC0u) != 0x80u) return 0;
        nCode = nCode << 6 | (Byte(i) & 0x3Fu);
    }
    const bool bOverlong = (nLength == 3 && nCode < 0x800) || (nLength == 4 && nCode < 0x10000);
    const bool bControl = nCode < 0xA0;
    const bool bNoCharacter = (nCode >= 0xD800 && nCode < 0xE000) || (nCode & 0xFFFE) == 0xFFFE || nCode > 0x10FFFF;
    return bOverlong || bControl || bNoCharacter ? 0 : nLength;
}

std::string_view Escaped(std::string_view sCharacter) {
    if (sCharacter == "&") return "&amp;";
    if (sCharacter == "<") return "&lt;";
    if (sCharacter == ">") return "&gt;";
    if (sCharacter == "\"") return "&quot;";
    return sCharacter;
}

} // namespace

std::string XmlText(std::string_view sText, std::size_t nMost) {
    std::vector<std::string_view> aCharacters;
    while (!sText.empty()) {
        const std::size_t nLength = CharacterLength(sText);
        aCharacters.push_back(nLength == 0 ? std::string_view("?") : Escaped(sText.substr(0, nLength)));
        sText.remove_prefix(nLength == 0 ? 1 : nLength);
    }
    std::string sXml;
    std::size_t i = 0;
    if (aCharacters.size() > nMost) {
        sXml = "\u2026";
        i = aCharacters.size() - nMost + 1;
    }
    for (; i < aCharacters.size(); ++i) sXml += aCharacters[i];
    return sXml;
}
