// Numbers as printf writes them.

#include "writer/Numbers.h"

#include "platform/TextWord.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace {

constexpr int DIGITS = 6; // of %g

/// A value rounded to six digits: nDigits * 10^(nExponent - 5), 100000 to 999999.
struct T_ROUNDED_D {
    std::uint32_t nDigits = 0;
    int nExponent = 0;
};

/// Rounds a positive value to six digits where one multiplication or division by an exact power of ten decides it.
/// False near a tie and for exponents without an exact power: then the digits need exact arithmetic.
bool RoundToDigits(double dValue, T_ROUNDED_D& rRounded) {
    const int nBinary = static_cast<int>(std::bit_cast<std::uint64_t>(dValue) >> 52) - 1023;
    int nExponent = (nBinary * 1233) >> 12; // log10(2) is 1233 / 4096 from below; at most one too small
    if (nExponent < DIGITS - 1 - MOST_EXACT_POWER || nExponent >= DIGITS - 1 + MOST_EXACT_POWER) return false;
    const auto scaled = [&] {
        const int nPower = DIGITS - 1 - nExponent;
        return nPower < 0 ? dValue / EXACT_POWERS[static_cast<std::size_t>(-nPower)]
                          : dValue * EXACT_POWERS[static_cast<std::size_t>(nPower)];
    };
    double dScaled = scaled(); // the true quotient to half a unit in its last place, less than 1e-10 here
    if (dScaled >= 1e6) {
        ++nExponent;
        dScaled = scaled();
    }
    if (!(dScaled >= 1e5 && dScaled < 1e6)) return false;
    const auto nFloor = static_cast<std::uint32_t>(dScaled);
    const double dFraction = dScaled - nFloor;
    if (std::fabs(dFraction - 0.5) < 1e-9) return false;
    rRounded = {nFloor + (dFraction > 0.5), nExponent};
    if (rRounded.nDigits == 1000000) rRounded = {100000, nExponent + 1};
    return true;
}

/// The eight decimal digits of nValue, which is below 10^8, a byte each, the first in the lowest.
TEXTWORD SpreadDigits(std::uint32_t nValue) {
    // Each step halves all pieces at once; a division is a multiplication by the reciprocal, rounded up, which is exact
    // for pieces this small.
    const TEXTWORD nFours = nValue / 10000 | TEXTWORD(nValue % 10000) << 32;
    const TEXTWORD nHundreds = ((nFours * 10486) >> 20) & 0x0000007F0000007F;
    const TEXTWORD nTwos = nHundreds | (nFours - 100 * nHundreds) << 16;
    const TEXTWORD nTens = ((nTwos * 103) >> 10) & 0x000F000F000F000F;
    return nTens | (nTwos - 10 * nTens) << 8;
}

char* PutExponent(char* p, int nExponent) {
    *p++ = 'e';
    *p++ = nExponent < 0 ? '-' : '+';
    if (nExponent < 0) nExponent = -nExponent;
    *p++ = static_cast<char>('0' + nExponent / 10); // below 100: larger ones aren't rounded here
    *p++ = static_cast<char>('0' + nExponent % 10);
    return p;
}

} // namespace

char* PutInt(char* p, std::int32_t iValue) {
    const std::uint32_t nValue =
        iValue < 0 ? 0 - static_cast<std::uint32_t>(iValue) : static_cast<std::uint32_t>(iValue);
    if (nValue >= 100000000) return std::to_chars(p, p + LONGEST_INT, iValue).ptr;
    *p = '-';
    p += iValue < 0;
    const TEXTWORD nDigits = SpreadDigits(nValue);
    const int nZeros = std::countr_zero(nDigits | TEXTWORD(1) << 56) / 8; // in front; of a 0 the last one stays
    StoreWord(p, (nDigits | EIGHT_ZEROS) >> (8 * nZeros));
    return p + static_cast<int>(WORD_LENGTH) - nZeros;
}

char* PutReal(char* p, double dValue) {
    if (std::signbit(dValue) && !std::isnan(dValue)) {
        *p++ = '-';
        dValue = -dValue;
    }
    if (dValue == 0.0) {
        *p++ = '0';
        return p;
    }
    T_ROUNDED_D rounded;
    if (!std::isfinite(dValue) || !RoundToDigits(dValue, rounded)) {
        if (std::isnan(dValue)) dValue = std::copysign(dValue, -1.0);
        return std::to_chars(p, p + LONGEST_REAL, dValue, std::chars_format::general, DIGITS).ptr;
    }
    const TEXTWORD nSpread = SpreadDigits(rounded.nDigits * 100);
    const TEXTWORD nText = nSpread | EIGHT_ZEROS;
    const int nDigits = static_cast<int>(WORD_LENGTH) - std::countl_zero(nSpread) / 8; // without zeros at the end
    const int nExponent = rounded.nExponent;
    const bool bScientific = nExponent < -4 || nExponent >= DIGITS;
    const int nWhole = bScientific ? 1 : nExponent + 1; // digits before the point
    if (nWhole <= 0) {
        StoreWord(p, LoadWord("0.000000"));
        p += 2 - nWhole;
        StoreWord(p, nText);
        return p + nDigits;
    }
    StoreWord(p, nText); // zeros at the end of a whole number are among the six digits
    p += nWhole;
    if (nDigits > nWhole) {
        *p++ = '.';
        StoreWord(p, nText >> (8 * nWhole));
        p += nDigits - nWhole;
    }
    return bScientific ? PutExponent(p, nExponent) : p;
}

double RoundReal(double dValue) {
    const double dSize = std::fabs(dValue);
    T_ROUNDED_D rounded;
    if (dSize == 0.0 || !std::isfinite(dSize)) return dValue;
    if (!RoundToDigits(dSize, rounded)) {
        char aText[LONGEST_REAL];
        double dRounded = 0.0;
        std::from_chars(aText, PutReal(aText, dValue), dRounded);
        return dRounded;
    }
    const int nPower = rounded.nExponent - (DIGITS - 1);
    const double dRounded = nPower < 0 ? rounded.nDigits / EXACT_POWERS[static_cast<std::size_t>(-nPower)]
                                       : rounded.nDigits * EXACT_POWERS[static_cast<std::size_t>(nPower)];
    return std::copysign(dRounded, dValue);
}
