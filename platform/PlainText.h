#pragma once
// Texts that should be UTF-8 and may be anything, as a terminal or a message box can take them.

#include <cstddef>
#include <string>
#include <string_view>

/// Reads the character that sText, which isn't empty, begins with. Returns its length in bytes with its code in rCode,
/// or 0 with the first byte in rCode if that doesn't begin a character of UTF-8.
std::size_t ReadCharacter(std::string_view sText, char32_t& rCode);

/// Whether a character is a command to a terminal and not a sign: C0 with the line feed, DEL and C1.
constexpr bool IsControl(char32_t nCode) {
    return nCode < 0x20 || (nCode >= 0x7F && nCode < 0xA0);
}

/// The text with "?" for each control character but the line feed, in UTF-8 or as a byte alone: nothing in a deck, a
/// name or a message may command the terminal. Other bytes that aren't UTF-8 stay.
std::string PlainText(std::string_view sText);

/// The text in lines that a message box can hold, which grows with its text until its button leaves the screen: a word
/// that is too long for a line goes on in the next, and "..." replaces what is too much. Bytes that aren't UTF-8
/// count as characters.
std::string BoxText(std::string_view sText);
