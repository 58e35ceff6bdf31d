#pragma once
// Numbers of fields, as NASTRAN reads them and as the converter reads them back.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// An integer with or without a sign, to the end of the field. False if it isn't one or doesn't fit.
bool ReadInteger(std::string_view sField, std::int32_t& rValue);

/// A number to the end of the field: "1.5", "1.5E3", "1.5D+3", "1.5+3", an integer, too. False if it isn't one or isn't
/// finite.
bool ReadReal(std::string_view sField, double& rValue);

/// Components by their digits: bit 0 for component 1. Zeros and a blank are none. False if there is another character;
/// rBits are then those of the others.
bool ReadComponents(std::string_view sField, std::uint8_t& rBits);

/// Whether a field is a number that can't be an integer.
bool IsReal(std::string_view sField);

/// The shortest text that reads as dValue again, with a point and without a "+".
std::string RealText(double dValue);

/// The nearest that has at most nWidth characters; nWidth is 16 at least.
std::string RealText(double dValue, std::size_t nWidth);

/// The place of the first character that no field can have, npos if there is none: fields of columns may hold any.
std::size_t FindForeign(std::string_view sField);

/// The field in the form that the converter reads whole: upper case, exponents with "E", without a "+" and, in numbers,
/// without needless signs; what isn't a number ends before a foreign character. The same for a field that is in this
/// form.
std::string PlainField(std::string_view sField);

/// The sum of a field and a step; the field itself if either isn't a number.
std::string AddToField(std::string_view sField, std::string_view sStep);

/// "136" for components 1, 3 and 6: bits 0, 2 and 5.
std::string ComponentText(std::uint8_t nComponents);
