#pragma once
// Writes a deck that the exact conversion carries over as NASTRAN means the given one.

#include "nas2zdt/flatten/DeckJoin.h"
#include "nas2zdt/flatten/LineMap.h"
#include "nas2zdt/restate/Rule.h"
#include "platform/File.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What is chosen of a deck.
struct T_CHOICE_D {
    std::optional<std::int32_t> iSUBCASE;        // whose supports the file has; the first one if not given
    std::int32_t iPART = 0;                      // superelement, 0 for the main model
    std::int64_t nRANGES = T_LIMITS_D().nRANGES; // most ids that ranges stand for in all
    std::size_t nTHREADS = 1;                    // that may work at a time
    T_JOINRULES_D join;
};

/// A restated deck: where its lines came from, and what was done.
struct T_RESTATED_D {
    CLineMap lines;
    T_INPUTS files;                  // read for it
    std::vector<std::string> aFILES; // by their numbers in aTOLD
    std::vector<T_TOLD_D> aTOLD;
};

/// Writes the restated deck to rFile and closes that. Restating what comes of it changes nothing. Throws CFileException
/// if rFile fails, with the place in a deck if that can't be joined, or for a subcase that the deck hasn't.
T_RESTATED_D RestateDeck(const std::string& sDeck, CFile& rFile, const T_CHOICE_D& rChoice);

/// All rules, by family.
std::vector<T_RULE_D> GetRestateRules();

/// Losses of the exact conversion that restating does away with, by the keyword of their cards, empty for any, and
/// kind.
using T_MENDED = std::set<std::pair<std::string_view, std::string_view>>;
T_MENDED FindMended();
bool IsMended(const T_MENDED& rMended, std::string_view sKeyword, std::string_view sKind);
