// Finds elements with the same corners.

#include "nas2zdt/check/SameElements.h"

#include "nas2zdt/check/KeySort.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace {

/// What is compared, in the order that brings those together that are the same.
struct T_CORNERS_D {
    E_BODY eBODY;
    std::array<std::int32_t, 8> aCORNERS = {}; // ascending, behind zeros
    std::int32_t iPID;
    std::uint32_t iPLACE;

    auto Corners() const { return std::tie(eBODY, aCORNERS); }
    bool operator<(const T_CORNERS_D& r) const {
        return std::tie(eBODY, aCORNERS, iPID, iPLACE) < std::tie(r.eBODY, r.aCORNERS, r.iPID, r.iPLACE);
    }
};

} // namespace

void CSameElements::Add(const T_DECKELEMENT_D& rElement, E_BODY eBody, std::span<const std::int32_t> aCorners) {
    if (eBody == BODY_LINK) return;
    std::uint64_t nSum = eBody; // the order of the corners doesn't matter
    for (const std::int32_t iGrid : aCorners) nSum += Scatter(static_cast<std::uint32_t>(iGrid));
    const auto iPlace = static_cast<std::uint32_t>(&rElement - m_rDeck.GetElements().data());
    m_aEntries.push_back(MakeKeyed(static_cast<std::uint32_t>(nSum >> 32), iPlace));
}

void CSameElements::Tell(CGeometryTold& rTold) {
    KeepRepeated(m_aEntries);
    SortByKey(m_aEntries);
    VisitSameKeys(m_aEntries, [&](std::size_t iFirst, std::size_t iEnd) { TellRun(iFirst, iEnd, rTold); });
}

/// Entries of one key may still differ.
void CSameElements::TellRun(std::size_t iFirst, std::size_t iEnd, CGeometryTold& rTold) {
    std::vector<T_CORNERS_D> aSorted;
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        const T_DECKELEMENT_D& rElement = m_rDeck.GetElements()[GetValue(m_aEntries[i])];
        T_CORNERS_D corners = {rElement.GetKind().eBODY, {}, rElement.iPID, GetValue(m_aEntries[i])};
        std::ranges::copy(m_rDeck.GetCorners(rElement), corners.aCORNERS.begin());
        std::ranges::sort(corners.aCORNERS);
        aSorted.push_back(corners);
    }
    std::sort(aSorted.begin(), aSorted.end());
    std::size_t iOther = 0; // the first with the same corners, then the first that has the same property, too
    for (std::size_t i = 1; i < aSorted.size(); ++i) {
        const bool bSame = aSorted[i].Corners() == aSorted[i - 1].Corners();
        if (!bSame) {
            iOther = i;
            continue;
        }
        const bool bProperty = aSorted[i].iPID == aSorted[i - 1].iPID && aSorted[i].eBODY != BODY_LINE;
        const T_DECKELEMENT_D& rElement = m_rDeck.GetElements()[aSorted[i].iPLACE];
        const T_DECKELEMENT_D& rOther = m_rDeck.GetElements()[aSorted[bProperty ? i - 1 : iOther].iPLACE];
        rTold.Tell(bProperty ? GEOMETRY_SAME_ELEMENT : GEOMETRY_SAME_CORNERS, rElement, [&] {
            return rTold.Name(rOther) + (aSorted[i].eBODY == BODY_LINE ? " has the same ends"
                                         : bProperty                   ? " has the same corners and property"
                                                                       : " has the same corners");
        });
    }
}
