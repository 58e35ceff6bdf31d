// *NODALMASS: the masses of CONM2.

#include "driver/CConvertNastran.h"

int CConvertNastran::WriteNodalMassSection(CFile& rFile) {
    if (m_pDataPool->ELEM.IsEmpty()) return 1;
    const auto isMass = [](std::uint16_t nTraits) { return nTraits == ElementTraits(TYPE_MASS, SHAPE_POINT); };
    const auto elements = m_pDataPool->ELEM.Walk(isMass);
    if (elements.GetCount() > 0) {
        WriteLine(rFile, "*NODALMASS    ; Nodal Masses\n");
        WriteLine(rFile, "; NODE_LIST, mX, mY, mZ, rmX, rmY, rmZ\n");
    }
    for (const auto& [iID, rElement] : elements) {
        const T_PROP_D* pMass = m_pDataPool->PROP.Find(rElement.iPID); // a CONM2 stores it with its element
        if (!pMass) continue;
        const auto& v = pMass->dVAL;
        WriteLine(rFile, "  %d, %g, %g, %g, %g, %g, %g\n", rElement.iNODE[0], v[7], v[11], v[12], v[1], v[3], v[6]);
    }
    return WriteLine(rFile, "\n"); // also in a model without masses
}
