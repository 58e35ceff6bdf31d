#pragma once
// Eight columns of a line at once.

#include "platform/TextWord.h"
#include "reader/ShortNumber.h"

#include <bit>
#include <cstddef>
#include <string_view>

/// The text in eight columns of a line without the blanks around it.
struct T_COLUMNS_D {
    const char* pTEXT = nullptr;
    std::size_t nTEXT = 0;
    TEXTWORD nWORD = 0; // the text; the bytes behind it are 0

    std::string_view Text() const { return {pTEXT, nTEXT}; }
    T_SHORT_D Short() const { return {nWORD, nTEXT}; }
    bool HasPoint() const { return FindOthers(nWORD, '.') != RepeatInWord('\x80'); }
};

constexpr TEXTWORD BLANK_COLUMNS = RepeatInWord(' ');

/// The columns from iColumn on, counted from 0; what the line doesn't reach is blank. WORD_LENGTH bytes behind it must
/// be readable; they don't matter.
inline TEXTWORD LoadColumns(std::string_view sLine, std::size_t iColumn) {
    if (iColumn >= sLine.size()) return BLANK_COLUMNS;
    const TEXTWORD nWord = LoadWord(sLine.data() + iColumn);
    const std::size_t nLeft = sLine.size() - iColumn;
    if (nLeft >= WORD_LENGTH) return nWord;
    const TEXTWORD nInside = (TEXTWORD(1) << (8 * nLeft)) - 1;
    return (nWord & nInside) | (BLANK_COLUMNS & ~nInside);
}

/// The number of digits at the left of the columns, as most are written. False if there is anything else.
inline bool ReadLeftInt(TEXTWORD nColumns, std::int32_t& rValue) {
    const TEXTWORD nDigits = nColumns ^ EIGHT_ZEROS;
    const TEXTWORD nOther = FindOtherThanDigits(nDigits);
    const int nLength = nOther == 0 ? 64 : std::countr_zero(nOther) - 7; // in bits
    if (nLength == 0 || (nOther != 0 && (nColumns ^ BLANK_COLUMNS) >> nLength != 0)) return false;
    rValue = static_cast<std::int32_t>(JoinDigits(nDigits << (64 - nLength)));
    return true;
}

/// Whether the columns hold one word, which begins in the first.
inline bool IsWordAtLeft(TEXTWORD nColumns) {
    const TEXTWORD nFilled = (FindOthers(nColumns, ' ') >> 7) * 0xFF;
    return nFilled != 0 && (nFilled & (nFilled + 1)) == 0;
}

/// The text in LoadColumns of the same place.
inline T_COLUMNS_D CutColumns(std::string_view sLine, std::size_t iColumn) {
    TEXTWORD nWord = LoadColumns(sLine, iColumn);
    const TEXTWORD nFilled = FindOthers(nWord, ' ');
    if (nFilled == 0) return {};
    const char* pText = sLine.data() + iColumn;
    const int nBefore = std::countr_zero(nFilled) / 8, nBehind = std::countl_zero(nFilled) / 8;
    nWord = (nWord << (8 * nBehind)) >> (8 * nBehind) >> (8 * nBefore);
    return {pText + nBefore, static_cast<std::size_t>(8 - nBehind - nBefore), nWord};
}
