// Filling the placeholders of a message.

#include "messages/FormatText.h"

#include <algorithm>

namespace {

constexpr std::size_t WIDEST = 1000; // a text from outside must not be able to ask for gigabytes of blanks

/// One placeholder: "%", an optional "-", a width, a letter.
struct T_PLACE_D {
    std::size_t nLength = 0; // 0 if the text isn't a placeholder
    bool bLeft = false;
    std::size_t nWidth = 0;
};

T_PLACE_D ReadPlaceholder(std::string_view sText) {
    T_PLACE_D place;
    std::size_t i = 1;
    if (i < sText.size() && sText[i] == '-') {
        place.bLeft = true;
        ++i;
    }
    for (; i < sText.size() && sText[i] >= '0' && sText[i] <= '9'; ++i) {
        place.nWidth = std::min(place.nWidth * 10 + static_cast<std::size_t>(sText[i] - '0'), WIDEST);
    }
    if (i < sText.size() && std::string_view("dius").find(sText[i]) != std::string_view::npos) place.nLength = i + 1;
    return place;
}

} // namespace

std::string FormatText(std::string_view sFormat, TEXT_ARGS aArgs) {
    std::string sText;
    const CTextArg* pArg = aArgs.begin();
    while (!sFormat.empty()) {
        const std::size_t iPercent = std::min(sFormat.find('%'), sFormat.size());
        sText.append(sFormat.substr(0, iPercent));
        sFormat.remove_prefix(iPercent);
        if (sFormat.empty()) break;
        if (sFormat.starts_with("%%")) {
            sText += '%';
            sFormat.remove_prefix(2);
            continue;
        }
        const T_PLACE_D place = ReadPlaceholder(sFormat);
        if (place.nLength == 0 || pArg == aArgs.end()) {
            const std::size_t nKept = std::max<std::size_t>(place.nLength, 1);
            sText.append(sFormat.substr(0, nKept));
            sFormat.remove_prefix(nKept);
            continue;
        }
        std::string sValue = (pArg++)->GetText();
        const std::size_t nPad = place.nWidth > sValue.size() ? place.nWidth - sValue.size() : 0;
        sValue.insert(place.bLeft ? sValue.size() : 0, nPad, ' ');
        sText += sValue;
        sFormat.remove_prefix(place.nLength);
    }
    return sText;
}
