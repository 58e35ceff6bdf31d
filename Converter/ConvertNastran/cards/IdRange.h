#pragma once
// THRU ranges.

#include <cstdint>

/// Most ids that a range may stand for: a slip of the pen mustn't fill the memory.
constexpr std::int32_t LONGEST_RANGE = 10000000;

/// The ids that a range stands for; none if the last is below the first.
struct T_RANGE_D {
    std::int64_t iFIRST = 0;
    std::int64_t iLAST = 0;
};

/// Calls take for each id of a range.
template <class TAKE>
void WalkRange(const T_RANGE_D& rRange, TAKE take) {
    for (std::int64_t iID = rRange.iFIRST; iID <= rRange.iLAST; ++iID) take(static_cast<std::int32_t>(iID));
}
