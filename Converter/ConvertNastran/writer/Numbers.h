#pragma once
// Numbers as printf writes them in the C locale.

#include <cstddef>
#include <cstdint>

constexpr std::size_t LONGEST_INT = 11;
constexpr std::size_t LONGEST_REAL = 16;

/// Writes what %d gives, at most LONGEST_INT characters, and returns the place behind it.
char* PutInt(char* p, std::int32_t iValue);

/// Writes what %g gives, at most LONGEST_REAL characters, and returns the place behind it. At least two exponent
/// digits; infinities are "inf" and "-inf", not-a-numbers "nan" and "-nan" by the sign bit.
char* PutReal(char* p, double dValue);
