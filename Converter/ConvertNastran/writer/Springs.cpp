// What the writers of springs, bushes and gaps share.

#include "writer/Springs.h"

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"

#include <cmath>

bool IsCoincident(const double (&a)[3], const double (&b)[3]) {
    return std::abs(a[0] - b[0]) < 1e-05 && std::abs(a[1] - b[1]) < 1e-05 && std::abs(a[2] - b[2]) < 1e-05;
}

std::array<double, 6> ComponentValues(std::int32_t iC1, std::int32_t iC2, double dValue) {
    std::array<double, 6> dValues = {};
    for (std::int32_t i = 1; i <= 6; ++i) {
        if (i == iC1 || i == iC2) dValues[static_cast<std::size_t>(i - 1)] = dValue;
    }
    return dValues;
}

/// Stiffness and damping of a spring. False, and a line in the log, if it has none.
bool CConvertNastran::GetSpringValues(std::int32_t iEID, const T_CEL1_D& rSpring, double& rK, double& rGE) {
    const T_PROP_D* pProperty = m_pDataPool->PROP.Find(rSpring.iPID); // whatever its kind
    if (!pProperty) {
        LogMessage(g_pfnLoadStr("IDS_NASTRAN_Not_Existing_PELAS_is_assigned_to_CELAS1"), iEID, rSpring.iPID);
        return false;
    }
    rK = pProperty->dVAL[0];
    rGE = pProperty->dVAL[1];
    if (rK != 0.0) return true;
    LogMessage(g_pfnLoadStr("IDS_NASTRAN_Stiffness_of_PELAS_for_CELEAS1_is_zero_value"), iEID, rSpring.iPID);
    return false;
}

bool CConvertNastran::GetSpringValues(std::int32_t iEID, const T_CEL2_D& rSpring, double& rK, double& rGE) {
    rK = rSpring.dK;
    rGE = rSpring.dGE;
    if (rK != 0.0) return true;
    LogMessage(g_pfnLoadStr("IDS_NASTRAN_Stiffness_of_CELEAS2_is_zero_value"), iEID);
    return false;
}

void WriteLinkVersion(CFile& rFile) {
    CConvertNastran::WriteLine(rFile, "*VERSION\n");
    CConvertNastran::WriteLine(rFile, "  6.4.1\n\n");
}
