// Reads and writes the numbers of fields.

#include "nas2zdt/restate/FieldText.h"

#include "nas2zdt/text/Words.h"
#include "reader/ShortNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t CountDigits(std::string_view sText) {
    return static_cast<std::size_t>(std::find_if_not(sText.begin(), sText.end(), &IsDigit) - sText.begin());
}

/// The parts of a number, without the signs in front that say nothing.
struct T_NUMBER_D {
    bool bNEGATIVE = false;
    bool bREAL = false;         // it has a point or an exponent
    std::string_view sMANTISSA; // digits with at most one point
    bool bNEGATIVEEXPONENT = false;
    std::string_view sEXPONENT; // digits; empty for none
};

bool Split(std::string_view sField, T_NUMBER_D& rNumber) {
    if (sField.starts_with('+') || sField.starts_with('-')) {
        rNumber.bNEGATIVE = sField[0] == '-';
        sField.remove_prefix(1);
    }
    const std::size_t nWhole = CountDigits(sField);
    std::size_t nMantissa = nWhole;
    if (nWhole < sField.size() && sField[nWhole] == '.') {
        nMantissa = nWhole + 1 + CountDigits(sField.substr(nWhole + 1));
        rNumber.bREAL = true;
        if (nMantissa == 1) return false; // a point alone
    } else if (nWhole == 0) {
        return false;
    }
    rNumber.sMANTISSA = sField.substr(0, nMantissa);
    sField.remove_prefix(nMantissa);
    if (sField.empty()) return true;
    rNumber.bREAL = true;
    const bool bLetter = ToUpper(sField[0]) == 'E' || ToUpper(sField[0]) == 'D';
    if (bLetter) sField.remove_prefix(1);
    const bool bSign = sField.starts_with('+') || sField.starts_with('-');
    if (!bLetter && !bSign) return false;
    if (bSign) {
        rNumber.bNEGATIVEEXPONENT = sField[0] == '-';
        sField.remove_prefix(1);
    }
    rNumber.sEXPONENT = sField;
    return !sField.empty() && CountDigits(sField) == sField.size();
}

std::string Join(const T_NUMBER_D& rNumber) {
    std::string sText;
    if (rNumber.bNEGATIVE) sText += '-';
    sText += rNumber.sMANTISSA;
    if (rNumber.sEXPONENT.empty()) return sText;
    sText += 'E';
    if (rNumber.bNEGATIVEEXPONENT) sText += '-';
    return sText += rNumber.sEXPONENT;
}

/// A number as the library writes it, in the form of a deck.
std::string WithPoint(std::string_view sText) {
    T_NUMBER_D number;
    if (!Split(sText, number)) return "0."; // not a number: nothing that a deck can say
    std::string sPlain;
    if (number.bNEGATIVE) sPlain += '-';
    sPlain += number.sMANTISSA;
    if (number.sMANTISSA.find('.') == std::string_view::npos) sPlain += '.';
    if (number.sEXPONENT.empty()) return sPlain;
    sPlain += number.bNEGATIVEEXPONENT ? "E-" : "E";
    return sPlain += number.sEXPONENT;
}

} // namespace

bool ReadInteger(std::string_view sField, std::int32_t& rValue) {
    if (ReadShortInt(sField, rValue)) return true;
    if (sField.starts_with('+')) sField.remove_prefix(1);
    const char* const pEnd = sField.data() + sField.size();
    const auto [pRead, error] = std::from_chars(sField.data(), pEnd, rValue);
    return error == std::errc() && pRead == pEnd;
}

bool ReadReal(std::string_view sField, double& rValue) {
    if (ReadShortReal(sField, rValue)) return true;
    T_NUMBER_D number;
    if (!Split(sField, number)) return false;
    const char* pBegin = sField.data() + (sField[0] == '+' ? 1 : 0);
    const char* const pEnd = sField.data() + sField.size();
    const auto [pRead, error] = std::from_chars(pBegin, pEnd, rValue);
    if (error == std::errc() && pRead == pEnd) return true;
    const std::string sText = Join(number); // an exponent in one of the other ways, or out of range
    const auto [pAgain, again] = std::from_chars(sText.data(), sText.data() + sText.size(), rValue);
    if (again == std::errc::result_out_of_range && number.bNEGATIVEEXPONENT) rValue = 0.0;
    return again == std::errc() || (again == std::errc::result_out_of_range && number.bNEGATIVEEXPONENT);
}

bool ReadComponents(std::string_view sField, std::uint8_t& rBits) {
    rBits = 0;
    bool bDigits = true;
    for (const char c : sField) {
        if (c >= '1' && c <= '6') {
            rBits |= static_cast<std::uint8_t>(1u << (c - '1'));
        } else {
            bDigits = bDigits && c == '0';
        }
    }
    return bDigits;
}

bool IsReal(std::string_view sField) {
    T_NUMBER_D number;
    return Split(sField, number) && number.bREAL;
}

std::string RealText(double dValue) {
    if (dValue == 0.0) return "0."; // without a sign
    char aText[40];
    const auto result = std::to_chars(aText, aText + sizeof aText, dValue);
    return WithPoint({aText, static_cast<std::size_t>(result.ptr - aText)});
}

std::string RealText(double dValue, std::size_t nWidth) {
    std::string sText = RealText(dValue);
    char aText[40];
    for (int nDigits = 17; sText.size() > nWidth; --nDigits) {
        const auto result = std::to_chars(aText, aText + sizeof aText, dValue, std::chars_format::general, nDigits);
        sText = WithPoint({aText, static_cast<std::size_t>(result.ptr - aText)});
    }
    return sText;
}

std::string PlainField(std::string_view sField) {
    T_NUMBER_D number;
    if (Split(sField, number)) return Join(number);
    std::string sText(sField.substr(0, FindForeign(sField)));
    std::transform(sText.begin(), sText.end(), sText.begin(), &ToUpper);
    return sText;
}

std::size_t FindForeign(std::string_view sField) {
    const auto isForeign = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == ',' || c == '$'; };
    const auto pFound = std::find_if(sField.begin(), sField.end(), isForeign);
    return pFound == sField.end() ? std::string_view::npos : static_cast<std::size_t>(pFound - sField.begin());
}

std::string AddToField(std::string_view sField, std::string_view sStep) {
    std::int32_t iValue = 0, iStep = 0;
    if (ReadInteger(sField, iValue) && ReadInteger(sStep, iStep)) {
        const std::int64_t iSum = std::int64_t{iValue} + iStep;
        return std::to_string(iSum);
    }
    double dValue = 0.0, dStep = 0.0;
    if (sField.empty()) sField = "0.";
    if (ReadReal(sField, dValue) && ReadReal(sStep, dStep)) return RealText(dValue + dStep);
    return std::string(sField);
}

std::string ComponentText(std::uint8_t nComponents) {
    std::string sText;
    for (int i = 0; i < 6; ++i) {
        if (nComponents & (1 << i)) sText += static_cast<char>('1' + i);
    }
    return sText;
}
