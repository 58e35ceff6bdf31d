// Goes through the model once for all that is checked of its geometry.

#include "nas2zdt/check/Geometry.h"

#include "nas2zdt/check/Coincidence.h"
#include "nas2zdt/check/Connectivity.h"
#include "nas2zdt/check/GeometryTold.h"
#include "nas2zdt/check/SameElements.h"
#include "nas2zdt/check/ShapeCheck.h"

#include <algorithm>
#include <array>

namespace {

/// Tells an element whose id comes again.
void TellSameId(const CCheckDeck& rDeck, const T_DECKELEMENT_D& rElement, const T_DECKELEMENT_D& rLast,
                CGeometryTold& rTold) {
    const bool bSame = rElement.iKIND == rLast.iKIND && rElement.iPID == rLast.iPID &&
                       std::ranges::equal(rDeck.GetNodes(rElement), rDeck.GetNodes(rLast));
    rTold.Tell(bSame ? GEOMETRY_SAME_CARD : GEOMETRY_SAME_ID, rElement,
               [&] { return rTold.Name(rLast) + (bSame ? " is the same" : " has the same id"); });
}

/// Goes through the elements once for all that is asked of them.
void CheckElements(const CCheckDeck& rDeck, CConnectivity& rConnectivity, CShapeCheck& rShapes, CGeometryTold& rTold) {
    constexpr std::size_t MOST_NODES = 20;
    const std::vector<T_DECKELEMENT_D>& rElements = rDeck.GetElements();
    const CDeckGrids& rGrids = rDeck.GetGrids();
    const std::span<const T_ELEMENTKIND_D> aKinds = GetElementKinds();
    CSameElements same(rDeck);
    same.Reserve(rElements.size());
    std::array<std::uint32_t, MOST_NODES> aRows;
    std::array<const T_VECTOR*, 8> aCorners;
    for (const T_DECKELEMENT_D& rElement : rElements) {
        const T_DECKELEMENT_D& rLast = *rDeck.FindElement(rElement.iEID);
        if (&rLast != &rElement) {
            TellSameId(rDeck, rElement, rLast, rTold);
            continue;
        }
        const E_BODY eBody = aKinds[rElement.iKIND].eBODY;
        const std::size_t nCorners = aKinds[rElement.iKIND].nCORNERS;
        const std::span<const std::int32_t> aNodes = rDeck.GetNodes(rElement);
        for (std::size_t i = 0; i < aNodes.size(); ++i) aRows[i] = rConnectivity.FindRow(aNodes[i]);
        const std::span<const std::uint32_t> aThere(aRows.data(), aNodes.size());
        rConnectivity.AddElement(rElement, eBody, aThere);
        same.Add(rElement, eBody, aNodes.first(nCorners));
        const bool bRepeated = rShapes.CheckNodes(rElement, eBody, aNodes);
        bool bPlaced = true;
        for (std::size_t i = 0; i < nCorners && bPlaced; ++i) {
            bPlaced = aRows[i] != CKeyIndex::NONE && rConnectivity.IsPlaced(aRows[i]);
            if (bPlaced) aCorners[i] = &rGrids.GetPosition(aRows[i]);
        }
        if (bPlaced && !rShapes.CheckShape(rElement, eBody, aCorners.data(), bRepeated)) rConnectivity.AddLink(aThere);
    }
    same.Tell(rTold);
}

} // namespace

std::vector<T_QUALITY_D> CheckGeometry(const CCheckDeck& rDeck, double dTolerance, CFindings& rFindings) {
    CGeometryTold told(rDeck, rFindings);
    CConnectivity connectivity(rDeck);
    CShapeCheck shapes(rDeck, told);
    CheckElements(rDeck, connectivity, shapes, told);
    CCardTaker* const pTaker = &connectivity;
    rDeck.Walk({&pTaker, 1});
    connectivity.TellFreeGrids(told);
    connectivity.TellParts(told);
    TellCoincident(rDeck, connectivity, dTolerance, shapes.GetMeanEdge(), told);
    told.Finish();
    return shapes.GetQualities();
}
