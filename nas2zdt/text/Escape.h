#pragma once
// Any bytes as texts of other formats.

#include <string>
#include <string_view>

/// sText as a JSON string with its quotes. Control characters, and bytes that aren't UTF-8, become their numbers.
std::string JsonText(std::string_view sText);

/// sText with the markup characters of XML escaped. Each byte that isn't UTF-8, or is part of a character that XML
/// doesn't allow, becomes "?". Of more than 120 characters the last ones stay, behind an ellipsis.
std::string XmlText(std::string_view sText);
