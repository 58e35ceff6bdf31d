// Texts in JSON.

#include "nas2zdt/JsonText.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

/// Length of the UTF-8 character that sText begins with; 0 if it doesn't begin with one.
std::size_t CharacterLength(std::string_view sText) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(sText[i])); };
    struct T_FORM_D {
        std::uint32_t nMASK, nLEAD, nLEAST; // the lead byte's fixed bits, and the first character of this length
    };
    static constexpr T_FORM_D FORMS[] = {
        {0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
    for (std::size_t nTail = 0; nTail < std::size(FORMS); ++nTail) {
        if ((byte(0) & FORMS[nTail].nMASK) != FORMS[nTail].nLEAD) continue;
        if (sText.size() <= nTail) return 0;
        std::uint32_t nCode = byte(0) & ~FORMS[nTail].nMASK & 0xFF;
        for (std::size_t i = 1; i <= nTail; ++i) {
            if ((byte(i) & 0xC0) != 0x80) return 0;
            nCode = nCode << 6 | (byte(i) & 0x3F);
        }
        const bool bSurrogate = nCode >= 0xD800 && nCode < 0xE000;
        return nCode < FORMS[nTail].nLEAST || nCode > 0x10FFFF || bSurrogate ? 0 : nTail + 1;
    }
    return 0;
}

} // namespace

std::string JsonText(std::string_view sText) {
    std::string sJson = "\"";
    while (!sText.empty()) {
        const std::size_t nLength = CharacterLength(sText);
        const auto c = static_cast<unsigned char>(sText[0]);
        if (nLength == 0 || c < ' ' || c == 0x7F) {
            std::array<char, 8> aCode{};
            std::snprintf(aCode.data(), aCode.size(), "\\u%04x", static_cast<unsigned>(c));
            sJson += aCode.data();
            sText.remove_prefix(1);
            continue;
        }
        if (c == '"' || c == '\\') sJson += '\\';
        sJson += sText.substr(0, nLength);
        sText.remove_prefix(nLength);
    }
    return sJson + "\"";
}
