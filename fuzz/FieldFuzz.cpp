// Numbers from text, text from numbers and message texts, each against the C library.

#include "Fuzz.h"
#include "reader/FieldParser.h"
#include "writer/Numbers.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <string>

namespace {

/// A field as the reader hands it on: no blanks, no small letters, nothing behind a NUL.
std::string MakeField(std::string_view sText) {
    std::string sField(sText.substr(0, sText.find('\0')));
    std::erase_if(sField, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    std::transform(sField.begin(), sField.end(), sField.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return sField;
}

std::int32_t IntByLibrary(const std::string& sField) {
    const long nValue = std::strtol(sField.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(nValue, INT_MIN, INT_MAX));
}

double RealByLibrary(std::string sField) {
    if (sField.find('E') == std::string::npos && sField.size() > 1) {
        if (const std::size_t iSign = sField.find_first_of("+-", 1); iSign != std::string::npos)
            sField.insert(iSign, "E");
    }
    // nothing but decimal numbers: no hexadecimal, no names
    sField.resize(std::min(sField.find_first_not_of("0123456789.+-E\v\f\r"), sField.size()));
    return std::strtod(sField.c_str(), nullptr);
}

void CheckField(const std::string& sField) {
    CHECK(TextToInt(sField) == IntByLibrary(sField));
    CHECK(std::bit_cast<std::uint64_t>(TextToReal(sField)) == std::bit_cast<std::uint64_t>(RealByLibrary(sField)));
}

void CheckReal(double dValue) {
    char aText[LONGEST_REAL];
    char aExpected[64];
    // the sign of a not-a-number differs between compilers, so the file has one text for all of them
    const int nExpected = std::snprintf(aExpected, sizeof aExpected, "%g", std::isnan(dValue) ? -NAN : dValue);
    CHECK(std::string_view(aText, static_cast<std::size_t>(PutReal(aText, dValue) - aText)) ==
          std::string_view(aExpected, static_cast<std::size_t>(nExpected)));
}

void CheckInt(std::int32_t iValue) {
    char aText[LONGEST_INT];
    CHECK(std::string(aText, PutInt(aText, iValue)) == std::to_string(iValue));
}

/// Decimals and what lies next to them: the values where rounding to six digits is decided by the last bit.
void CheckDecimal(std::uint32_t nDigits, int nExponent) {
    const double dValue = std::strtod((std::to_string(nDigits) + "e" + std::to_string(nExponent)).c_str(), nullptr);
    for (const double d : {dValue, -dValue, std::nextafter(dValue, 0.0), std::nextafter(dValue, HUGE_VAL)})
        CheckReal(d);
}

void CheckMessage(std::string_view sInput, std::int32_t iArg) {
    const std::string sFormat(sInput.substr(0, sInput.find('\0')));
    const std::string sArg = "text";
    constexpr std::size_t WIDEST = 1000;
    std::string sExpected;
    int nArgs = 0;
    for (std::size_t i = 0; i < sFormat.size();) {
        std::size_t iEnd = i + 1;
        if (sFormat[i] == '%' && sFormat[iEnd] == '-') ++iEnd;
        const std::size_t iWidth = iEnd;
        while (sFormat[i] == '%' && sFormat[iEnd] >= '0' && sFormat[iEnd] <= '9') ++iEnd;
        const std::string sWidth = sFormat.substr(iWidth, iEnd - iWidth);
        const bool bPlace = sFormat[i] == '%' && std::string_view("dius").find(sFormat[iEnd]) != std::string_view::npos;
        if (sFormat[i] == '%' && sFormat[i + 1] == '%') {
            sExpected += '%';
            i += 2;
        } else if (!bPlace) {
            sExpected += sFormat[i++];
        } else if (nArgs == 2) {
            sExpected += sFormat.substr(i, iEnd + 1 - i);
            i = iEnd + 1;
        } else {
            const auto nWidth =
                static_cast<int>(std::min<std::size_t>(std::strtoul(sWidth.c_str(), nullptr, 10), WIDEST));
            char aText[WIDEST + 16];
            const std::string sValue = nArgs++ == 0 ? sArg : std::to_string(iArg);
            std::snprintf(aText, sizeof aText, "%*s", sFormat[i + 1] == '-' ? -nWidth : nWidth, sValue.c_str());
            sExpected += aText;
            i = iEnd + 1;
        }
    }
    CHECK(FormatText(sFormat, {sArg, iArg}) == sExpected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    CBytes bytes(pData, nSize);
    CheckReal(std::bit_cast<double>(bytes.Bytes(8)));
    const std::int32_t iValue = bytes.Int();
    CheckInt(iValue);
    CheckDecimal(static_cast<std::uint32_t>(iValue) % 100000000, bytes.Byte() % 64 - 40);
    CheckMessage(CBytes(bytes).Rest(), iValue);
    CheckField(MakeField(bytes.Rest()));
    return 0;
}
