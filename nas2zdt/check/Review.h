#pragma once
// The sums of a deck and of its file side by side.

#include "nas2zdt/check/Findings.h"
#include "nas2zdt/check/Totals.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CAccount;

/// A row of the review.
struct T_REVIEWROW_D {
    std::string sGROUP; // "nodes", "property 7", "load set 3"
    std::string sNAME;  // "count", "force x"
    double dDECK = 0.0, dFILE = 0.0;
    bool bCOUNT = false;   // a whole number
    bool bDIFFERS = false; // past six digits, or in ids or corners of what is counted
    // Of one that differs: losses of the account that explain it, "CBAR: dropped: PA", or else the deck's errors.
    std::vector<std::string> aWHY;
};

/// All rows in which one of both isn't zero. Without an account nothing is explained.
std::vector<T_REVIEWROW_D> ReviewTotals(const T_TOTALS_D& rDeck, const T_TOTALS_D& rFile, const CAccount* pAccount,
                                        const CFindings& rFindings);
