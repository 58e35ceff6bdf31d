#pragma once
// THRU ranges.

#include "driver/RunError.h"
#include "reader/Card.h"

#include <algorithm>
#include <cstdint>

/// Most ids that a range may stand for: a slip of the pen mustn't fill the memory.
constexpr std::int32_t LONGEST_RANGE = 10000000;

/// Calls take for each id above 0 from iBefore + 1 to iLast. Throws CRunError for more than LONGEST_RANGE of them.
template <class TAKE>
void WalkRange(const T_DATA_D& rCard, std::int32_t iBefore, std::int32_t iLast, TAKE take) {
    const std::int64_t iFirst = std::max<std::int64_t>(std::int64_t(iBefore) + 1, 1);
    if (iLast - iFirst >= LONGEST_RANGE) throw CRunError(FAILURE_RANGE_TOO_LONG, rCard.aLINES.front(), LONGEST_RANGE);
    for (std::int64_t iID = iFirst; iID <= iLast; ++iID) take(static_cast<std::int32_t>(iID));
}
