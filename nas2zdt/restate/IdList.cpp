// Reads lists of ids.

#include "nas2zdt/restate/IdList.h"

#include <algorithm>

namespace {

/// The id at a field and, behind THRU, the one that it goes to. i is moved behind them.
T_IDRANGE_D ReadRange(const CCardFields& rCard, std::size_t& i, std::size_t iEnd) {
    const std::int32_t iFirst = rCard.Int(i++);
    if (i >= iEnd || !rCard.Is(i, "THRU")) return {iFirst, iFirst, 1, true};
    const std::int32_t iLast = i + 1 < iEnd ? rCard.Int(i + 1, iFirst) : iFirst;
    i += 2;
    return {std::min(iFirst, iLast), std::max(iFirst, iLast)};
}

/// What is left of a range without the ids of others.
void AddWithout(T_IDRANGE_D range, std::vector<T_IDRANGE_D> aExcepted, std::vector<T_IDRANGE_D>& rRanges) {
    std::sort(aExcepted.begin(), aExcepted.end(), [](const auto& a, const auto& b) { return a.iFIRST < b.iFIRST; });
    std::int64_t iNext = range.iFIRST;
    const auto addUpTo = [&](std::int64_t iLast) {
        if (iNext <= iLast) {
            rRanges.push_back(
                {static_cast<std::int32_t>(iNext), static_cast<std::int32_t>(iLast), range.iSTEP, range.bNAMED});
        }
    };
    for (const T_IDRANGE_D& rExcepted : aExcepted) {
        addUpTo(std::int64_t{rExcepted.iFIRST} - 1);
        const std::int64_t nOver = std::int64_t{rExcepted.iLAST} + 1 - iNext;
        if (nOver > 0) iNext += (nOver + range.iSTEP - 1) / range.iSTEP * range.iSTEP;
    }
    addUpTo(range.iLAST);
}

} // namespace

std::vector<T_IDRANGE_D> ReadIdList(const CCardFields& rCard, std::size_t i, std::size_t iEnd) {
    std::vector<T_IDRANGE_D> aRanges;
    while (i < iEnd) {
        if (rCard.IsBlank(i)) {
            ++i;
            continue;
        }
        T_IDRANGE_D range = ReadRange(rCard, i, iEnd);
        if (i + 1 < iEnd && rCard.Is(i, "BY")) {
            range.iSTEP = std::max(rCard.Int(i + 1, 1), 1);
            i += 2;
        }
        std::vector<T_IDRANGE_D> aExcepted;
        if (i < iEnd && rCard.Is(i, "EXCEPT")) {
            ++i;
            const auto isIn = [&] { return rCard.Int(i) >= range.iFIRST && rCard.Int(i) <= range.iLAST; };
            while (i < iEnd && (rCard.IsBlank(i) || (rCard.HasInt(i) && isIn()))) {
                if (rCard.IsBlank(i)) {
                    ++i;
                } else {
                    aExcepted.push_back(ReadRange(rCard, i, iEnd));
                }
            }
        }
        AddWithout(range, std::move(aExcepted), aRanges);
    }
    return aRanges;
}
