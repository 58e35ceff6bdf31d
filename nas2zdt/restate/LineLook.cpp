// Looks at all bytes of a line at once.

#include "nas2zdt/restate/LineLook.h"

#include "nas2zdt/text/Columns.h"
#include "nas2zdt/text/Words.h"
#include "reader/TextBytes.h"

#include <algorithm>

namespace {

constexpr std::size_t FIELD_WIDTH = 8;
constexpr std::size_t MARK_COLUMN = 72; // from 0
constexpr std::size_t COLUMNS = 80;
constexpr std::size_t SHORTEST_LARGE = 57; // with all four of its fields

/// Bytes that make the converter cut a line otherwise than NASTRAN does, and those that make it cut or read fields
/// otherwise.
T_BYTES FindOdd(T_BYTES bytes) {
    return Mask(bytes < ' ') | Mask((bytes | 0x08) == ',') | Mask(bytes == ':') | Mask(bytes == '='); // "$" is like ","
}
T_BYTES FindOddInField(T_BYTES bytes) {
    return Mask(bytes == '*') | Mask((bytes | 0x20) == 'd');
}

/// Whether a line of at most 80 characters has an odd byte in any field, or a number one in a data field.
bool HasOddByte(std::string_view sText) {
    constexpr std::size_t BLOCK = sizeof(T_BYTES);
    const T_BYTES firstField = Mask(PLACES_OF_BYTES < FIELD_WIDTH);
    const T_BYTES first = LoadBytes(sText.data());
    T_BYTES odd = FindOdd(first) | (FindOddInField(first) & ~firstField);
    if (sText.size() < BLOCK + FIELD_WIDTH || sText.size() > MARK_COLUMN) {
        const auto inside = [&](std::size_t i) {
            const std::size_t nLeft = sText.size() - i;
            return nLeft < BLOCK ? Mask(PLACES_OF_BYTES < static_cast<unsigned char>(nLeft)) : ~T_BYTES{};
        };
        odd &= inside(0);
        for (std::size_t i = BLOCK; i < sText.size(); i += BLOCK) {
            const T_BYTES bytes = LoadBytes(sText.data() + i);
            T_BYTES inField = FindOddInField(bytes);
            if (i == MARK_COLUMN - FIELD_WIDTH) inField &= firstField;
            odd |= (FindOdd(bytes) | inField) & inside(i);
        }
        return AnySet(odd);
    }
    // Most lines end among the data fields: their last block is loaded from where it begins.
    for (std::size_t i = BLOCK; i < sText.size(); i += BLOCK) {
        const T_BYTES bytes = LoadBytes(sText.data() + std::min(i, sText.size() - BLOCK));
        odd |= FindOdd(bytes) | FindOddInField(bytes);
    }
    return AnySet(odd);
}

/// Whether a plain line whose field 1 is a word begins a card for sure: it is no continuation and no marker.
bool IsCard(std::string_view sText) {
    switch (ToUpper(sText[0])) {
    case '+':
    case '*':
    case 'B':
    case 'E':
        return false;
    case 'C':
        return sText.size() > 1 && ToUpper(sText[1]) != 'E';
    default:
        return true;
    }
}

} // namespace

T_LINELOOK_D LookAtLine(std::string_view sText) {
    if (sText.size() > COLUMNS || HasOddByte(sText)) return {};
    const TEXTWORD nFirst = LoadColumns(sText, 0);
    const bool bLarge = FindOthers(nFirst, '*') != RepeatInWord('\x80');
    if ((bLarge && sText.size() < SHORTEST_LARGE) || HoldsEnd(sText.substr(0, FIELD_WIDTH))) return {};
    if (sText.size() > MARK_COLUMN && HoldsEnd(sText.substr(MARK_COLUMN))) return {};
    return {true, !bLarge, IsWordAtLeft(nFirst) && IsCard(sText)};
}

bool HoldsEnd(std::string_view sColumns) {
    return StartsWithoutCase(sColumns, "ENDDATA") ||
           (!sColumns.empty() && StartsWithoutCase(sColumns.substr(1), "ENDDATA"));
}
