#pragma once
// Component lists of constraint cards.

#include <array>
#include <string_view>

/// Which of the components 1 to 6 a text names, at places 0 to 5: each digit from 1 to 6 names its own, anything else
/// is passed over. The text "0" names all six.
std::array<bool, 6> ParseComponents(std::string_view sComponents);
