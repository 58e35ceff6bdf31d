#pragma once
// Short numbers: at most eight characters, an optional "-", digits, for a real at most one point among them. Most
// fields of a deck are such, so all characters are taken at once; other ways to write a number are for others to read.

#include "platform/TextWord.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The highest bit of each character that isn't a digit, as far as the first of them; nDigits is the text without the
/// bits of EIGHT_ZEROS.
constexpr TEXTWORD FindOtherThanDigits(TEXTWORD nDigits) {
    return ((nDigits + RepeatInWord(0x76)) | nDigits) & RepeatInWord('\x80');
}

/// The number of eight digits, each as a value in its byte.
constexpr std::uint32_t JoinDigits(TEXTWORD nDigits) {
    // Neighbours are joined, from digits to pairs, from pairs to fours, from fours to all eight.
    nDigits = nDigits * 10 + (nDigits >> 8);
    const TEXTWORD nHigh = (nDigits & 0x000000FF000000FF) * (100 + (TEXTWORD(1000000) << 32));
    const TEXTWORD nLow = ((nDigits >> 16) & 0x000000FF000000FF) * (1 + (TEXTWORD(10000) << 32));
    return static_cast<std::uint32_t>((nHigh + nLow) >> 32);
}

/// A short text, and the "-" that stood before it.
struct T_SHORT_D {
    TEXTWORD nWord;
    std::size_t nText;
    bool bNegative;

    /// The first nLength characters of nCharacters; the bytes behind them are 0.
    T_SHORT_D(TEXTWORD nCharacters, std::size_t nLength)
        : nWord(nCharacters), nText(nLength), bNegative((nWord & 0xFF) == '-') {
        if (!bNegative) return;
        nWord >>= 8;
        --nText;
    }

    /// sText has at most WORD_LENGTH characters.
    explicit T_SHORT_D(std::string_view sText) : T_SHORT_D(LoadWord(sText.data(), sText.size()), sText.size()) {}

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
        const TEXTWORD nDigits = (nWord ^ (EIGHT_ZEROS >> nBlank)) << nBlank; // a digit in each byte, zeros in front
        if (FindOtherThanDigits(nDigits) != 0) return false;
        rValue = JoinDigits(nDigits);
        return true;
    }
};

/// False if the text isn't a short integer.
inline bool ReadShortInt(const T_SHORT_D& rText, std::int32_t& rValue) {
    std::uint32_t nValue = 0;
    if (!rText.ReadDigits(nValue)) return false;
    rValue = rText.bNegative ? -static_cast<std::int32_t>(nValue) : static_cast<std::int32_t>(nValue);
    return true;
}
inline bool ReadShortInt(std::string_view sText, std::int32_t& rValue) {
    return sText.size() <= WORD_LENGTH && ReadShortInt(T_SHORT_D(sText), rValue);
}

/// False if the text isn't a short real; an integer is one, too.
inline bool ReadShortReal(T_SHORT_D text, double& rValue) {
    const std::size_t nFraction = text.TakePoint();
    std::uint32_t nValue = 0;
    if (!text.ReadDigits(nValue)) return false;
    rValue = nValue / EXACT_POWERS[nFraction]; // both are exact, so the quotient is the nearest double
    if (text.bNegative) rValue = -rValue;
    return true;
}
inline bool ReadShortReal(std::string_view sText, double& rValue) {
    return sText.size() <= WORD_LENGTH && ReadShortReal(T_SHORT_D(sText), rValue);
}
