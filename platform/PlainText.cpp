// Texts for terminals and message boxes.

#include "platform/PlainText.h"

#include <algorithm>
#include <iterator>

namespace {

// of a message box
constexpr int MOST_CHARACTERS = 1200;
constexpr int MOST_LINES = 20;
constexpr int LONGEST_WORD = 100;

/// A form of characters: the lead byte's fixed bits, and the first character that needs this length.
struct T_FORM_D {
    char32_t nMASK, nLEAD, nLEAST;
};
constexpr T_FORM_D FORMS[] = {{0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};

char32_t Byte(std::string_view sText, std::size_t i) {
    return static_cast<unsigned char>(sText[i]);
}

/// Takes a character, or a byte that is none, off the text.
std::string_view TakeCharacter(std::string_view& rText, char32_t& rCode) {
    const std::string_view sCharacter = rText.substr(0, std::max<std::size_t>(ReadCharacter(rText, rCode), 1));
    rText.remove_prefix(sCharacter.size());
    return sCharacter;
}

} // namespace

std::size_t ReadCharacter(std::string_view sText, char32_t& rCode) {
    rCode = Byte(sText, 0);
    for (std::size_t nTail = 0; nTail < std::size(FORMS); ++nTail) {
        if ((rCode & FORMS[nTail].nMASK) != FORMS[nTail].nLEAD) continue;
        if (sText.size() <= nTail) return 0;
        char32_t nCode = rCode & ~FORMS[nTail].nMASK;
        for (std::size_t i = 1; i <= nTail; ++i) {
            if ((Byte(sText, i) & 0xC0) != 0x80) return 0;
            nCode = nCode << 6 | (Byte(sText, i) & 0x3F);
        }
        const bool bSurrogate = nCode >= 0xD800 && nCode < 0xE000;
        if (nCode < FORMS[nTail].nLEAST || nCode > 0x10FFFF || bSurrogate) return 0;
        rCode = nCode;
        return nTail + 1;
    }
    return 0;
}

std::string PlainText(std::string_view sText) {
    std::string sPlain;
    sPlain.reserve(sText.size());
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::string_view sCharacter = TakeCharacter(sText, nCode);
        sPlain += IsControl(nCode) && nCode != '\n' ? "?" : sCharacter;
    }
    return sPlain;
}

std::string BoxText(std::string_view sText) {
    std::string sBox;
    int nCharacters = 0;
    int nLines = 1;
    int nWord = 0;
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::string_view sCharacter = TakeCharacter(sText, nCode);
        const bool bFeed = nCode == '\n';
        const bool bBreak = nWord == LONGEST_WORD && !bFeed && nCode != ' ';
        nLines += bFeed || bBreak ? 1 : 0;
        if (++nCharacters > MOST_CHARACTERS || nLines > MOST_LINES) return sBox + "...";
        if (bBreak) sBox += '\n';
        nWord = bFeed || nCode == ' ' ? 0 : (bBreak ? 1 : nWord + 1);
        sBox += sCharacter;
    }
    return sBox;
}
