// From the text of a field to a value.

#include "reader/FieldParser.h"

#include "platform/TextWord.h"
#include "reader/NastranStrParser.h"
#include "reader/ShortNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace {

bool IsDigit(char c) {
    return static_cast<unsigned char>(c - '0') < 10;
}

/// A decimal number: digits times 10 to the power of nExponent.
struct T_DECIMAL_D {
    bool bNegative = false;
    std::uint64_t nDigits = 0; // the first 19 significant digits
    std::int64_t nExponent = 0;
    bool bExact = true;             // whether nDigits holds all of them
    std::string_view sMantissa;     // digits and point as typed
    std::int64_t nTextExponent = 0; // the exponent behind them
    const char* pRest = nullptr;    // what isn't read any more
};

constexpr std::int64_t EXPONENT_LIMIT = 1000000; // far past any double, far from overflow

/// Whether nothing is left of a field; a carriage return is nothing.
bool IsAtEnd(const char* p, const char* pEnd) {
    while (p < pEnd && *p == '\r') ++p;
    return p == pEnd;
}

/// Reads an exponent's sign and digits, and moves p behind them; 0 if there are no digits.
std::int64_t ReadExponent(const char*& p, const char* pEnd) {
    const bool bNegative = p < pEnd && *p == '-';
    if (p < pEnd && (*p == '-' || *p == '+')) ++p;
    std::int64_t nExponent = 0;
    for (; p < pEnd && IsDigit(*p); ++p) {
        if (nExponent < EXPONENT_LIMIT) nExponent = nExponent * 10 + (*p - '0');
    }
    return bNegative ? -nExponent : nExponent;
}

/// Reads as much of a decimal number as there is. False if there are no digits.
bool ReadDecimal(std::string_view sField, T_DECIMAL_D& rDecimal) {
    const auto hasE = [&] { return sField.find('E') != std::string_view::npos; };
    const char* const pBegin = sField.data();
    const char* const pEnd = pBegin + sField.size();
    const char* p = pBegin;
    while (p < pEnd && IsSpace(*p)) ++p;
    if (p < pEnd && (*p == '-' || *p == '+')) {
        if (p > pBegin && !hasE()) return false; // a sign behind the first character begins an exponent
        rDecimal.bNegative = *p == '-';
        ++p;
    }
    const char* const pMantissa = p;
    bool bDigits = false;
    bool bPoint = false;
    int nSignificant = 0;
    for (; p < pEnd; ++p) {
        if (*p == '.' && !bPoint) {
            bPoint = true;
            continue;
        }
        if (!IsDigit(*p)) break;
        bDigits = true;
        if (nSignificant < 19) {
            rDecimal.nDigits = rDecimal.nDigits * 10 + static_cast<std::uint64_t>(*p - '0');
            if (rDecimal.nDigits != 0) ++nSignificant;
            if (bPoint) --rDecimal.nExponent;
        } else {
            if (*p != '0') rDecimal.bExact = false;
            if (!bPoint) ++rDecimal.nExponent;
        }
    }
    if (!bDigits) return false;
    rDecimal.sMantissa = {pMantissa, static_cast<std::size_t>(p - pMantissa)};
    if (p < pEnd) {
        const bool bSign = p + 1 < pEnd && (p[1] == '+' || p[1] == '-');
        if (*p == 'E' || (*p == 'e' && (!bSign || hasE()))) {
            rDecimal.nTextExponent = ReadExponent(++p, pEnd);
        } else if ((*p == '+' || *p == '-') && !hasE()) {
            rDecimal.nTextExponent = ReadExponent(p, pEnd);
        }
    }
    rDecimal.pRest = p;
    rDecimal.nExponent += rDecimal.nTextExponent;
    return true;
}

/// The nearest double, by the library's conversion.
double ConvertExactly(const T_DECIMAL_D& rDecimal) {
    std::string sText(rDecimal.sMantissa);
    sText += 'e';
    sText += std::to_string(rDecimal.nTextExponent);
    double dValue = 0.0;
    const auto result = std::from_chars(sText.data(), sText.data() + sText.size(), dValue);
    if (result.ec != std::errc::result_out_of_range) return dValue;
    return rDecimal.nExponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// Numbers that aren't short. Functions of their own, which aren't inlined, keep the way of nearly all numbers short.

[[gnu::noinline]] std::int32_t ReadLongInt(std::string_view sText, bool& rWhole) {
    const char* p = sText.data();
    const char* const pEnd = p + sText.size();
    while (p < pEnd && IsSpace(*p)) ++p;
    const bool bNegative = p < pEnd && *p == '-';
    if (p < pEnd && (*p == '-' || *p == '+')) ++p;
    const std::int64_t nLimit = std::int64_t(std::numeric_limits<std::int32_t>::max()) + (bNegative ? 1 : 0);
    std::int64_t nValue = 0;
    rWhole = p < pEnd && IsDigit(*p);
    for (; p < pEnd && IsDigit(*p); ++p) {
        nValue = nValue * 10 + (*p - '0');
        if (nValue <= nLimit) continue;
        nValue = nLimit;
        rWhole = false;
    }
    rWhole = rWhole && IsAtEnd(p, pEnd);
    return static_cast<std::int32_t>(bNegative ? -nValue : nValue);
}

[[gnu::noinline]] double ReadLongReal(std::string_view sField, bool& rWhole) {
    T_DECIMAL_D decimal;
    rWhole = false;
    if (!ReadDecimal(sField, decimal)) return 0.0;
    rWhole = IsAtEnd(decimal.pRest, sField.data() + sField.size());
    double dValue = 0.0;
    constexpr std::uint64_t EXACT_INTEGERS = std::uint64_t(1) << 53;
    if (decimal.nDigits == 0 && decimal.bExact) {
        dValue = 0.0;
    } else if (decimal.bExact && decimal.nDigits <= EXACT_INTEGERS && decimal.nExponent >= -MOST_EXACT_POWER &&
               decimal.nExponent <= MOST_EXACT_POWER) {
        // Both operands are exact doubles, so one rounded operation gives the nearest double (Clinger, "How to Read
        // Floating Point Numbers Accurately").
        dValue = static_cast<double>(decimal.nDigits);
        if (decimal.nExponent < 0) {
            dValue /= EXACT_POWERS[static_cast<std::size_t>(-decimal.nExponent)];
        } else {
            dValue *= EXACT_POWERS[static_cast<std::size_t>(decimal.nExponent)];
        }
    } else {
        dValue = ConvertExactly(decimal);
        rWhole = rWhole && std::isfinite(dValue);
    }
    return decimal.bNegative ? -dValue : dValue;
}

} // namespace

std::int32_t TextToInt(std::string_view sText, bool& rWhole) {
    rWhole = true;
    std::int32_t iShort = 0;
    return ReadShortInt(sText, iShort) ? iShort : ReadLongInt(sText, rWhole);
}

double TextToReal(std::string_view sField, bool& rWhole) {
    rWhole = true;
    double dShort = 0.0;
    return ReadShortReal(sField, dShort) ? dShort : ReadLongReal(sField, rWhole);
}
