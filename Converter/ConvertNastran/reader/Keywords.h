#pragma once
// The card vocabulary.

#include "reader/Card.h"

#include <array>
#include <cstdint>
#include <string_view>

class CConvertNastran;

/// What becomes of a card.
enum E_CARD_ACTION : std::int32_t {
    CARD_SKIPPED,  // known, and passed over in silence
    CARD_PARSED,   // its handler stores it
    CARD_REPORTED, // a line of the log says that it isn't converted
    CARD_INCLUDED, // names a deck to read
    CARD_END,      // ends the deck; the reader stops earlier, at the line
};

/// A row of the vocabulary. Its place is the keyword's id.
struct T_KEYWORD_D {
    std::string_view sNAME;
    E_CARD_ACTION eACTION;
    int (CConvertNastran::*pfnPARSE)(const T_DATA_D&) = nullptr;
    // Whether the handler does nothing but store a grid or an element, or add to a load or constraint set what
    // CTakenRecords has, whatever cards there are beside.
    bool bALONE = false;

    constexpr T_KEYWORD_D(const char* sName, E_CARD_ACTION eAction = CARD_SKIPPED) : sNAME(sName), eACTION(eAction) {}
    constexpr T_KEYWORD_D(const char* sName, int (CConvertNastran::*pfnParse)(const T_DATA_D&), bool bAlone = false)
        : sNAME(sName), eACTION(CARD_PARSED), pfnPARSE(pfnParse), bALONE(bAlone) {}

    static constexpr bool ALONE = true;

    static constexpr std::size_t COUNT = 242;
    static const std::array<T_KEYWORD_D, COUNT> TABLE;
};
