#pragma once
// Lists of ids with ranges.

#include "nas2zdt/restate/CardFields.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Ids from iFIRST to iLAST, every iSTEP-th.
struct T_IDRANGE_D {
    std::int32_t iFIRST, iLAST;
    std::int32_t iSTEP = 1;
    bool bNAMED = false; // one id that stands for itself: of a range, only those count that there are
};

/// Reads "7", "1 THRU 9", "1 THRU 99 BY 2", "1 THRU 99 EXCEPT 5 6 10 THRU 20" and blanks, any number of them, from
/// field i to before field iEnd. Ids behind EXCEPT are excepted as long as they are in the range before it.
std::vector<T_IDRANGE_D> ReadIdList(const CCardFields& rCard, std::size_t i, std::size_t iEnd);
