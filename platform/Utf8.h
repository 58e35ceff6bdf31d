#pragma once
// Texts that should be UTF-8 and may be anything.

#include <cstddef>
#include <string_view>

/// Reads the character that sText, which isn't empty, begins with. Returns its length in bytes with its code in rCode,
/// or 0 with the first byte in rCode if that doesn't begin a character of UTF-8.
std::size_t ReadCharacter(std::string_view sText, char32_t& rCode);

/// Whether a character is a command to a terminal and not a sign: C0 with the line feed, DEL and C1.
constexpr bool IsControl(char32_t nCode) {
    return nCode < 0x20 || (nCode >= 0x7F && nCode < 0xA0);
}
