#pragma once
// Restates decks given as text.

#include "nas2zdt/restate/Restate.h"
#include "support/Deck.h"

#include <string>
#include <string_view>

/// A restated deck.
struct T_RESTATEDTEXT_D {
    std::string sTEXT;
    T_RESTATED_D result;
};

/// Restates sDeck; one without "BEGIN BULK" is bulk data alone.
T_RESTATEDTEXT_D RestateText(std::string_view sDeck, const T_CHOICE_D& rChoice = {});

/// The cards of a deck, each on a line of its own: "GRID,1,,0.,0.,1.". Lines of control come first, as they are.
std::string ShowCards(std::string_view sDeck);

/// The table of all rules of restating, for their page.
std::string MakeRulesTable();

/// "grid-basic GRID 2; ...": what was told, by rule and keyword, with details in brackets.
std::string ShowTold(const std::vector<T_TOLD_D>& aTold);
