// PELAS, PBUSH, PGAP.

#include "cards/PropertyFields.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <cstdint>
#include <utility>

int CConvertNastran::ParsePELAS(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iHalf = 0; iHalf < 2; ++iHalf) { // one card holds up to two properties
        const std::int32_t iPID = fields.Int();
        if (iHalf == 1 && iPID == 0) break;
        T_PROP_D property;
        property.iPROPTYPE = PROP_ELAS;
        ReadSlotRow(fields, property, 0, 3); // K, GE, S
        m_pDataPool->SetPROP(iPID, std::move(property));
    }
    return 1;
}

/// Sections in any order, each behind its name; a blank in the place of a name ends the card. Each field of an unknown
/// section is tried as a name.
int CConvertNastran::ParsePBUSH(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BUSH;
    while (!fields.Peek().empty()) {
        if (fields.TakeWord("K")) {
            ReadSlotRow(fields, property, 0, 6); // K1 to K6
        } else if (fields.TakeWord("B")) {
            ReadSlotRow(fields, property, 6, 6); // B1 to B6
        } else if (fields.TakeWord("GE")) {
            ReadSlots(fields, property, {12}); // GE1
            fields.Skip("GE2", "GE3", "GE4", "GE5", "GE6");
        } else if (fields.TakeWord("RCV")) {
            ReadSlotRow(fields, property, 13, 4); // SA, ST, EA, ET
        } else {
            fields.Skip("-");
        }
    }
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePGAP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_GAP;
    property.dVAL.Set(0, fields.Real());  // U0
    property.dVAL.Set(6, fields.Real());  // F0
    property.dVAL.Set(2, fields.Real());  // KA
    property.dVAL.Set(1, fields.Real());  // KB
    property.dVAL.Set(3, fields.Real());  // KT
    property.dVAL.Set(4, fields.Real());  // MU1
    property.dVAL.Set(5, fields.Real());  // MU2
    property.dVAL.Set(11, fields.Real()); // TMAX
    property.dVAL.Set(12, fields.Real()); // MAR
    property.dVAL.Set(13, fields.Real()); // TRMIN
    return m_pDataPool->SetPROP(iPID, std::move(property));
}
