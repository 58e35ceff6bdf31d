// *ELASTICLINK and *SPRING: CELAS1 and CELAS2 between nodes that are apart, and to ground.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "writer/Springs.h"

/// The message keys of a kind of spring.
struct T_SPRINGKEYS_D {
    const char* sDIFFERENT;  // its components differ
    const char* sNOTCORRECT; // neither end has both grid and component
    const char* sNOFROM;     // its first grid is missing
    const char* sNOTO;       // its second grid is missing
};

namespace {

/// A link, or a spring to ground, that is ready to be written.
struct T_ELASTIC_D {
    std::int32_t iNODE1 = 0, iNODE2 = 0; // the second is 0 for ground
    std::array<double, 6> dK = {};
};

constexpr T_SPRINGKEYS_D CELAS1_KEYS = {
    "IDS_NASTRAN_C1_and_C2_of_CELAS1_is_different",
    "IDS_NASTRAN_CELAS1_C_G_Data_is_not_correct",
    "IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS1",
    "IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS1",
};
constexpr T_SPRINGKEYS_D CELAS2_KEYS = {
    "IDS_NASTRAN_C1_and_C2_of_CELAS2_is_different",
    "IDS_NASTRAN_CELAS2_C_G_Data_is_not_correct",
    "IDS_NASTRAN_Not_Existing_grid_is_assigned_from_grid_pt_of_CELAS2",
    "IDS_NASTRAN_Not_Existing_grid_is_assigned_to_grid_pt_of_CELAS2",
};

} // namespace

template <class SPRING>
int CConvertNastran::WriteElasticLinks(CFile& rFile, const CMap<SPRING>& rSprings, const T_SPRINGKEYS_D& rKeys) {
    if (rSprings.IsEmpty()) return 1;
    std::vector<T_ELASTIC_D> aLinks;
    std::vector<T_ELASTIC_D> aGrounded;
    for (const auto& [iID, rSpring] : rSprings.Walk()) {
        const bool bFrom = rSpring.iG1 != 0 && rSpring.iC1 != 0;
        const bool bTo = rSpring.iG2 != 0 && rSpring.iC2 != 0;
        const bool bLink = bFrom && bTo;
        if (bLink && rSpring.iC1 != rSpring.iC2) {
            LogMessage(g_pfnLoadStr(rKeys.sDIFFERENT), iID);
            continue;
        }
        if (!bFrom && !bTo) {
            LogMessage(g_pfnLoadStr(rKeys.sNOTCORRECT), iID, rSpring.iG1, rSpring.iC1, rSpring.iG2, rSpring.iC2);
            continue;
        }
        double dFrom[3], dTo[3];
        if (bFrom && !m_pDataPool->GetNodePosition(rSpring.iG1, dFrom)) {
            LogMessage(g_pfnLoadStr(rKeys.sNOFROM), iID, rSpring.iG1);
            continue;
        }
        if (bTo && !m_pDataPool->GetNodePosition(rSpring.iG2, dTo)) {
            LogMessage(g_pfnLoadStr(rKeys.sNOTO), iID, rSpring.iG2);
            continue;
        }
        const std::int32_t iFrom = m_pDataPool->MapNodeId(rSpring.iG1);
        const std::int32_t iTo = m_pDataPool->MapNodeId(rSpring.iG2);
        if (bLink && (iFrom == iTo || IsCoincident(dFrom, dTo))) continue; // becomes a general link
        double dK = 0.0, dGE = 0.0;
        if (!GetSpringValues(iID, rSpring, dK, dGE)) continue;
        const std::array<double, 6> dValues = ComponentValues(rSpring.iC1, rSpring.iC2, dK);
        if (bLink) {
            aLinks.push_back({iFrom, iTo, dValues});
        } else {
            aGrounded.push_back({bFrom ? iFrom : iTo, 0, dValues});
        }
    }
    if (!aLinks.empty()) WriteLine(rFile, "%s\n", "*ELASTICLINK");
    for (const auto& [iNode1, iNode2, k] : aLinks) {
        WriteLine(rFile, "%d, %d, GEN  , %g, %g, %g, %g, %g, %g, %g, NO, 0.5, 0.5, \n", iNode1, iNode2, 0.0, k[0], k[1],
                  k[2], k[3], k[4], k[5]);
    }
    if (!aGrounded.empty()) WriteLine(rFile, "%s\n", "*SPRING");
    for (const auto& [iNode, iGround, k] : aGrounded) {
        WriteLine(rFile, "%d, %g, %g, %g, %g, %g, %g, \n", iNode, k[0], k[1], k[2], k[3], k[4], k[5]);
    }
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteCelas1Links(CFile& rFile) {
    return WriteElasticLinks(rFile, m_pDataPool->CEL1, CELAS1_KEYS);
}

int CConvertNastran::WriteCelas2Links(CFile& rFile) {
    return WriteElasticLinks(rFile, m_pDataPool->CEL2, CELAS2_KEYS);
}
