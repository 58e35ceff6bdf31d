#pragma once
// The degrees of freedom of constraints and rigid links.

#include <array>
#include <string>

/// Six digits, 1 for each component that is set.
inline std::string DofText(const std::array<bool, 6>& bDOF) {
    std::string sText;
    for (const bool bSet : bDOF) sText += bSet ? '1' : '0';
    return sText;
}
