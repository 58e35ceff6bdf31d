// Edit distances.

#include "nas2zdt/text/Similar.h"

#include "nas2zdt/text/Words.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace {

bool IsSame(char a, char b) {
    return ToUpper(a) == ToUpper(b);
}

/// How many letters have to be changed, put in, left out or swapped with the next one. Rows are those of the usual
/// table, of which swapping needs the last two.
std::size_t Distance(std::string_view sA, std::string_view sB) {
    std::vector<std::size_t> aLast, aRow(sB.size() + 1), aNext(sB.size() + 1);
    std::iota(aRow.begin(), aRow.end(), std::size_t{0});
    for (std::size_t i = 1; i <= sA.size(); ++i) {
        aNext[0] = i;
        for (std::size_t k = 1; k <= sB.size(); ++k) {
            aNext[k] = std::min({aRow[k] + 1, aNext[k - 1] + 1, aRow[k - 1] + !IsSame(sA[i - 1], sB[k - 1])});
            const bool bSwapped = i > 1 && k > 1 && IsSame(sA[i - 1], sB[k - 2]) && IsSame(sA[i - 2], sB[k - 1]);
            if (bSwapped) aNext[k] = std::min(aNext[k], aLast[k - 2] + 1);
        }
        aLast = std::exchange(aRow, aNext);
    }
    return aRow[sB.size()];
}

} // namespace

std::string_view FindSimilar(std::string_view sText, std::span<const std::string_view> aWords) {
    std::string_view sFound;
    std::size_t nLeast = sText.size() / 3 + 1;
    for (const std::string_view sWord : aWords) {
        if (sText.size() > 2 * sWord.size()) continue; // too far, and it may be of any length
        const std::size_t nDistance = Distance(sText, sWord);
        if (nDistance >= nLeast) continue;
        nLeast = nDistance;
        sFound = sWord;
    }
    return sFound;
}
