#pragma once
// Rows of *NODALMASS.

#include "store/DataPool.h"
#include "store/PropertySlots.h"
#include "writer/rows/ElementLosses.h"

#include <array>

struct T_MASS_ROW {
    std::int32_t iEID; // in no line
    std::int32_t iNODE;
    double dMX, dMY, dMZ;
    double dRMX, dRMY, dRMZ;
};

/// CONM2s in store order.
template <class VISITOR>
void ForEachMass(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isMass = [](std::uint16_t nTraits) { return TypeOfTraits(nTraits) == TYPE_MASS; };
    for (const auto& [iEID, rElement] : rPool.ELEM.Walk(isMass)) {
        const T_PROP_D* pMass = rPool.PROP.Find(rElement.iPID); // a CONM2 stores it with its element
        if (!pMass) {
            rVisitor(T_LEFT_D{LEFT_CONM2, iEID});
            continue;
        }
        TellMissingGrid(rPool, iEID, rElement, std::array{rElement.iNODE[0]}, rVisitor);
        const auto& d = pMass->dVAL;
        rVisitor(T_MASS_ROW{iEID, rElement.iNODE[0], d[SLOT_MX], d[SLOT_MY], d[SLOT_MZ], d[SLOT_I11], d[SLOT_I22],
                            d[SLOT_I33]});
    }
}
