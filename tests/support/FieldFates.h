#pragma once
// What becomes of each field of each card, found by leaving it blank.

#include <string>
#include <vector>

/// The fate of a field. None of the three lists filled means that the field is lost without a word.
struct T_FATE_D {
    std::string sKEYWORD;
    std::string sFIELD;                 // its name
    std::vector<std::string> aSECTIONS; // sections of the target file that differ without the field
    std::vector<std::string> aTOLD;     // what the account tells with the field and not without it
    std::vector<std::string> aRECORD;   // what it tells of the field or the whole record in any case
};

/// The fates of all fields of the cards of CardDecks.h.
std::vector<T_FATE_D> FindFieldFates();

/// The page that tells them, in Markdown.
std::string MakeCardsPage(const std::vector<T_FATE_D>& aFates);
