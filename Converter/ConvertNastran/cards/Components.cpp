// Component lists of constraint cards.

#include "cards/Components.h"

#include <cstddef>

std::array<bool, 6> ParseComponents(std::string_view sComponents) {
    std::array<bool, 6> bDOF = {};
    if (sComponents == "0") bDOF.fill(true);
    for (const char c : sComponents) {
        if (c >= '1' && c <= '6') bDOF[static_cast<std::size_t>(c - '1')] = true;
    }
    return bDOF;
}
