// *CONSTRAINT: grids held down by SPC and SPC1, then by the PS field of their GRID.

#include "driver/CConvertNastran.h"
#include "writer/DofText.h"

#include <utility>

int CConvertNastran::WriteConstraintSection(CFile& rFile) {
    if (m_pDataPool->CNST.IsEmpty()) return 1; // PS constraints alone don't make the section
    WriteLine(rFile, "*CONSTRAINT\n");
    const auto sets = std::as_const(m_pDataPool->CNST).Walk();
    for (const T_CNND_D& rGrid : (*sets.begin()).second.aCNND) { // the first set stands for all
        WriteLine(rFile, "%5d, %s\n", m_pDataPool->MapNodeId(rGrid.iNODE), DofText(rGrid.bDOF));
    }
    const auto held = [](std::uint16_t nTraits) { return (nTraits & NODE_HELD) != 0; };
    for (const auto& [iID, rNode] : m_pDataPool->NODS.Walk(held)) {
        WriteLine(rFile, "%5d, %s\n", m_pDataPool->MapNodeId(iID), DofText(rNode.bPS));
    }
    return WriteLine(rFile, "\n");
}
