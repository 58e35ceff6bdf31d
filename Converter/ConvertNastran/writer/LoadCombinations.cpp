// *LOADCOMB: the combinations of LOAD cards, by ascending id.

#include "driver/CConvertNastran.h"

/// Load sets that don't exist are left out, and combinations of which nothing is left. The overall scale of a LOAD card
/// has no place in the file: factors go out as they were given.
int CConvertNastran::WriteLoadCombinations(CFile& rFile) {
    if (m_pDataPool->LDCB.IsEmpty()) return 1;
    WriteLine(rFile, "*LOADCOMB    ; Combinations\n");
    for (const auto& [iSID, rCombination] : m_pDataPool->LDCB.Sorted()) {
        bool bFirst = true;
        auto pFactor = rCombination.aFACTORS.begin();
        for (const std::int32_t iSet : rCombination.aLOADS) {
            const double dFactor = *pFactor++;
            if (!m_pDataPool->LOAD.Find(iSet)) continue;
            if (bFirst) {
                WriteLine(rFile, "  NAME=LCB%d, GEN, ACTIVE, 0, \n", iSID);
                WriteLine(rFile, " ST, STLD%d, %g", iSet, dFactor);
                bFirst = false;
            } else {
                WriteLine(rFile, ", ST, STLD%d, %g", iSet, dFactor);
            }
        }
        if (!bFirst) WriteLine(rFile, "\n");
    }
    return WriteLine(rFile, "\n");
}
