// Any bytes as text of an XML file.

#include "picture/XmlText.h"

#include "platform/PlainText.h"

#include <vector>

namespace {

/// Length of the character that sText begins with, 0 if it isn't one that XML allows or is a control character.
std::size_t CharacterLength(std::string_view sText) {
    char32_t nCode = 0;
    const std::size_t nLength = ReadCharacter(sText, nCode);
    const bool bNoCharacter = (nCode & 0xFFFE) == 0xFFFE;
    return IsControl(nCode) || bNoCharacter ? 0 : nLength;
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
