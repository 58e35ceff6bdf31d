// PELAS, PBUSH, PGAP.

#include "cards/PropertyFields.h"
#include "driver/CConvertNastran.h"
#include "store/DataPool.h"

#include <cstdint>
#include <utility>

int CConvertNastran::ParsePELAS(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iHalf = 0; iHalf < 2; ++iHalf) { // one card holds up to two properties
        const std::int32_t iPID = fields.Int();
        if (iHalf == 1 && iPID == 0) break;
        T_PROP_D property;
        property.iPROPTYPE = PROP_ELAS;
        ReadSlots(fields, property, {SLOT_K, SLOT_GE, SLOT_S});
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
            ReadSlotRow(fields, property, SLOT_BUSH_K, 6); // K1 to K6
        } else if (fields.TakeWord("B")) {
            ReadSlotRow(fields, property, SLOT_BUSH_B, 6); // B1 to B6
        } else if (fields.TakeWord("GE")) {
            ReadSlots(fields, property, {SLOT_BUSH_GE}); // GE1
            fields.Skip("GE2", "GE3", "GE4", "GE5", "GE6");
        } else if (fields.TakeWord("RCV")) {
            ReadSlotRow(fields, property, SLOT_BUSH_RCV, 4); // SA, ST, EA, ET
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
    ReadSlots(fields, property,
              {SLOT_U0, SLOT_F0, SLOT_KA, SLOT_KB, SLOT_KT, SLOT_MU1, SLOT_MU2, SLOT_TMAX, SLOT_MAR, SLOT_TRMIN});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}
