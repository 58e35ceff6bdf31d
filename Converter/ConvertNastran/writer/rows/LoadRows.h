#pragma once
// Rows of the sections of a static load case, *LOADCOMB and *EIGEN-CTRL. A case is a load set; its entries come in card
// order.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

/// Components of a load whose absolute values sum up to this or less count as no load.
constexpr double NO_LOAD = 1e-20;

/// Whether a T_ELEM_D::iTYPE is of a plate.
constexpr bool IsPlateType(std::int32_t iType) {
    return iType == TYPE_SHEAR || iType == TYPE_PLATE;
}

/// A load case: a load set, which is named after its id.
struct T_LOADCASE_ROW {
    std::int32_t iSID;
    const T_LOAD_D& rSET;
};

/// *SELFWEIGHT.
struct T_GRAVITY_ROW {
    double dX, dY, dZ;
};

/// A force or a moment of *CONLOAD.
struct T_NODALLOAD_ROW {
    std::int32_t iNODE;
    double dX, dY, dZ;
};

/// *BEAMLOAD.
struct T_BEAMLOAD_ROW {
    std::int32_t iEID;
    std::string_view sLOAD, sDIRECTION, sPROJECTED;
    double dX1, dP1, dX2, dP2; // positions in fractions of the element's length
};

/// *PRESSURE with one value for a whole plate.
struct T_UNIFORMPRESSURE_ROW {
    std::int32_t iEID;
    double dP;
};

/// *PRESSURE with a value for each corner of a plate or of a solid's face.
struct T_CORNERPRESSURE_ROW {
    std::int32_t iEID;
    bool bSOLID;
    std::int32_t iFACE; // of a solid; 0 if the card names none
    bool bVECTOR;       // along dN, else normal to the surface
    std::array<double, 3> dN;
    std::array<double, 4> dP;
};

/// *NDTEMPER.
struct T_NODETEMPERATURE_ROW {
    std::int32_t iNODE;
    double dT;
};

/// *ELTEMPER.
struct T_ELEMENTTEMPERATURE_ROW {
    std::int32_t iEID;
    double dT;
};

/// *THERGRAD.
struct T_GRADIENT_ROW {
    std::int32_t iEID;
    double dTZ;
};

/// *SPDISP.
struct T_DISPLACEMENT_ROW {
    std::int32_t iNODE;
    std::array<char, 6> aMOVED; // 1 for a component that isn't 0
    std::array<double, 6> dD;
};

/// The row of a PLOAD1. With a second position it is a load on a stretch, else one at a point.
T_BEAMLOAD_ROW BeamLoad(const T_MBLD_D& rEntry, double dX1, double dX2);

/// The entry on a solid, or on a plate's corners.
T_CORNERPRESSURE_ROW SolidPressure(const T_MBLD_D& rEntry, const T_ELEM_D& rSolid);
T_CORNERPRESSURE_ROW PlatePressure(const T_MBLD_D& rEntry);

/// What is wrong with the face that an entry on a solid is written on, LEFT_COUNT if nothing is.
E_LEFT FaceLoss(const T_MBLD_D& rEntry, const T_ELEM_D& rSolid, std::int32_t iFace);

/// In store order.
template <class VISITOR>
void ForEachLoadCase(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const auto& [iSID, rSet] : rPool.LOAD.Walk()) rVisitor(T_LOADCASE_ROW{iSID, rSet});
}

template <class VISITOR>
void ForEachGravity(const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    if (rSet.bGRAV) rVisitor(T_GRAVITY_ROW{rSet.dGRAVX, rSet.dGRAVY, rSet.dGRAVZ});
}

