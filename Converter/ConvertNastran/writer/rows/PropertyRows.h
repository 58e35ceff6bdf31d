#pragma once
// Rows of *MATERIAL, *SECTION and *THICKNESS.

#include "store/DataPool.h"
#include "store/PropertyRecords.h"
#include "writer/rows/RowVisitor.h"

#include <array>
#include <set>

/// MAT1.
struct T_ISOTROPIC_ROW {
    std::int32_t iMID;
    double dE, dNU, dALPHA;
};

/// MAT8.
struct T_ORTHOTROPIC_ROW {
    std::int32_t iMID;
    double dE1, dE2;
    double dALPHA1, dALPHA2;
    double dG12, dG1Z, dG2Z;
    double dNU;
};

/// MAT4.
struct T_THERMAL_ROW {
    std::int32_t iMID;
    double dCP, dK;
};

/// Tells the properties whose material isn't among those that are written.
template <class VISITOR>
void TellPropertiesWithoutMaterial(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto lacksMaterial = [&](const T_PROP_D& r) { return HasMaterial(r) && rPool.IsMaterialMissing(r.iMID); };
    for (const auto& [iPID, r] : rPool.PROP.Sorted(lacksMaterial)) {
        rVisitor(T_LEFT_D{.eREASON = LEFT_PROPERTY_MATERIAL, .iID = iPID, .iOTHER = r.iMID, .sKEYWORD = KeywordOf(r)});
    }
}

/// Tells the properties that no element has of those whose material, or all of them, is in the lines of elements. These
/// come before and have marked theirs.
template <class VISITOR>
void TellUnusedProperties(const CDataPool& rPool, const VISITOR& rVisitor) {
    std::set<std::int32_t> springs;
    rPool.CEL1.ForEach([&](std::int32_t, const T_CEL1_D& rSpring) { springs.insert(rSpring.iPID); });
    const auto needsElement = [](const T_PROP_D& r) { return HasMaterial(r) || r.iPROPTYPE == PROP_ELAS; };
    for (const auto& [iPID, r] : rPool.PROP.Sorted(needsElement)) {
        if (r.iPROPTYPE == PROP_ELAS ? springs.contains(iPID) : r.IsUsed()) continue;
        rVisitor(T_LEFT_D{.eREASON = LEFT_PROPERTY_UNUSED, .iID = iPID, .sKEYWORD = KeywordOf(r)});
    }
}

/// In store order.
template <class VISITOR>
void ForEachMaterial(const CDataPool& rPool, const VISITOR& rVisitor) {
    if (rPool.m_pLeftSink) {
        TellPropertiesWithoutMaterial(rPool, rVisitor);
        TellUnusedProperties(rPool, rVisitor);
    }
    for (const auto& [iMID, r] : rPool.MATL.Walk()) {
        switch (r.iMATTYPE) {
        case MAT_ISOTROPIC:
            rVisitor(T_ISOTROPIC_ROW{iMID, r.dE, r.dNU, r.dALPHA});
            break;
        case MAT_ORTHOTROPIC:
            rVisitor(T_ORTHOTROPIC_ROW{iMID, r.dE, r.dE2, r.dALPHA, r.dALPHA2, r.dG, r.dG1Z, r.dG2Z, r.dNU});
            break;
        case MAT_THERMAL:
            rVisitor(T_THERMAL_ROW{iMID, r.dCP, r.dK});
            break;
        }
    }
}

/// Stiffness of a section, or of an end of one.
struct T_STIFFNESS_D {
    double dSIDE; // of a square of its area
    double dA;
    double dAS1, dAS2; // shear areas
    double dJ;
    double dI1, dI2;
};

/// A section given by its stiffness.
struct T_VALUESECTION_ROW {
    std::int32_t iPID;
    T_STIFFNESS_D stiffness;
};

/// A section whose ends differ.
struct T_TAPEREDSECTION_ROW {
    std::int32_t iPID;
    T_STIFFNESS_D endA, endB;
};

/// Shapes of the file.
enum E_SECTION_SHAPE {
    SECTION_RECTANGLE, // 2 dimensions
    SECTION_BOX,       // 4
    SECTION_ROUND,     // 1
    SECTION_PIPE,      // 2
    SECTION_I,         // 6
    SECTION_H,         // 4, as its flanges are alike
    SECTION_CHANNEL,   // 4
    SECTION_T,         // 4
};

/// A section given by the dimensions of a shape.
struct T_SHAPESECTION_ROW {
    std::int32_t iPID;
    E_SECTION_SHAPE eSHAPE;
    std::array<double, 6> dDIM; // in the order of the file
};

