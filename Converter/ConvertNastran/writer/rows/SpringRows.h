#pragma once
// Rows of *ELASTICLINK, *SPRING, *NL-PROP and *NL-LINK: springs, bushes and gaps. Each spring is looked at twice: apart
// nodes and ground make an elastic link or a spring, coincident nodes make a general link with any components.

#include "store/DataPool.h"
#include "store/PropertyRecords.h"
#include "writer/rows/ElementLosses.h"

#include <algorithm>
#include <array>
#include <type_traits>

using T_SIXVALUES = std::array<double, 6>; // of components 1 to 6

/// A spring between nodes that are apart.
struct T_ELASTICLINK_ROW {
    std::int32_t iEID, iPID; // in no line; a CELAS2 has property 0
    std::int32_t iNODE1, iNODE2;
    T_SIXVALUES dK;
};

/// A spring to ground.
struct T_GROUNDSPRING_ROW {
    std::int32_t iEID, iPID; // in no line; a CELAS2 has property 0
    std::int32_t iNODE;
    T_SIXVALUES dK;
};

/// A general link of no length.
struct T_POINTLINK_ROW {
    std::int32_t iEID, iNODE1, iNODE2;
    std::int32_t iGPROP; // number of its property's name
};

/// The same from a spring, with its property.
struct T_SCALARLINK_ROW : T_POINTLINK_ROW {
    T_SIXVALUES dK, dDAMP;
};

/// A general link turned about its own axis.
struct T_TURNEDLINK_ROW {
    std::int32_t iEID, iNODE1, iNODE2;
    std::int32_t iGPROP;
    double dANGLE; // degrees
};

struct T_BUSHPROPERTY_ROW {
    std::int32_t iGPROP;
    T_SIXVALUES dK, dB;
};

struct T_GAPPROPERTY_ROW {
    std::int32_t iGPROP;
    T_SIXVALUES dK, dOPEN;
};

/// Whether the positions of two grids differ by less than 1e-05 in each coordinate, the length unit of the model. A
/// missing grid counts as the origin.
bool AreCoincident(const CDataPool& rPool, std::int32_t iNode1, std::int32_t iNode2);

/// dValue for the components iC1 and iC2, zero for the others of 1 to 6.
T_SIXVALUES ComponentValues(std::int32_t iC1, std::int32_t iC2, double dValue);

/// Angle of a bush or gap.
double LinkAngle(const CDataPool& rPool, const T_ELEM_D& rElement);

/// What is wrong with the angle of a bush or gap, LEFT_COUNT if nothing is.
E_LEFT AngleLoss(const CDataPool& rPool, const T_ELEM_D& rElement, double dAngle);

/// The CD whose axes the orientation vector of a bush or gap is given in, if they aren't the basic ones, else 0.
std::int32_t FindVectorAxes(const CDataPool& rPool, const T_ELEM_D& rElement);

T_BUSHPROPERTY_ROW BushProperty(std::int32_t iPID, const T_PROP_D& rProperty);
T_GAPPROPERTY_ROW GapProperty(std::int32_t iPID, const T_PROP_D& rProperty);

/// Largest id of a property, at least 0.
std::int32_t MaxPropertyId(const CDataPool& rPool);

/// The reason for a CELAS1 or the one for a CELAS2.
template <class SPRING>
constexpr E_LEFT SpringReason(E_LEFT eCelas1, E_LEFT eCelas2) {
    return std::is_same_v<SPRING, T_CEL1_D> ? eCelas1 : eCelas2;
}

/// Stiffness and damping of a spring. LEFT_COUNT, or why it has none.
inline E_LEFT GetSpringValues(const CDataPool& rPool, const T_CEL1_D& rSpring, double& rK, double& rGE) {
    const T_PROP_D* pProperty = rPool.PROP.Find(rSpring.iPID); // of any kind
    if (!pProperty) return LEFT_CELAS1_PELAS;
    rK = pProperty->dVAL[SLOT_K];
    rGE = pProperty->dVAL[SLOT_GE];
    return rK != 0.0 ? LEFT_COUNT : LEFT_CELAS1_ZERO;
}
inline E_LEFT GetSpringValues(const CDataPool&, const T_CEL2_D& rSpring, double& rK, double& rGE) {
    rK = rSpring.dK;
    rGE = rSpring.dGE;
    return rK != 0.0 ? LEFT_COUNT : LEFT_CELAS2_ZERO;
}

