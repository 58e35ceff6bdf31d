// Texts for message boxes.

#include "platform/BoxText.h"

namespace {
constexpr int MOST_CHARACTERS = 1200;
constexpr int MOST_LINES = 20;
constexpr int LONGEST_WORD = 100;

bool IsInsideCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
} // namespace

std::string BoxText(std::string_view sText) {
    std::string sBox;
    int nCharacters = 0;
    int nLines = 1;
    int nWord = 0;
    while (!sText.empty()) {
        std::size_t nBytes = 1;
        while (nBytes < sText.size() && nBytes < 4 && IsInsideCharacter(sText[nBytes])) ++nBytes;
        const bool bFeed = sText[0] == '\n';
        const bool bBreak = nWord == LONGEST_WORD && !bFeed && sText[0] != ' ';
        nLines += bFeed || bBreak ? 1 : 0;
        if (++nCharacters > MOST_CHARACTERS || nLines > MOST_LINES) return sBox + "...";
        if (bBreak) sBox += '\n';
        nWord = bFeed || sText[0] == ' ' ? 0 : (bBreak ? 1 : nWord + 1);
        sBox += sText.substr(0, nBytes);
        sText.remove_prefix(nBytes);
    }
    return sBox;
}
