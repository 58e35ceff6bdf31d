// CONM2, RBE2.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"
#include "store/PropertySlots.h"

#include <cstdint>
#include <utility>

namespace {

/// The same without a fault for the lowest number, which is its own negative.
std::int32_t Negative(std::int32_t i) {
    return static_cast<std::int32_t>(0u - static_cast<std::uint32_t>(i));
}

} // namespace

int CConvertNastran::ParseCONM2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    element.iTYPE = TYPE_MASS;
    element.iSUBTYPE = SHAPE_POINT;
    element.iPID = Negative(iEID); // a key that no property card takes
    element.iNODE.Set(0, fields.Int());
    T_PROP_D mass;
    mass.iPROPTYPE = PROP_MASS;
    fields.Skip("CID"); // masses count as global
    const double dM = fields.Real();
    for (const std::size_t iSlot : {SLOT_MX, SLOT_MY, SLOT_MZ}) mass.dVAL.Set(iSlot, dM);
    fields.Skip("X1", "X2", "X3", "-"); // the offset
    mass.dVAL.Set(SLOT_I11, fields.Real());
    fields.Skip("I21");
    mass.dVAL.Set(SLOT_I22, fields.Real());
    fields.Skip("I31", "I32");
    mass.dVAL.Set(SLOT_I33, fields.Real());
    m_pDataPool->SetPROP(element.iPID, std::move(mass));
    return m_pDataPool->SetELEM(iEID, std::move(element));
}

int CConvertNastran::ParseRBE2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_RBE2_D link;
    link.iGN = fields.Int();
    link.sCM = fields.Text();
    while (!fields.IsAtEnd()) { // the whole tail by one rule: THRU reads as 0, ALPHA as a grid
        const std::int32_t iGM = fields.Int();
        if (iGM != 0) link.aGM.Add(iGM);
    }
    return m_pDataPool->SetRBE2(iEID, std::move(link));
}
