#pragma once
// Texts as a terminal can take them: nothing in a deck, a name or a message may command it.

#include <string>
#include <string_view>

/// The text with "?" for each control character but the line feed, in UTF-8 or as a byte of its own. Other bytes that
/// aren't UTF-8 stay.
std::string PlainText(std::string_view sText);