/// A thickness, or two: without the second the plate doesn't bend.
struct T_THICKNESS_ROW {
    std::int32_t iPID;
    double dIN;
    bool bOUT;
    double dOUT;
};

/// Stiffness of a PROD: it has no shear areas and no moments of inertia.
T_STIFFNESS_D RodStiffness(const T_PROP_D& rProperty);

/// Stiffness of a PBAR or of the end of a PBEAM whose slots begin at iEnd.
T_STIFFNESS_D EndStiffness(const T_PROP_D& rProperty, std::size_t iEnd = 0);

/// The pipe of a PTUBE.
T_SHAPESECTION_ROW TubeSection(std::int32_t iPID, const T_PROP_D& rProperty);

/// The shape of a PBARL. False for one that the file doesn't know.
bool FindShapeSection(const T_PROP_D& rProperty, T_SHAPESECTION_ROW& rRow);

/// What is wrong with a section of that shape, LEFT_COUNT if nothing is.
E_LEFT ShapeLoss(const T_PROP_D& rProperty);

/// In store order. Without a shape, also by a TYPE that isn't known, a PBARL is a section of values.
template <class VISITOR>
void ForEachSection(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isHere = [](const T_PROP_D& r) {
        return r.iPROPTYPE == PROP_ROD || r.iPROPTYPE == PROP_BAR || r.iPROPTYPE == PROP_TUBE ||
               r.iPROPTYPE == PROP_BEAM || r.iPROPTYPE == PROP_BEND;
    };
    for (const auto& [iPID, rProperty] : rPool.PROP.Walk(isHere)) {
        switch (rProperty.iPROPTYPE) {
        case PROP_ROD:
            rVisitor(T_VALUESECTION_ROW{iPID, RodStiffness(rProperty)});
            break;
        case PROP_TUBE:
            rVisitor(TubeSection(iPID, rProperty));
            break;
        case PROP_BEND:
            rVisitor(T_LEFT_D{LEFT_PBEND, iPID});
            break;
        default:
            T_SHAPESECTION_ROW shape{iPID, SECTION_RECTANGLE, {}};
            if (rProperty.bTAPERED == 1) {
                rVisitor(T_TAPEREDSECTION_ROW{iPID, EndStiffness(rProperty), EndStiffness(rProperty, SLOT_END_B)});
            } else if (rProperty.iSECTYPE == BAR_UNKNOWN) {
                rVisitor(T_VALUESECTION_ROW{iPID, EndStiffness(rProperty)});
                if (rProperty.bSHAPE) rVisitor(T_LEFT_D{LEFT_PBARL_TYPE, iPID});
            } else if (FindShapeSection(rProperty, shape)) {
                rVisitor(shape);
                if (const E_LEFT eLoss = ShapeLoss(rProperty); eLoss != LEFT_COUNT) rVisitor(T_LEFT_D{eLoss, iPID});
            } else {
                rVisitor(T_LEFT_D{LEFT_PBARL_SHAPE, iPID, rProperty.iSECTYPE});
            }
        }
    }
}

/// In store order. A membrane doesn't bend; a plate that does nothing but bend is a thousandth as thick in its plane.
template <class VISITOR>
void ForEachThickness(const CDataPool& rPool, const VISITOR& rVisitor) {
    const auto isHere = [](const T_PROP_D& r) {
        return r.iPROPTYPE == PROP_MEMBRANE || r.iPROPTYPE == PROP_BENDING || r.iPROPTYPE == PROP_SHELL ||
               r.iPROPTYPE == PROP_COMP;
    };
    for (const auto& [iPID, rProperty] : rPool.PROP.Walk(isHere)) {
        const double dT = rProperty.dVAL[SLOT_T];
        if (rProperty.iPROPTYPE == PROP_COMP) {
            rVisitor(T_LEFT_D{LEFT_PCOMP, iPID});
        } else if (dT == 0.0) {
            rVisitor(T_LEFT_D{LEFT_PLATE_THICKNESS, iPID});
        } else if (rProperty.iPROPTYPE == PROP_MEMBRANE) {
            rVisitor(T_THICKNESS_ROW{iPID, dT, false, 0.0});
        } else {
            rVisitor(T_THICKNESS_ROW{iPID, rProperty.iPROPTYPE == PROP_BENDING ? dT / 1000.0 : dT, true, dT});
            if (rProperty.iMID2 != rProperty.iMID) rVisitor(T_LEFT_D{LEFT_PLATE_BENDING, iPID, rProperty.iMID2});
        }
    }
}
