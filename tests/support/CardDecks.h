#pragma once
// A small deck for each keyword that is converted, with every field of its card filled.

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A card in a model that gives each of its fields something to do.
struct T_CARDDECK_D {
    std::string_view sKEYWORD;
    std::string_view sFIELDS; // between blanks, "-" for one that stays blank
    std::string_view sCARDS;  // beside the common ones
};

/// One row a keyword, in the order of the keyword table.
std::span<const T_CARDDECK_D> GetCardDecks();

/// The fields of a row, those that stay blank as "".
std::vector<std::string> SplitFields(std::string_view sFields);

/// The whole deck with these fields on the card.
std::string MakeCardDeck(const T_CARDDECK_D& rRow, const std::vector<std::string>& aFields);