/// Forces or moments, a walk over entries of that kind.
template <class WALK, class VISITOR>
void ForEachNodalLoad(const CDataPool& rPool, const WALK& rWalk, E_LOAD_KIND eKind, const VISITOR& rVisitor) {
    for (const T_MBLD_D& rEntry : rWalk) {
        const auto& d = rEntry.dV;
        const auto Tell = [&](E_LEFT eForce, E_LEFT eMoment) {
            const E_LEFT eReason = eKind == LOAD_FORCE ? eForce : eMoment;
            rVisitor(T_LEFT_D{.eREASON = eReason, .iID = rEntry.iID, .sKEYWORD = KeywordOf(rEntry)});
        };
        if (std::abs(d[0]) + std::abs(d[1]) + std::abs(d[2]) > NO_LOAD) {
            const T_NODALLOAD_ROW row{rPool.MapNodeId(rEntry.iID), d[0], d[1], d[2]};
            rVisitor(row);
            if (rPool.IsGridMissing(row.iNODE)) Tell(LEFT_FORCE_GRID, LEFT_MOMENT_GRID);
        } else {
            Tell(LEFT_FORCE_ZERO, LEFT_MOMENT_ZERO);
        }
    }
}

template <class VISITOR>
void ForEachNodalLoad(const CDataPool& rPool, const T_LOAD_D& rSet, E_LOAD_KIND eKind, const VISITOR& rVisitor) {
    ForEachNodalLoad(rPool, rSet.aMBLD.Walk(eKind), eKind, rVisitor);
}

/// The file has positions in fractions of the element's length: an entry that gives lengths on an element without one
/// is left out, even if it is zero.
template <class VISITOR>
void ForEachBeamLoad(const CDataPool& rPool, const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    const auto isHere = [](std::int8_t iKind) {
        return iKind == LOAD_BEAM_MOMENT || iKind == LOAD_BEAM_FORCE || iKind == LOAD_UNKNOWN;
    };
    for (const T_MBLD_D& rEntry : rSet.aMBLD.Walk(isHere)) {
        const std::int32_t iEID = rEntry.iID;
        if (rEntry.iKIND == LOAD_UNKNOWN) {
            rVisitor(T_LEFT_D{LEFT_PLOAD1_TYPE, iEID});
            continue;
        }
        double dX1 = rEntry.dV[0];
        double dX2 = rEntry.dV[2];
        if (rEntry.iSCALE != SCALE_FR && rEntry.iSCALE != SCALE_FPPR) {
            double dLength = 0.0;
            if (!rPool.ComputeElementLength(iEID, dLength)) {
                rVisitor(T_LEFT_D{LEFT_PLOAD1_ERROR, iEID});
                continue;
            }
            if (!(dLength > 0.0)) {
                rVisitor(T_LEFT_D{rPool.ELEM.Has(iEID) ? LEFT_PLOAD1_LENGTH : LEFT_PLOAD1_ELEMENT, iEID});
                continue;
            }
            dX1 /= dLength;
            dX2 /= dLength;
        }
        if (std::abs(rEntry.dV[1]) + std::abs(rEntry.dV[3]) <= NO_LOAD) {
            rVisitor(T_LEFT_D{LEFT_PLOAD1_ZERO, iEID});
        } else {
            rVisitor(BeamLoad(rEntry, dX1, dX2));
            if (rPool.IsElementMissing(iEID)) rVisitor(T_LEFT_D{LEFT_PLOAD1_NO_ELEMENT, iEID});
            if (rEntry.iSCALE == SCALE_OTHER) rVisitor(T_LEFT_D{LEFT_PLOAD1_SCALE, iEID});
            if (rEntry.dV[2] != 0.0 && rEntry.dV[0] == rEntry.dV[2]) rVisitor(T_LEFT_D{LEFT_PLOAD1_POINT, iEID});
        }
    }
}

