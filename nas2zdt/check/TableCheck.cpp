#include "nas2zdt/check/TableCheck.h"

#include <array>
#include <string>
#include <vector>

void CheckGrids(const CCheckDeck& rDeck, CCardCheck& rCheck, CFindings& rFindings) {
    const CDeckGrids& rGrids = rDeck.GetGrids();
    std::int32_t iFound = 0; // the frame that was found last
    for (std::uint32_t i = 0; i < rGrids.GetCount(); ++i) {
        const std::int32_t iID = rGrids.GetIds()[i];
        const T_GRIDKIND_D& rGrid = rGrids.GetKind(i);
        for (const std::int32_t iFrame : {rGrid.iCP, rGrid.iCD}) {
            if (iFrame <= 0 || iFrame == iFound) continue;
            rCheck.CheckTarget(TARGET_FRAME, iFrame, {"GRID", iID, rGrids.GetOrigin(i)});
            if (rDeck.GetFrames().GetCards().Has(iFrame)) iFound = iFrame;
        }
        const std::uint32_t iLast = rGrids.FindRow(iID);
        if (iLast == i) continue;
        const T_GRIDKIND_D& rLast = rGrids.GetKind(iLast);
        const bool bSame = rLast.iCP == rGrid.iCP && rLast.iCD == rGrid.iCD &&
                           rGrids.GetPosition(iLast) == rGrids.GetPosition(i) && rLast.nPS == rGrid.nPS;
        Tell(rFindings, bSame ? TWICE_SAME : TWICE, {"GRID", iID, rGrids.GetOrigin(iLast)},
             [&] { return "there is a GRID " + std::to_string(iID) + " at " + rDeck.GetPlace(rGrids.GetOrigin(i)); });
    }
}

namespace {

/// A property as the element before had it, since elements with one property stand together.
struct T_KNOWN_D {
    std::int32_t iPID = 0;
    const T_PROPERTY_D* pPROPERTY = nullptr;
};

/// Checks all elements of a deck.
class CElementCheck {
  public:
    CElementCheck(const CCheckDeck& rDeck, const CDeckIds& rIds, CCardCheck& rCheck, CFindings& rFindings)
        : m_rDeck(rDeck), m_rIds(rIds), m_rCheck(rCheck), m_rFindings(rFindings), m_aKnown(GetElementKinds().size()) {
        for (const T_ELEMENTKIND_D& rKind : GetElementKinds()) {
            m_aFamilies.push_back(FindFamilyOfElement(rKind.sKEYWORD));
        }
    }

    void Check() {
        for (const T_DECKELEMENT_D& rElement : m_rDeck.GetElements()) {
            for (const std::int32_t iNode : m_rDeck.GetNodes(rElement)) {
                if (!m_rIds.HasGrid(iNode) && iNode > 0) CheckNode(rElement, iNode);
            }
            if (rElement.iPID > 0) CheckProperty(rElement);
        }
        for (const T_ELEMENTUSE_D& rUse : m_rDeck.GetUses()) {
            m_rCheck.CheckTarget(rUse.eTARGET, rUse.iID, PlaceOf(m_rDeck.GetElements()[rUse.iROW]));
        }
    }

  private:
    static T_CARDPLACE_D PlaceOf(const T_DECKELEMENT_D& rElement) {
        return {rElement.GetKind().sKEYWORD, rElement.iEID, rElement.origin};
    }

    /// Links may have scalar points.
    void CheckNode(const T_DECKELEMENT_D& rElement, std::int32_t iNode) {
        const bool bLink = rElement.GetKind().eBODY == BODY_LINK;
        m_rCheck.CheckTarget(bLink ? TARGET_POINT : TARGET_GRID, iNode, PlaceOf(rElement));
    }

    void CheckProperty(const T_DECKELEMENT_D& rElement) {
        T_KNOWN_D& rKnown = m_aKnown[rElement.iKIND];
        if (rKnown.iPID != rElement.iPID) {
            const std::size_t iFamily = m_aFamilies[rElement.iKIND];
            if (iFamily == NO_FAMILY) return;
            rKnown = {rElement.iPID, m_rIds.FindProperty(iFamily, rElement.iPID)};
        }
        if (!rKnown.pPROPERTY) {
            m_rCheck.CheckTarget(TARGET_PROPERTY, rElement.iPID, PlaceOf(rElement));
        } else if (!rKnown.pPROPERTY->bTHICK && !rElement.bMORE) {
            Tell(m_rFindings, FIELD_BLANK, PlaceOf(rElement), [&] {
                return "neither it nor PSHELL " + std::to_string(rElement.iPID) + " (" +
                       m_rDeck.GetPlace(rKnown.pPROPERTY->origin) + ") has a thickness";
            });
        }
    }

    const CCheckDeck& m_rDeck;
    const CDeckIds& m_rIds;
    CCardCheck& m_rCheck;
    CFindings& m_rFindings;
    std::vector<T_KNOWN_D> m_aKnown;      // by kind of element
    std::vector<std::size_t> m_aFamilies; // likewise
};

} // namespace

void CheckElements(const CCheckDeck& rDeck, const CDeckIds& rIds, CCardCheck& rCheck, CFindings& rFindings) {
    CElementCheck(rDeck, rIds, rCheck, rFindings).Check();
}
