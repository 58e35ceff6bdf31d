#pragma once
// Which lines make a card.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A line without what ends it: a line feed, carriage returns.
std::string_view WithoutEnd(std::string_view sLine);

/// Field 1 of a line, without the blanks around it.
std::string_view FirstField(std::string_view sLine);

/// Field 10 of a line, bare. bPlain is that of T_LINELOOK_D.
std::string LastMark(std::string_view sLine, bool bPlain);

/// A field 1 without the "*" of large field.
std::string_view KeywordOf(std::string_view sFirst);

/// Whether field 1 of a line that isn't plain begins a card.
bool BeginsCard(std::string_view sFirst);

/// A card at the begin of a text.
struct T_WHOLECARD_D {
    std::size_t nBYTES = 0;
    std::int32_t nLINES = 0;
    bool bPLAIN = true;    // as of T_SOURCECARD_D
    bool bCOLUMNS = true;  // likewise
    bool bRETURNS = false; // whether a line ends in more than a line feed
};

/// Whether a text of the bulk section begins with a card that is whole for sure, by its lines and the begin of the next
/// one alone, as long as no card before waits for other lines: no line of it means anything to those who join decks, no
/// blank line or comment is in it or behind it, and its marks, if it has any, lead from line to line. 16 bytes behind
/// the text must be readable.
bool CutWholeCard(std::string_view sText, T_WHOLECARD_D& rCard);
