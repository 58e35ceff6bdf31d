// A quick test for nearly every card of nearly every deck.

#include "reader/PlainFields.h"

#include "platform/TextWord.h"
#include "reader/TextBytes.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t MARK_COLUMN = 72; // from 0
constexpr TEXTWORD BLANK_WORD = RepeatInWord(' ');

/// Each field of eight columns is one word.
bool IsPlainSmall(const T_LINE_D& rLine) {
    if (rLine.bWORDS || rLine.bMARKED) return rLine.bWORDS;
    T_FIELDS torn{};
    for (std::size_t i = 0; i < std::min<std::size_t>(rLine.nTEXT, MARK_COLUMN); i += sizeof(T_BYTES)) {
        torn |= TornFields(Mask(LoadBytes(rLine.aTEXT + i) != ' '));
    }
    return !AnySet(reinterpret_cast<T_BYTES>(torn));
}

/// As many fields as there are, none with anything in it that has more than one reading, blanks in front of a field
/// alone. Only the last line of a card may end early.
bool IsPlainFree(const T_LINE_D& rLine, bool bLast) {
    if (std::string_view(" +*=").find(rLine.aTEXT[0]) != std::string_view::npos) return false;
    T_BYTES odd{}, commas{};
    commas[0] = rLine.aTEXT[0] == ',';
    for (std::size_t i = 1; i < rLine.nTEXT; i += sizeof(T_BYTES)) { // each with the character before
        const std::size_t nLeft = std::min(rLine.nTEXT - i, sizeof(T_BYTES));
        const T_BYTES inside = Mask(PLACES_OF_BYTES < static_cast<unsigned char>(nLeft));
        const T_BYTES bytes = LoadBytes(rLine.aTEXT + i), before = LoadBytes(rLine.aTEXT + i - 1);
        odd |= Mask(bytes == '$') | Mask(bytes == '*') | Mask(bytes == '+') | Mask(bytes == '=');
        odd |= inside & Mask(bytes == ' ') & Mask(before != ' ') & Mask(before != ',');
        commas -= Mask(bytes == ',');
    }
    if (AnySet(odd)) return false;
    const auto [nFirst, nSecond] = HalvesOf(commas);
    const std::size_t nCommas = (nFirst + nSecond) * 0x0101010101010101U >> 56; // their sum, at most 13 a byte
    return bLast ? nCommas <= 8 : nCommas == 8;
}

/// Bytes of a field's word that aren't blank, all their bits set.
TEXTWORD FilledBytes(const char* pField) {
    constexpr TEXTWORD LOW_BITS = RepeatInWord(0x7F);
    const TEXTWORD nOther = LoadWord(pField) ^ BLANK_WORD;
    const TEXTWORD nFilled = (((nOther & LOW_BITS) + LOW_BITS) | nOther) & ~LOW_BITS;
    return (nFilled >> 7) * 0xFF;
}

bool IsOneRun(TEXTWORD nFilled) {
    return ((nFilled + (nFilled & -nFilled)) & nFilled) == 0;
}

/// A field of sixteen columns is one word: in one half, or up to the end of the first and on from the second's start.
bool IsOneWord(const char* pField) {
    const TEXTWORD nFirst = FilledBytes(pField), nSecond = FilledBytes(pField + WORD_LENGTH);
    if (nFirst == 0 || nSecond == 0) return IsOneRun(nFirst | nSecond);
    return IsOneRun(nFirst) && IsOneRun(nSecond) && nFirst >> 56 != 0 && (nSecond & 1) != 0;
}

/// Four fields, each one word; only the last line of a card may end early.
bool IsPlainLarge(const T_LINE_D& rLine, bool bLast) {
    constexpr std::array<std::size_t, 4> FIELDS = {8, 24, 40, 56};
    T_BYTES odd{};
    for (std::size_t i = 0; i < rLine.nTEXT; i += sizeof(T_BYTES)) {
        const T_BYTES bytes = LoadBytes(rLine.aTEXT + i);
        odd |= Mask(bytes == '$') | Mask(bytes == ',') | Mask(bytes == '=');
    }
    if (AnySet(odd)) return false;
    if (!bLast && (rLine.nTEXT <= FIELDS.back() || rLine.bRETURN)) return false;
    const std::string_view sFirst = rLine.Text().substr(0, WORD_LENGTH);
    const std::size_t iStar = sFirst.find('*');
    if (iStar == std::string_view::npos || sFirst.substr(0, iStar).find(' ') != std::string_view::npos) return false;
    const std::string_view sBehind = sFirst.substr(iStar + 1);
    if (iStar > 0 && sBehind.find_first_not_of(' ') != std::string_view::npos) return false;
    return std::all_of(FIELDS.begin(), FIELDS.end(), [&](std::size_t i) { return IsOneWord(rLine.aTEXT + i); });
}

/// Whether rNext continues rLine by their marks. In columns there are none or the same; in free field none.
bool AreMarksPlain(const T_LINE_D& rLine, const T_LINE_D& rNext) {
    if ((rLine.iFORMAT == FORMAT_FREE) != (rNext.iFORMAT == FORMAT_FREE)) return false;
    if (rLine.iFORMAT == FORMAT_FREE) return rNext.aTEXT[0] == ',';
    const TEXTWORD nMark = LoadWord(rLine.aTEXT + MARK_COLUMN), nNext = LoadWord(rNext.aTEXT);
    constexpr TEXTWORD PLUS_WORD = BLANK_WORD ^ ' ' ^ '+', STAR_WORD = BLANK_WORD ^ ' ' ^ '*';
    if (nMark == BLANK_WORD) return nNext == BLANK_WORD || nNext == PLUS_WORD || nNext == STAR_WORD;
    const char cFirst = rNext.aTEXT[0];
    return nMark == nNext && (cFirst == '+' || cFirst == '*');
}

} // namespace

bool HavePlainFields(const CLineGroup& rLines) {
    for (std::size_t i = 0; i < rLines.GetCount(); ++i) {
        const T_LINE_D& rLine = rLines[i];
        const bool bLast = i + 1 == rLines.GetCount();
        if (rLine.bTABBED || rLine.bCUT) return false;
        switch (rLine.iFORMAT) {
        case FORMAT_SMALL:
            if (!IsPlainSmall(rLine)) return false;
            break;
        case FORMAT_LARGE:
            if (!IsPlainLarge(rLine, bLast)) return false;
            break;
        default:
            if (!IsPlainFree(rLine, bLast)) return false;
        }
        if (!bLast && !AreMarksPlain(rLine, rLines[i + 1])) return false;
    }
    const T_LINE_D& rLast = rLines.Last(); // a mark there asks for a line that doesn't follow
    return rLast.iFORMAT == FORMAT_FREE || LoadWord(rLast.aTEXT + MARK_COLUMN) == BLANK_WORD;
}
