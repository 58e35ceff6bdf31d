// PBAR, PBARL, PBEAM, PBEND, PROD and PTUBE.

#include "cards/BarShapes.h"
#include "cards/PropertyFields.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

constexpr std::size_t STRESS_POINTS = 8; // C1 to F2

/// Reads fields two at a time, SO and X/XB, until an X/XB is 1.0. Stations aren't counted: a station's 16 fields are 8
/// pairs, so a 1.0 at the second place of any pair ends the search. Returns false at the end of the card.
bool FindEndB(CFieldCursor& rFields) {
    while (!rFields.IsAtEnd()) {
        rFields.Skip(CFieldCursor::BY_PLACE);
        if (std::fabs(TextToReal(rFields.Peek()) - 1.0) < 1e-6) {
            rFields.Real();
            return true;
        }
        rFields.Skip(CFieldCursor::BY_PLACE);
    }
    return false;
}

void ReadBeamEnd(CFieldCursor& rFields, T_PROP_D& rProperty, std::size_t iEnd) {
    ReadSlots(rFields, rProperty,
              {iEnd + SLOT_A, iEnd + SLOT_I1, iEnd + SLOT_I2, iEnd + SLOT_I12, iEnd + SLOT_J, iEnd + SLOT_NSM});
    ReadSlotRow(rFields, rProperty, iEnd + SLOT_C1, STRESS_POINTS);
}

/// Whether A, I1, I2, I12 or J of the ends differ and end B has any of them.
bool IsTapered(const T_PROP_D& rProperty) {
    bool bDifferent = false;
    bool bEndB = false;
    for (std::size_t i = SLOT_A; i <= SLOT_J; ++i) {
        bDifferent = bDifferent || rProperty.dVAL[i] != rProperty.dVAL[SLOT_END_B + i];
        bEndB = bEndB || rProperty.dVAL[SLOT_END_B + i] != 0.0;
    }
    return bDifferent && bEndB;
}

} // namespace

int CConvertNastran::ParsePBAR(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BAR;
    property.iMID = fields.Int();
    ReadSlots(fields, property, {SLOT_A, SLOT_I1, SLOT_I2, SLOT_J, SLOT_NSM});
    fields.Skip("FE");
    ReadSlotRow(fields, property, SLOT_C1, STRESS_POINTS);
    ReadSlots(fields, property, {SLOT_K1, SLOT_K2, SLOT_I12});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Dimensions are taken by position, whatever number of them the shape has: an NSM behind the last of a short shape
/// stands in the next slot.
int CConvertNastran::ParsePBARL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BAR;
    property.iMID = fields.Int();
    fields.Skip("GROUP");
    property.bSHAPE = true;
    property.iSECTYPE = FindBarShape(fields.Text());
    fields.Skip("-", "-", "-", "-");
    ReadSlotRow(fields, property, SLOT_DIM1, 9);
    fields.Skip("DIM10");
    ReadSlots(fields, property, {SLOT_LAST});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Keeps both ends and nothing between them.
int CConvertNastran::ParsePBEAM(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BEAM;
    property.iMID = fields.Int();
    ReadBeamEnd(fields, property, 0);
    if (FindEndB(fields)) ReadBeamEnd(fields, property, SLOT_END_B);
    for (const std::size_t iSlot : {SLOT_K1, SLOT_K2}) {
        const double dFactor = fields.Real();
        property.dVAL.Set(iSlot, dFactor);
        property.dVAL.Set(SLOT_END_B + iSlot, dFactor);
    }
    fields.Skip("S1", "S2", "NSI(A)", "NSI(B)");
    ReadSlots(fields, property, {SLOT_CW, SLOT_END_B + SLOT_CW});
    fields.Skip("M1(A)", "M2(A)", "M1(B)", "M2(B)");
    ReadSlots(fields, property, {SLOT_N1, SLOT_N2, SLOT_END_B + SLOT_N1, SLOT_END_B + SLOT_N2});
    property.bTAPERED = IsTapered(property) ? 1 : 0;
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePBEND(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BEND;
    property.iMID = fields.Int();
    ReadSlots(fields, property, {SLOT_A, SLOT_I1, SLOT_I2, SLOT_J, SLOT_RB});
    fields.Skip("THETAB");
    ReadSlotRow(fields, property, SLOT_C1, STRESS_POINTS);
    ReadSlots(fields, property, {SLOT_K1, SLOT_K2, SLOT_NSM});
    fields.Skip("RC", "ZC", "DELTAN");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePROD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_ROD;
    property.iMID = fields.Int();
    ReadSlots(fields, property, {SLOT_A, SLOT_J, SLOT_K1, SLOT_NSM}); // C takes the slot of K1
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePTUBE(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_TUBE;
    property.iMID = fields.Int();
    const double dOD = fields.Real();
    const double dT = fields.Real();
    property.dVAL.Set(SLOT_OD, dOD);
    property.dVAL.Set(SLOT_ID, dOD - (dT + dT));
    ReadSlots(fields, property, {SLOT_NSM});
    fields.Skip("OD2"); // a tapered tube is kept as a straight one
    return m_pDataPool->SetPROP(iPID, std::move(property));
}
