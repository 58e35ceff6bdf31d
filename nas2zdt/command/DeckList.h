#pragma once
// The decks that folders, lists and patterns of a command line stand for.

#include "nas2zdt/command/Options.h"

#include <string>
#include <vector>

/// Replaces folders (--recursive), lists (files behind an at sign, "-" for standard input) and, where the system leaves
/// patterns to programs, those by the decks that they stand for: the arguments stay in their order, what one stands for
/// is sorted by the bytes of the path. Returns 1, or 0 with what can't be read in rWhy.
int ListDecks(T_OPTIONS_D& rOptions, std::string& rWhy);

/// The files that a pattern with "*" and "?" in its last name stands for, sorted; the pattern itself if there are none.
/// Upper and lower case are the same, and a "." in front isn't matched by either.
std::vector<std::string> FindMatches(const std::string& sPattern);