inline std::int32_t PropertyOf(const T_CEL1_D& rSpring) {
    return rSpring.iPID;
}
inline std::int32_t PropertyOf(const T_CEL2_D&) {
    return 0;
}

/// Whether a spring is a general link: between grids that exist and coincide, with any components.
template <class SPRING>
bool IsScalarLink(const CDataPool& rPool, const SPRING& rSpring) {
    return rPool.NODS.Has(rSpring.iG1) && rPool.NODS.Has(rSpring.iG2) && AreCoincident(rPool, rSpring.iG1, rSpring.iG2);
}

/// Links and springs to ground among each other, in store order. A spring that is left out may still be
/// a scalar link.
template <class SPRING, class VISITOR>
void ForEachElasticLink(const CDataPool& rPool, const CMap<SPRING>& rSprings, const VISITOR& rVisitor) {
    for (const auto& [iEID, rSpring] : rSprings.Walk()) {
        const auto Leave = [&, iID = iEID, &rLeft = rSpring](E_LEFT eReason, std::int32_t iOther = 0) {
            rVisitor(T_LEFT_D{eReason, iID, iOther, 1, IsScalarLink(rPool, rLeft)});
        };
        const bool bFrom = rSpring.iG1 != 0 && rSpring.iC1 != 0;
        const bool bTo = rSpring.iG2 != 0 && rSpring.iC2 != 0;
        const bool bLink = bFrom && bTo;
        const std::int32_t iFrom = rPool.MapNodeId(rSpring.iG1);
        const std::int32_t iTo = rPool.MapNodeId(rSpring.iG2);
        double dK = 0.0, dGE = 0.0;
        if (bLink && rSpring.iC1 != rSpring.iC2) {
            Leave(SpringReason<SPRING>(LEFT_CELAS1_DOF, LEFT_CELAS2_DOF));
        } else if (!bFrom && !bTo) {
            Leave(SpringReason<SPRING>(LEFT_CELAS1_ENDS, LEFT_CELAS2_ENDS));
        } else if (bFrom && !rPool.NODS.Has(rSpring.iG1)) {
            Leave(SpringReason<SPRING>(LEFT_CELAS1_GRID1, LEFT_CELAS2_GRID1), rSpring.iG1);
        } else if (bTo && !rPool.NODS.Has(rSpring.iG2)) {
            Leave(SpringReason<SPRING>(LEFT_CELAS1_GRID2, LEFT_CELAS2_GRID2), rSpring.iG2);
        } else if (bLink && (iFrom == iTo || AreCoincident(rPool, rSpring.iG1, rSpring.iG2))) {
            Leave(SpringReason<SPRING>(LEFT_CELAS1_PLACE, LEFT_CELAS2_PLACE));
        } else if (const E_LEFT eReason = GetSpringValues(rPool, rSpring, dK, dGE); eReason != LEFT_COUNT) {
            Leave(eReason, PropertyOf(rSpring));
        } else {
            const T_SIXVALUES dValues = ComponentValues(rSpring.iC1, rSpring.iC2, dK);
            if (bLink) {
                rVisitor(T_ELASTICLINK_ROW{iEID, PropertyOf(rSpring), iFrom, iTo, dValues});
            } else {
                rVisitor(T_GROUNDSPRING_ROW{iEID, PropertyOf(rSpring), bFrom ? iFrom : iTo, dValues});
            }
            if (dGE != 0.0) rVisitor(T_LEFT_D{SpringReason<SPRING>(LEFT_CELAS1_GE, LEFT_CELAS2_GE), iEID});
        }
    }
}

/// The scalar links of a kind of spring, in store order. numberOf(spring) gives the number of its property's name.
template <class SPRING, class NUMBER, class VISITOR>
void ForEachScalarLinkOf(const CDataPool& rPool, const CMap<SPRING>& rSprings, NUMBER numberOf,
                         const VISITOR& rVisitor) {
    for (const auto& [iEID, rSpring] : rSprings.Walk()) {
        if (!IsScalarLink(rPool, rSpring)) continue;
        double dK = 0.0, dGE = 0.0;
        const E_LEFT eReason = GetSpringValues(rPool, rSpring, dK, dGE);
        if (eReason != LEFT_COUNT) {
            rVisitor(T_LEFT_D{eReason, iEID, PropertyOf(rSpring)});
            continue;
        }
        const T_POINTLINK_ROW link{iEID, rPool.MapNodeId(rSpring.iG1), rPool.MapNodeId(rSpring.iG2), numberOf(rSpring)};
        rVisitor(T_SCALARLINK_ROW{link, ComponentValues(rSpring.iC1, rSpring.iC2, dK),
                                  ComponentValues(rSpring.iC1, rSpring.iC2, dGE)});
        if (rSpring.iC1 != rSpring.iC2) {
            rVisitor(T_LEFT_D{SpringReason<SPRING>(LEFT_CELAS1_BOTH, LEFT_CELAS2_BOTH), iEID});
        }
    }
}

