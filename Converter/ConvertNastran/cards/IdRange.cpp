// What a THRU range stands for.

#include "cards/IdRange.h"

#include "driver/CConvertNastran.h"

#include <algorithm>

/// The ids above 0 from iBefore + 1 to iLast. Throws CRunError for too many of them, in this range or in all of the
/// run.
T_RANGE_D CConvertNastran::TakeRange(const T_DATA_D& rCard, std::int32_t iBefore, std::int32_t iLast) {
    const T_RANGE_D range{std::max<std::int64_t>(std::int64_t(iBefore) + 1, 1), iLast};
    const std::int64_t nIds = std::max<std::int64_t>(range.iLAST - range.iFIRST + 1, 0);
    const std::int32_t iLine = rCard.aLINES.front();
    if (nIds > LONGEST_RANGE) throw CRunError(FAILURE_RANGE_TOO_LONG, iLine, LONGEST_RANGE);
    m_nRanged += nIds;
    if (m_nRanged > m_options.limits.nRANGES) throw CRunError(FAILURE_LIMIT_RANGES, iLine, m_options.limits.nRANGES);
    return range;
}
