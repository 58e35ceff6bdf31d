#pragma once
// Texts for message boxes, which grow with their text until their button leaves the screen.

#include <string>
#include <string_view>

/// The text in lines that a box can hold: a word that is too long for one goes on in the next, and "..." stands in
/// place of what is too much for the screen. UTF-8; bytes that aren't count as characters.
std::string BoxText(std::string_view sText);
