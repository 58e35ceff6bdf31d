#pragma once
// The check of a deck and of its file.

#include "nas2zdt/check/Findings.h"
#include "nas2zdt/check/Geometry.h"
#include "nas2zdt/check/Review.h"
#include "nas2zdt/check/Totals.h"
#include "nas2zdt/restate/Restate.h"

#include <cstdint>
#include <string>
#include <vector>

/// Everything that a check tells.
struct T_CHECK_D {
    CFindings findings;
    std::vector<T_QUALITY_D> aQUALITIES;
    T_TOTALS_D totals;                  // of the deck
    std::vector<std::string> aFILES;    // by their numbers in findings
    std::vector<T_REVIEWROW_D> aREVIEW; // empty if there is no file
};

/// Checks a deck; nodes at most dTolerance apart coincide, as CheckGeometry takes it. Throws CFileException if the deck
/// can't be joined, or if its ranges stand for more than any deck needs.
T_CHECK_D CheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice, double dTolerance);
