#pragma once
// Texts in JSON.

#include <string>
#include <string_view>

/// The text in quotes. Bytes that aren't UTF-8 stand as the characters of their numbers, so that what comes out always
/// is.
std::string JsonText(std::string_view sText);
