#pragma once
// A check as text, for people and for programs.

#include "nas2zdt/check/Check.h"

#include <functional>
#include <string>

/// Makes a text stand out on a terminal.
using PAINT = std::function<std::string(const std::string&)>;

/// A check as plain text tables.
std::string CheckTable(const std::string& sDeck, const T_CHECK_D& rCheck, const PAINT& rPaint);

/// A check as a JSON object as in docs/check.md, without a line feed.
std::string CheckJson(const T_CHECK_D& rCheck);

/// Number of differences, and of those among them that nothing explains.
struct T_DIFFERENCES_D {
    std::size_t nALL = 0, nUNEXPLAINED = 0;
};
T_DIFFERENCES_D CountDifferences(const T_CHECK_D& rCheck);