/// An entry of PLOAD2 or PLOAD4 on an element of iType, 0 for none.
template <class VISITOR>
void VisitPressure(const CDataPool& rPool, const T_MBLD_D& rEntry, std::int32_t iType, const VISITOR& rVisitor) {
    const auto& d = rEntry.dV;
    const bool bCorners = rEntry.iFORM == FORM_CORNERS;
    if (std::abs(d[0]) + std::abs(d[1]) + std::abs(d[2]) + std::abs(d[3]) <= NO_LOAD) {
        rVisitor(T_LEFT_D{bCorners ? LEFT_PLOAD4_ZERO : LEFT_PLOAD2_ZERO, rEntry.iID});
    } else if (iType == TYPE_SOLID) {
        const T_ELEM_D solid = *rPool.ELEM.Find(rEntry.iID);
        const T_CORNERPRESSURE_ROW row = SolidPressure(rEntry, solid);
        rVisitor(row);
        const E_LEFT eLoss = FaceLoss(rEntry, solid, row.iFACE);
        if (eLoss != LEFT_COUNT) rVisitor(T_LEFT_D{eLoss, rEntry.iID, row.iFACE});
    } else if (!IsPlateType(iType)) {
        rVisitor(T_LEFT_D{bCorners ? LEFT_PLOAD4_ELEMENT : LEFT_PLOAD2_ELEMENT, rEntry.iID});
    } else if (bCorners) {
        rVisitor(PlatePressure(rEntry));
    } else {
        rVisitor(T_UNIFORMPRESSURE_ROW{rEntry.iID, d[0]});
    }
}

/// Pressures on plates and solids, a walk over entries of that kind. Elements are looked up in batches, so that their
/// cache misses overlap.
template <class WALK, class VISITOR>
void ForEachPressure(const CDataPool& rPool, const WALK& rWalk, const VISITOR& rVisitor) {
    constexpr std::size_t BATCH = 16;
    std::array<T_MBLD_D, BATCH> aEntries;
    std::array<std::int32_t, BATCH> aTypes;
    for (auto position = rWalk.begin(); position != rWalk.end();) {
        std::size_t nEntries = 0;
        for (; nEntries < BATCH && position != rWalk.end(); ++position) aEntries[nEntries++] = *position;
        for (std::size_t i = 0; i < nEntries; ++i) aTypes[i] = TypeOfTraits(rPool.ELEM.TraitsOf(aEntries[i].iID));
        for (std::size_t i = 0; i < nEntries; ++i) VisitPressure(rPool, aEntries[i], aTypes[i], rVisitor);
    }
}

template <class VISITOR>
void ForEachPressure(const CDataPool& rPool, const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    ForEachPressure(rPool, rSet.aMBLD.Walk(LOAD_PRESSURE), rVisitor);
}

/// The grids' own temperatures, then the default one for all others, by ascending id.
template <class VISITOR>
void ForEachNodeTemperature(const CDataPool& rPool, const T_LOADCASE_ROW& rCase, const VISITOR& rVisitor) {
    const T_LOAD_D& rSet = rCase.rSET;
    std::vector<std::int32_t> aGiven;
    if (rSet.bTEMPD) aGiven.reserve(rSet.aNTLD.GetSize());
    for (const T_NTLD_D& rEntry : rSet.aNTLD) {
        const std::int32_t iNode = rPool.MapNodeId(rEntry.iNODE);
        rVisitor(T_NODETEMPERATURE_ROW{iNode, rEntry.dTEMP});
        if (rPool.IsGridMissing(iNode)) rVisitor(T_LEFT_D{LEFT_TEMP_GRID, rEntry.iNODE});
        if (rSet.bTEMPD) aGiven.push_back(iNode);
    }
    if (!rSet.bTEMPD) return;
    std::sort(aGiven.begin(), aGiven.end());
    bool bTaken = false;
    for (const auto& [iID, rNode] : rPool.NODS.Sorted()) {
        const std::int32_t iNode = rPool.MapNodeId(iID);
        if (std::binary_search(aGiven.begin(), aGiven.end(), iNode)) continue;
        rVisitor(T_NODETEMPERATURE_ROW{iNode, rSet.dTEMPD});
        bTaken = true;
    }
    if (!bTaken) rVisitor(T_LEFT_D{LEFT_TEMPD, rCase.iSID});
}

/// Mean temperatures above 0.
template <class VISITOR>
void ForEachElementTemperature(const CDataPool& rPool, const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    for (const T_ETLD_D& rEntry : rSet.aETLD) {
        if (rEntry.dTBAR > 0.0) {
            rVisitor(T_ELEMENTTEMPERATURE_ROW{rEntry.iELEM, rEntry.dTBAR});
            if (rPool.IsElementMissing(rEntry.iELEM)) rVisitor(T_LEFT_D{LEFT_TEMPP1_ELEMENT, rEntry.iELEM});
        } else {
            rVisitor(T_LEFT_D{LEFT_TEMPP1_MEAN, rEntry.iELEM});
        }
    }
}

