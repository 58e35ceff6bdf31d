#pragma once
// How many cards of which kinds a deck has.

#include "deckgen/Model.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What a deck is to be like.
struct T_DECK_OPTIONS_D {
    std::uint64_t nCards = 10'000;
    std::string sMix;                  // "grids=43,shells=39": shares of the groups; empty for the usual mix
    std::string sOnly;                 // the one kind that makes up the deck; empty for a mix
    bool bReference = false;           // the reference deck, whatever the three above say
    std::uint64_t nScalePercent = 100; // of the reference deck
    E_LAYOUT iLayout = LAYOUT_SMALL;
    E_ID_ORDER iOrder = ORDER_ASCENDING;
    std::uint64_t nSeed = 1;
};

/// Thrown for options that make no deck.
struct T_OPTION_ERROR_D {
    std::string sTEXT;
};

/// Cards of one kind that stand together.
struct T_BLOCK_D {
    const T_KIND_D* pKind = nullptr;
    std::uint64_t nCards = 0;
};

/// The blocks of a deck in the order of the file, and the cards behind them that repeat an id.
struct T_PLAN_D {
    std::vector<T_BLOCK_D> aBlocks;
    std::uint64_t nDuplicates = 0;
};

/// Names of all kinds of cards.
std::vector<std::string_view> KindNames();

/// Throws T_OPTION_ERROR_D.
T_PLAN_D MakePlan(const T_DECK_OPTIONS_D& rOptions);

/// Writes the deck. The same options give the same bytes on every platform. Throws std::system_error if the file fails.
void WriteDeck(const T_DECK_OPTIONS_D& rOptions, std::FILE* pFile);
