#pragma once
// Texts in JSON.

#include <string>
#include <string_view>

/// The text in quotes, without control characters: they stand as their numbers. So do bytes that aren't UTF-8, so that
/// what comes out always is.
std::string JsonText(std::string_view sText);
