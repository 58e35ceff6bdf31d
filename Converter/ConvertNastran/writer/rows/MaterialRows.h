#pragma once
// Rows of *MATERIAL.

#include "store/DataPool.h"
#include "writer/rows/RowVisitor.h"

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
    const auto lacksMaterial = [&](const T_PROP_D& r) { return KeywordOf(r) && rPool.IsMaterialMissing(r.iMID); };
    for (const auto& [iPID, r] : rPool.PROP.Sorted(lacksMaterial)) {
        rVisitor(T_LEFT_D{.eREASON = LEFT_PROPERTY_MATERIAL, .iID = iPID, .iOTHER = r.iMID, .sKEYWORD = KeywordOf(r)});
    }
}

/// In store order.
template <class VISITOR>
void ForEachMaterial(const CDataPool& rPool, const VISITOR& rVisitor) {
    if (rPool.m_pLeftSink) TellPropertiesWithoutMaterial(rPool, rVisitor);
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
