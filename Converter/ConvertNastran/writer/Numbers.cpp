// Numbers as printf writes them.

#include "writer/Numbers.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr int DIGITS = 6; // of %g
constexpr int MOST_POWER = 22;
constexpr std::array<double, MOST_POWER + 1> POWERS = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

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
    for (int nTry = 0; nTry < 2; ++nTry, ++nExponent) {
        const int nPower = DIGITS - 1 - nExponent;
        if (nPower < -MOST_POWER || nPower > MOST_POWER) return false;
        const double dScaled = nPower < 0 ? dValue / POWERS[static_cast<std::size_t>(-nPower)]
                                          : dValue * POWERS[static_cast<std::size_t>(nPower)];
        if (dScaled >= 1e6) continue;
        // dScaled is the true quotient to half a unit in its last place, less than 1e-10 here
        const auto nFloor = static_cast<std::uint32_t>(dScaled);
        const double dFraction = dScaled - nFloor;
        if (dScaled < 1e5 || std::fabs(dFraction - 0.5) < 1e-9) return false;
        rRounded = {nFloor + (dFraction > 0.5 ? 1 : 0), nExponent};
        if (rRounded.nDigits == 1000000) rRounded = {100000, nExponent + 1};
        return true;
    }
    return false;
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
    return std::to_chars(p, p + LONGEST_INT, iValue).ptr;
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
        return std::to_chars(p, p + LONGEST_REAL, dValue, std::chars_format::general, DIGITS).ptr;
    }
    char aDigits[DIGITS];
    for (int i = DIGITS - 1; i >= 0; --i, rounded.nDigits /= 10) {
        aDigits[i] = static_cast<char>('0' + rounded.nDigits % 10);
    }
    int nDigits = DIGITS;
    while (nDigits > 1 && aDigits[nDigits - 1] == '0') --nDigits;

    const int nExponent = rounded.nExponent;
    const bool bScientific = nExponent < -4 || nExponent >= DIGITS;
    int nWhole = bScientific ? 1 : nExponent + 1; // digits before the point
    if (nWhole <= 0) {
        *p++ = '0';
        *p++ = '.';
        for (; nWhole < 0; ++nWhole) *p++ = '0';
        std::memcpy(p, aDigits, static_cast<std::size_t>(nDigits));
        return p + nDigits;
    }
    for (int i = 0; i < nWhole; ++i) *p++ = aDigits[i]; // trailing zeros of a whole number are among the six digits
    if (nDigits > nWhole) {
        *p++ = '.';
        std::memcpy(p, aDigits + nWhole, static_cast<std::size_t>(nDigits - nWhole));
        p += nDigits - nWhole;
    }
    return bScientific ? PutExponent(p, nExponent) : p;
}
