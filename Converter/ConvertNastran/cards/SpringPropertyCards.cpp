// PELAS, PBUSH, PGAP.

#include "cards/PropertyFields.h"
#include "driver/CConvertNastran.h"

#include <algorithm>
#include <iterator>

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

int CConvertNastran::ParsePBUSH(const T_DATA_D& rCard) {
    struct T_GROUP_D {
        std::string_view sKEYWORD;
        std::size_t iSLOT;
        std::size_t nKEPT;
        std::size_t nDROPPED;
    };
    static constexpr T_GROUP_D GROUPS[] = {
        {"K", SLOT_BUSH_K, 6, 0},
        {"B", SLOT_BUSH_B, 6, 0},
        {"GE", SLOT_BUSH_GE, 1, 5}, // GE1; GE2 to GE6
        {"RCV", SLOT_BUSH_RCV, 4, 0},
    };
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BUSH;
    for (std::string_view sKeyword = fields.Text(); !sKeyword.empty(); sKeyword = fields.Text()) {
        const auto pGroup = std::find_if(std::begin(GROUPS), std::end(GROUPS),
                                         [&](const T_GROUP_D& rGroup) { return rGroup.sKEYWORD == sKeyword; });
        if (pGroup == std::end(GROUPS)) continue; // each field of an unknown group is tried as a keyword
        ReadSlotRow(fields, property, pGroup->iSLOT, pGroup->nKEPT);
        fields.Skip(pGroup->nDROPPED);
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
