#pragma once
// Between the converter's UTF-8 and the system's UTF-16, and paths as its calls take them.

#include <string>
#include <string_view>

/// UTF-8 as UTF-16. A text that isn't UTF-8 comes from a deck in the code page of the system and is read as such, so
/// every text gives something to show and every narrow name finds its file.
std::wstring Widen(std::string_view sText);

/// UTF-16 as UTF-8.
std::string Narrow(std::wstring_view sText);

/// The path in the form that the system takes at any length.
std::wstring SystemPath(const std::string& sPath);

/// The system's words for one of its error codes, without a line end.
std::string CauseText(unsigned long nError);