/// Gradients through plates.
template <class VISITOR>
void ForEachGradient(const CDataPool& rPool, const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    for (const T_ETLD_D& rEntry : rSet.aETLD) {
        if (rEntry.dT1 == rEntry.dT2) continue;
        if (IsPlateType(TypeOfTraits(rPool.ELEM.TraitsOf(rEntry.iELEM)))) {
            rVisitor(T_GRADIENT_ROW{rEntry.iELEM, rEntry.dT2 - rEntry.dT1});
        } else {
            rVisitor(T_LEFT_D{LEFT_TEMPP1_GRADIENT, rEntry.iELEM});
        }
    }
}

/// Enforced displacements.
template <class VISITOR>
void ForEachDisplacement(const CDataPool& rPool, const T_LOAD_D& rSet, const VISITOR& rVisitor) {
    for (const T_MBLD_D& rEntry : rSet.aMBLD.Walk(LOAD_DISPLACEMENT)) {
        T_DISPLACEMENT_ROW row{rPool.MapNodeId(rEntry.iID), {}, rEntry.dV};
        double dSum = 0.0;
        for (std::size_t i = 0; i < row.dD.size(); ++i) {
            row.aMOVED[i] = row.dD[i] != 0.0 ? '1' : '0';
            dSum += std::abs(row.dD[i]);
        }
        if (dSum > NO_LOAD) {
            rVisitor(row);
            if (rPool.IsGridMissing(row.iNODE)) rVisitor(T_LEFT_D{LEFT_SPCD_GRID, rEntry.iID});
        } else {
            rVisitor(T_LEFT_D{LEFT_SPCD_ZERO, rEntry.iID});
        }
    }
}

/// A load set and its factor in a combination.
struct T_SHARE_D {
    std::int32_t iSET;
    double dFACTOR;
};

/// A combination; the overall scale of its LOAD card has no place in the file.
struct T_COMBINATION_ROW {
    std::int32_t iSID;
    std::span<const T_SHARE_D> aSHARES; // at least one
};

/// A modal analysis.
struct T_EIGENCONTROL_ROW {
    std::int32_t nMODES;
};

/// By ascending id. Load sets that don't exist are left out, and combinations of which nothing is left.
template <class VISITOR>
void ForEachCombination(const CDataPool& rPool, const VISITOR& rVisitor) {
    std::vector<T_SHARE_D> aShares;
    for (const auto& [iSID, rCombination] : rPool.LDCB.Sorted()) {
        aShares.clear();
        auto pFactor = rCombination.aFACTORS.begin();
        for (const std::int32_t iSet : rCombination.aLOADS) {
            const double dFactor = *pFactor++;
            if (rPool.LOAD.Find(iSet)) {
                aShares.push_back({iSet, dFactor});
            } else {
                rVisitor(T_LEFT_D{rPool.LDCB.Find(iSet) ? LEFT_LOAD_LOAD : LEFT_LOAD_SET, iSID, iSet});
            }
        }
        if (!aShares.empty()) rVisitor(T_COMBINATION_ROW{iSID, aShares});
    }
}

/// The first EIGRL of the store; EIGB has no section.
template <class VISITOR>
void ForEachEigenControl(const CDataPool& rPool, const VISITOR& rVisitor) {
    for (const auto& [iSID, rRecord] : rPool.EIGB.Sorted()) rVisitor(T_LEFT_D{LEFT_EIGB, iSID});
    bool bFirst = true;
    for (const auto& [iSID, rRecord] : rPool.EIRL.Walk()) {
        if (bFirst) {
            rVisitor(T_EIGENCONTROL_ROW{rRecord.iND});
        } else {
            rVisitor(T_LEFT_D{LEFT_EIGRL, iSID});
        }
        bFirst = false;
    }
}
