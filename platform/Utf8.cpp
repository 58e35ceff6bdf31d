// Texts that should be UTF-8.

#include "platform/Utf8.h"

#include <iterator>

namespace {

/// A form of characters: the lead byte's fixed bits, and the first character that needs this length.
struct T_FORM_D {
    char32_t nMASK, nLEAD, nLEAST;
};
constexpr T_FORM_D FORMS[] = {{0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};

char32_t Byte(std::string_view sText, std::size_t i) {
    return static_cast<unsigned char>(sText[i]);
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
