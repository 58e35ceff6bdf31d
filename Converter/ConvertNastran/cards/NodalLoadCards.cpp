// FORCE, MOMENT and their forms 1 and 2, GRAV and LOAD.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstddef>
#include <cstdint>

namespace {

/// Adds a force or moment, whose grid is the next field, to a set. Forms 1 and 2 keep the magnitude alone; their
/// direction is worked out once all grids are known.
int AddNodalLoad(CFieldCursor& rFields, T_LOAD_D& rSet, E_LOAD_KIND eKind, E_LOAD_FORM eForm) {
    T_MBLD_D entry;
    entry.iKIND = eKind;
    entry.iFORM = eForm;
    entry.iID = rFields.Int();
    if (eForm == FORM_PLAIN) {
        entry.iCID = rFields.Int();
        const double dF = rFields.Real();
        for (std::size_t i = 0; i < 3; ++i) entry.dV[i] = dF * rFields.Real(); // N1 to N3, of any length
    } else {
        entry.dV[0] = rFields.Real();
        const std::size_t nGrids = eForm == FORM_CROSS ? 4 : 2;
        for (std::size_t i = 0; i < nGrids; ++i) entry.iG[i] = rFields.Int();
    }
    rSet.aMBLD.Add(entry);
    return 1;
}

} // namespace

int CConvertNastran::ParseFORCE(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_FORCE, FORM_PLAIN);
}

int CConvertNastran::ParseFORCE1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_FORCE, FORM_TWO_GRIDS);
}

int CConvertNastran::ParseFORCE2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_FORCE, FORM_CROSS);
}

int CConvertNastran::ParseMOMENT(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_MOMENT, FORM_PLAIN);
}

int CConvertNastran::ParseMOMENT1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_MOMENT, FORM_TWO_GRIDS);
}

int CConvertNastran::ParseMOMENT2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    return AddNodalLoad(fields, EnsureLoadSet(fields.Int()), LOAD_MOMENT, FORM_CROSS);
}

/// Gravity lives in the set itself: a second card overwrites the first.
int CConvertNastran::ParseGRAV(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    T_LOAD_D& rSet = EnsureLoadSet(fields.Int());
    rSet.bGRAV = 1;
    rSet.iGRAVCID = fields.Int();
    const double dA = fields.Real();
    rSet.dGRAVX = dA * fields.Real();
    rSet.dGRAVY = dA * fields.Real();
    rSet.dGRAVZ = dA * fields.Real();
    return 1;
}

/// A combination, no load set. Cards of one SID add up.
int CConvertNastran::ParseLOAD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    T_LDCB_D& rCombination = m_pDataPool->LDCB[fields.Int()];
    rCombination.dSCALE = fields.Real();
    for (int iPair = 0; iPair < 4; ++iPair) { // a card gives four pairs; longer ones go on with another card
        const double dFactor = fields.Real();
        const std::int32_t iSet = fields.Int();
        if (iSet == 0) continue;
        rCombination.aFACTORS.Add(dFactor);
        rCombination.aLOADS.Add(iSet);
    }
    return 1;
}
