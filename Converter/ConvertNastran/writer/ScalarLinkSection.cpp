// *NL-PROP and *NL-LINK from CELAS1 and CELAS2 between coincident nodes.

#include "driver/CConvertNastran.h"
#include "writer/Springs.h"

#include <algorithm>

/// A spring between coincident nodes.
struct T_SCALARLINK_D {
    std::int32_t iEID = 0;
    std::int32_t iGPROP = 0; // number of its property's name
    std::int32_t iNODE1 = 0, iNODE2 = 0;
    std::array<double, 6> dK = {}, dDAMP = {}; // stiffness and damping of the six components
};

/// Largest id of a property, at least 0.
std::int32_t CConvertNastran::MaxPropertyId() const {
    std::int32_t iMax = 0;
    m_pDataPool->PROP.ForEach([&](std::int32_t iPID, const T_PROP_D&) { iMax = std::max(iMax, iPID); });
    return iMax;
}

/// The springs between coincident nodes, whatever their components: so one that the elastic links refused for its
/// components is here. Properties and links ask for them each on its own, and so log each refusal again.
std::vector<T_SCALARLINK_D> CConvertNastran::SelectScalarLinks() {
    std::vector<T_SCALARLINK_D> aLinks;
    const auto select = [&](const auto& rSprings, auto propertyOf) {
        for (const auto& [iID, rSpring] : rSprings.Walk()) {
            double dFrom[3], dTo[3];
            if (!m_pDataPool->GetNodePosition(rSpring.iG1, dFrom)) continue;
            if (!m_pDataPool->GetNodePosition(rSpring.iG2, dTo)) continue;
            if (!IsCoincident(dFrom, dTo)) continue;
            double dK = 0.0, dGE = 0.0;
            if (!GetSpringValues(iID, rSpring, dK, dGE)) continue;
            aLinks.push_back({iID, propertyOf(rSpring), m_pDataPool->MapNodeId(rSpring.iG1),
                              m_pDataPool->MapNodeId(rSpring.iG2), ComponentValues(rSpring.iC1, rSpring.iC2, dK),
                              ComponentValues(rSpring.iC1, rSpring.iC2, dGE)});
        }
    };
    select(m_pDataPool->CEL1, [](const T_CEL1_D& rSpring) { return rSpring.iPID; });
    if (m_pDataPool->CEL2.IsEmpty()) return aLinks;
    auto iNext = static_cast<std::uint32_t>(MaxPropertyId()); // a CELAS2 has no property; its number wraps at the end
    select(m_pDataPool->CEL2, [&](const T_CEL2_D&) { return static_cast<std::int32_t>(++iNext); });
    return aLinks;
}

int CConvertNastran::WriteScalarProperties(CFile& rFile) {
    const std::vector<T_SCALARLINK_D> aLinks = SelectScalarLinks();
    if (aLinks.empty()) return 1;
    WriteLinkVersion(rFile);
    WriteLine(rFile, "*NL-PROP    ; General Link Property\n");
    for (const T_SCALARLINK_D& rLink : aLinks) {
        WriteLine(rFile, " GPROP%d, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n", rLink.iGPROP);
        for (std::size_t i = 0; i < 6; ++i) {
            const bool bActive = rLink.dK[i] != 0.0 || rLink.dDAMP[i] != 0.0;
            WriteLine(rFile, " %s, %g, %g, NO\n", bActive ? "YES" : "NO", rLink.dK[i], rLink.dDAMP[i]);
        }
    }
    WriteFileVersion(rFile);
    return WriteLine(rFile, "\n");
}

int CConvertNastran::WriteScalarLinks(CFile& rFile) {
    const std::vector<T_SCALARLINK_D> aLinks = SelectScalarLinks();
    if (aLinks.empty()) return 1;
    WriteLinkVersion(rFile);
    WriteLine(rFile, "*NL-LINK  ; General Link\n");
    for (const T_SCALARLINK_D& rLink : aLinks) {
        WriteLine(rFile, "%d, %d, %d, GPROP%d, , 1, 0, 0, 0, 0, \n", rLink.iEID, rLink.iNODE1, rLink.iNODE2,
                  rLink.iGPROP);
    }
    WriteFileVersion(rFile);
    return WriteLine(rFile, "\n");
}
