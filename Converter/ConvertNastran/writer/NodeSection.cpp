// *NODE: every grid at its global position, by ascending id.

#include "driver/CConvertNastran.h"

int CConvertNastran::WriteNodeSection(CFile& rFile) {
    if (m_pDataPool->NODS.IsEmpty()) return 1;
    WriteLine(rFile, "*NODE\n");
    for (const auto& [iID, rNode] : m_pDataPool->NODS.Sorted()) {
        const std::int32_t iOut = m_pDataPool->MapNodeId(iID);
        const T_NODS_D* pNode = iOut == iID ? &rNode : m_pDataPool->NODS.Find(iOut);
        if (pNode) WriteLine(rFile, "  %d, %g, %g, %g\n", iOut, pNode->dGX, pNode->dGY, pNode->dGZ);
    }
    return WriteLine(rFile, "\n");
}
