#pragma once
// Numbers as printf writes them in the C locale.

#include <cstddef>
#include <cstdint>

// Room that a number needs while it is written; its text is shorter.
constexpr std::size_t LONGEST_INT = 16;
constexpr std::size_t LONGEST_REAL = 24;

/// Writes what %d gives into LONGEST_INT characters of room and returns the place behind it.
char* PutInt(char* p, std::int32_t iValue);

/// Writes what %g gives into LONGEST_REAL characters of room and returns the place behind it. At least two exponent
/// digits; infinities are "inf" and "-inf". A not-a-number is "-nan" with either sign, which differs between
/// compilers and processors.
char* PutReal(char* p, double dValue);

/// The value that PutReal writes, which has six digits.
double RoundReal(double dValue);
