// Texts as a terminal can take them.

#include "platform/PlainText.h"

#include "platform/Utf8.h"

#include <algorithm>

std::string PlainText(std::string_view sText) {
    std::string sPlain;
    sPlain.reserve(sText.size());
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::size_t nLength = std::max<std::size_t>(ReadCharacter(sText, nCode), 1);
        sPlain += IsControl(nCode) && nCode != '\n' ? "?" : sText.substr(0, nLength);
        sText.remove_prefix(nLength);
    }
    return sPlain;
}
