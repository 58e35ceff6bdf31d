#pragma once
// The numbers that most fields of a deck are: up to eight characters, an optional "-", digits, for a real at most one
// point among them. All characters are taken at once; whatever else a field may hold is left to the general way.

#include "platform/ExactPowers.h"
#include "platform/TextWord.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// A short text, and the "-" that stood before it.
struct T_SHORT_D {
    TEXTWORD nWord;
    std::size_t nText;
    bool bNegative;

    /// sText has at most WORD_LENGTH characters.
    explicit T_SHORT_D(std::string_view sText)
        : nWord(LoadWord(sText.data(), sText.size())), nText(sText.size()), bNegative((nWord & 0xFF) == '-') {
        if (!bNegative) return;
        nWord >>= 8;
        --nText;
    }

    /// Takes out the first point. Returns the number of characters behind it, 0 if there is none.
    std::size_t TakePoint() {
        const TEXTWORD nOther = nWord ^ RepeatInWord('.');
        const TEXTWORD nPoints = (nOther - RepeatInWord(1)) & ~nOther & RepeatInWord('\x80'); // the lowest is right
        if (nPoints == 0) return 0;
        const int nBefore = std::countr_zero(nPoints) - 7; // in bits
        nWord = (nWord & ((TEXTWORD(1) << nBefore) - 1)) | (nWord >> nBefore >> 8) << nBefore;
        --nText;
        return nText - static_cast<std::size_t>(nBefore) / 8;
    }

    /// The value of the text. False if there is anything but digits, or nothing.
    bool ReadDigits(std::uint32_t& rValue) const {
        if (nText == 0) return false;
        const auto nBlank = static_cast<unsigned>(8 * (WORD_LENGTH - nText));
        TEXTWORD nDigits = (nWord ^ (EIGHT_ZEROS >> nBlank)) << nBlank; // a digit in each byte, zeros in front
        if (((nDigits + RepeatInWord(0x76)) | nDigits) & RepeatInWord('\x80')) return false;
        // Neighbours are joined, from digits to pairs, from pairs to fours, from fours to all eight.
        nDigits = nDigits * 10 + (nDigits >> 8);
        const TEXTWORD nHigh = (nDigits & 0x000000FF000000FF) * (100 + (TEXTWORD(1000000) << 32));
        const TEXTWORD nLow = ((nDigits >> 16) & 0x000000FF000000FF) * (1 + (TEXTWORD(10000) << 32));
        rValue = static_cast<std::uint32_t>((nHigh + nLow) >> 32);
        return true;
    }
};

/// False if sText isn't a short integer.
inline bool ReadShortInt(std::string_view sText, std::int32_t& rValue) {
    if (sText.size() > WORD_LENGTH) return false;
    const T_SHORT_D text(sText);
    std::uint32_t nValue = 0;
    if (!text.ReadDigits(nValue)) return false;
    rValue = text.bNegative ? -static_cast<std::int32_t>(nValue) : static_cast<std::int32_t>(nValue);
    return true;
}

/// False if sText isn't a short real.
inline bool ReadShortReal(std::string_view sText, double& rValue) {
    if (sText.size() > WORD_LENGTH) return false;
    T_SHORT_D text(sText);
    const std::size_t nFraction = text.TakePoint();
    std::uint32_t nValue = 0;
    if (!text.ReadDigits(nValue)) return false;
    rValue = nValue / EXACT_POWERS[nFraction]; // both are exact, so the quotient is the nearest double
    if (text.bNegative) rValue = -rValue;
    return true;
}
