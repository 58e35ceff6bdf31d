// Texts in JSON.

#include "nas2zdt/JsonText.h"

#include "platform/PlainText.h"

#include <array>
#include <cstdio>

std::string JsonText(std::string_view sText) {
    std::string sJson = "\"";
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::size_t nLength = ReadCharacter(sText, nCode);
        if (nLength == 0 || IsControl(nCode)) {
            std::array<char, 8> aCode{};
            std::snprintf(aCode.data(), aCode.size(), "\\u%04x", static_cast<unsigned>(nCode));
            sJson += aCode.data();
            sText.remove_prefix(nLength == 0 ? 1 : nLength);
            continue;
        }
        if (nCode == '"' || nCode == '\\') sJson += '\\';
        sJson += sText.substr(0, nLength);
        sText.remove_prefix(nLength);
    }
    return sJson + "\"";
}
