// PSHELL, PCOMP, PSHEAR and PSOLID.

#include "cards/PropertyFields.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

// The last ply whose thickness and angle have slots: ply k, counted from 1, ends in slot 2k + 2.
constexpr std::int32_t MOST_PLIES = (T_PROP_D::SLOTS - SLOT_PLY) / 2;

} // namespace

/// A plate has one material: MID1 if there is one, else MID2. Which of the two there are decides the kind.
int CConvertNastran::ParsePSHELL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    const std::int32_t iMID1 = fields.Int();
    property.dVAL.Set(SLOT_T, fields.Real());
    const std::int32_t iMID2 = property.iMID2 = fields.Int();
    property.dVAL.Set(SLOT_BENDING, fields.Real(1.0));
    fields.Skip("MID3");
    property.dVAL.Set(SLOT_SHEAR, fields.Real(0.833333)); // not 5/6
    ReadSlots(fields, property, {SLOT_NSM, SLOT_Z1, SLOT_Z2});
    fields.Skip("MID4");
    property.iMID = iMID1 != 0 ? iMID1 : iMID2;
    property.iPROPTYPE = PROP_SHELL; // with both, and also with neither
    if (iMID1 != 0 && iMID2 == 0) property.iPROPTYPE = PROP_MEMBRANE;
    if (iMID1 == 0 && iMID2 != 0) property.iPROPTYPE = PROP_BENDING;
    ++m_nPSHELL;
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Plies are kept as they stand: blank fields aren't taken over from the ply before, a symmetric laminate isn't
/// doubled, and the blank half of a line is a ply. Plies that have no slots are left out.
int CConvertNastran::ParsePCOMP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_COMP;
    ReadSlots(fields, property, {SLOT_Z0, SLOT_LAMINATE_NSM, SLOT_SB});
    fields.Skip("FT", "TREF", "GE", "LAM");
    for (std::int32_t nPly = 1; nPly <= MOST_PLIES && !fields.IsAtEnd(); ++nPly) {
        const auto iPly = static_cast<std::size_t>(nPly - 1);
        property.iPLYMID.Set(iPly, fields.Int());
        ReadSlotRow(fields, property, SLOT_PLY + 2 * iPly, 2); // T and THETA
        fields.Skip("SOUT");
        property.iNPLY = nPly;
    }
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// The same kind as a membrane PSHELL.
int CConvertNastran::ParsePSHEAR(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_MEMBRANE;
    property.iMID = fields.Int();
    ReadSlots(fields, property, {SLOT_T, SLOT_NSM});
    fields.Skip("F1", "F2");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePSOLID(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_SOLID;
    property.iMID = fields.Int();
    fields.Skip("CORDM", "IN", "STRESS", "ISOP", "FCTN");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}
