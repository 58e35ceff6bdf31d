// PELAS, PBUSH, PGAP.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <algorithm>
#include <iterator>

int CConvertNastran::ParsePELAS(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iHalf = 0; iHalf < 2; ++iHalf) { // one card holds up to two properties
        const std::int32_t iPID = fields.Int();
        if (iHalf == 1 && iPID == 0) break;
        T_PROP_D property;
        property.iPROPTYPE = PROP_ELAS;
        for (std::size_t iSlot = 0; iSlot < 3; ++iSlot) property.dVAL.Set(iSlot, fields.Real()); // K, GE, S
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
        {"K", 0, 6, 0},    // K1 to K6
        {"B", 6, 6, 0},    // B1 to B6
        {"GE", 12, 1, 5},  // GE1; GE2 to GE6
        {"RCV", 13, 4, 0}, // SA, ST, EA, ET
    };
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property;
    property.iPROPTYPE = PROP_BUSH;
    for (std::string_view sKeyword = fields.Text(); !sKeyword.empty(); sKeyword = fields.Text()) {
        const auto pGroup = std::find_if(std::begin(GROUPS), std::end(GROUPS),
                                         [&](const T_GROUP_D& rGroup) { return rGroup.sKEYWORD == sKeyword; });
        if (pGroup == std::end(GROUPS)) continue; // each field of an unknown group is tried as a keyword
        for (std::size_t i = 0; i < pGroup->nKEPT; ++i) property.dVAL.Set(pGroup->iSLOT + i, fields.Real());
        fields.Skip(pGroup->nDROPPED);
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