/// CELAS1, then CELAS2. These have no property: their numbers go on behind the largest id of one, and wrap at the end.
template <class VISITOR>
void ForEachScalarLink(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto ownNumber = [](const T_CEL1_D& rSpring) { return rSpring.iPID; };
    ForEachScalarLinkOf(rPool, rPool.CEL1, ownNumber, rVisitor);
    if (rPool.CEL2.IsEmpty()) return;
    auto iNext = static_cast<std::uint32_t>(MaxPropertyId(rPool));
    const auto nextNumber = [&](const T_CEL2_D&) { return static_cast<std::int32_t>(++iNext); };
    ForEachScalarLinkOf(rPool, rPool.CEL2, nextNumber, rVisitor);
}

/// PBUSH and PGAP in store order.
template <class VISITOR>
void ForEachLinkProperty(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isLink = [](const T_PROP_D& r) { return r.iPROPTYPE == PROP_BUSH || r.iPROPTYPE == PROP_GAP; };
    for (const auto& [iPID, rProperty] : rPool.PROP.Walk(isLink)) {
        if (rProperty.iPROPTYPE == PROP_BUSH) {
            rVisitor(BushProperty(iPID, rProperty));
        } else {
            rVisitor(GapProperty(iPID, rProperty));
        }
    }
}

/// Tells what of a bush or gap isn't in its row.
template <class VISITOR>
void TellLinkLosses(const CDataPool& rPool, std::int32_t iEID, const T_ELEM_D& rElement, double dAngle,
                    const VISITOR& rVisitor) {
    const std::array aNodes = {rElement.iNODE[0], rElement.iNODE[1], rElement.iG0};
    const auto Tell = [&](E_LEFT eReason, std::int32_t iOther = 0) {
        rVisitor(ElementLoss(eReason, iEID, rElement, iOther));
    };
    if (aNodes[1] == 0) Tell(LEFT_LINK_GROUND);
    for (std::size_t i = 0; i < aNodes.size(); ++i) {
        if (i > 0 && aNodes[i] == 0) continue; // ground, or no orientation grid
        if (rPool.IsGridMissing(aNodes[i])) Tell(LEFT_ELEMENT_GRID, aNodes[i]);
    }
    if (rPool.IsPropertyMissing(rElement.iPID)) TellMissingProperty(iEID, rElement, rVisitor);
    if (const std::int32_t iCD = FindVectorAxes(rPool, rElement); iCD != 0) Tell(LEFT_LINK_AXES, iCD);
    if (const E_LEFT eLoss = AngleLoss(rPool, rElement, dAngle); eLoss != LEFT_COUNT) Tell(eLoss);
}

/// CBUSH and CGAP by ascending id. A missing grid counts as the origin.
template <class VISITOR>
void ForEachGeneralLink(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isLink = [](std::uint16_t nTraits) {
        return TypeOfTraits(nTraits) == TYPE_BUSH || TypeOfTraits(nTraits) == TYPE_GAP;
    };
    for (const auto& [iEID, rElement] : rPool.ELEM.Sorted(isLink)) {
        const std::int32_t iNode1 = rElement.iNODE[0];
        const std::int32_t iNode2 = rElement.iNODE[1];
        double dAngle = 0.0;
        if (rElement.iTYPE == TYPE_GAP && AreCoincident(rPool, iNode1, iNode2)) {
            rVisitor(T_POINTLINK_ROW{iEID, iNode1, iNode2, rElement.iPID});
        } else {
            dAngle = LinkAngle(rPool, rElement);
            rVisitor(T_TURNEDLINK_ROW{iEID, iNode1, iNode2, rElement.iPID, dAngle});
        }
        if (rPool.m_pLeftSink) TellLinkLosses(rPool, iEID, rElement, dAngle, rVisitor);
    }
}
