#include "nas2zdt/check/FaceCheck.h"

#include "nas2zdt/check/Measure.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

std::size_t FindCorner(std::span<const std::int32_t> aCorners, std::int32_t iGrid) {
    const auto pFound = std::ranges::find(aCorners, iGrid);
    return pFound == aCorners.end() ? NOWHERE : static_cast<std::size_t>(pFound - aCorners.begin());
}

/// Whether two corners are on a face: opposite, or any two of a face of three.
bool NameFace(E_BODY eBody, std::size_t iCorner, std::size_t iOther) {
    for (std::int32_t iFace = 1; iFace <= 6; ++iFace) {
        const std::span<const std::uint8_t> aFace = FaceCorners(eBody, iFace);
        const auto pFirst = std::ranges::find(aFace, iCorner), pSecond = std::ranges::find(aFace, iOther);
        if (pFirst == aFace.end() || pSecond == aFace.end()) continue;
        if (aFace.size() == 3 || std::abs(pFirst - pSecond) == 2) return true;
    }
    return false;
}

std::string NameElement(const T_DECKELEMENT_D& rElement) {
    return std::string(rElement.GetKind().sKEYWORD) + " " + std::to_string(rElement.iEID);
}

/// What is wrong with the face, empty for nothing.
std::string FindFault(const CCheckDeck& rDeck, const T_DECKELEMENT_D& rElement, std::int32_t iFirst,
                      std::int32_t iOther) {
    const E_BODY eBody = rElement.GetKind().eBODY;
    const std::span<const std::int32_t> aCorners = rDeck.GetCorners(rElement);
    if (iFirst == 0) return "no G1 names a face of " + NameElement(rElement);
    if (FindCorner(aCorners, iFirst) == NOWHERE) {
        return "G1 " + std::to_string(iFirst) + " isn't a corner of " + NameElement(rElement);
    }
    if (iOther == 0) { // enough for a face of three corners
        return eBody == BODY_WEDGE || eBody == BODY_PYRAMID ? ""
                                                            : "no G3 or G4 names a face of " + NameElement(rElement);
    }
    if (FindCorner(aCorners, iOther) == NOWHERE) {
        return "G3 or G4 " + std::to_string(iOther) + " isn't a corner of " + NameElement(rElement);
    }
    // a tetrahedron's second grid is the corner that isn't on the face; corners may be there twice in collapsed bodies
    const bool bSame = iFirst == iOther;
    if (eBody == BODY_TETRA ? !bSame : bSame ? eBody == BODY_WEDGE : eBody == BODY_PYRAMID) return {};
    for (std::size_t i = 0; i < aCorners.size() && !bSame; ++i) {
        for (std::size_t k = 0; k < aCorners.size(); ++k) {
            if (aCorners[i] == iFirst && aCorners[k] == iOther && NameFace(eBody, i, k)) return {};
        }
    }
    return "GRID " + std::to_string(iFirst) + " and " + std::to_string(iOther) + " name no face of " +
           NameElement(rElement);
}

} // namespace

void CheckFace(const CCheckDeck& rDeck, const CCardFields& rCard, const T_CARDPLACE_D& rPlace, CFindings& rFindings) {
    if (rCard.Is(6, "THRU") || !rCard.HasInt(1)) return;
    const T_DECKELEMENT_D* const pElement = rDeck.FindElement(rCard.Int(1));
    if (!pElement || BODY_CORNERS[pElement->GetKind().eBODY] < 4 || pElement->GetKind().eBODY == BODY_QUAD) return;
    std::string sFault = FindFault(rDeck, *pElement, rCard.Int(6), rCard.Int(7));
    if (!sFault.empty()) Tell(rFindings, REFERENCE_FACE, rPlace, [&] { return sFault; });
}
