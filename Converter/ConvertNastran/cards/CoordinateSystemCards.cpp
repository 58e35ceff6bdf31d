// CORD1R, CORD1C, CORD1S and CORD2R, CORD2C, CORD2S: the cards of a family differ in their table alone.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstdint>

namespace {

/// A frame by three grids, the next fields of the card.
template <class RECORD>
int StoreByNextGrids(CFieldCursor& rFields, std::int32_t iCID, CMap<RECORD>& rTable) {
    RECORD system;
    system.iG1 = rFields.Int();
    system.iG2 = rFields.Int();
    system.iG3 = rFields.Int();
    return rTable.SetAt(iCID, system);
}

/// One or two frames by three grids each.
template <class RECORD>
int StoreByGrids(const T_DATA_D& rCard, CMap<RECORD>& rTable) {
    CFieldCursor fields(rCard);
    const std::int32_t iCIDA = fields.Int();
    StoreByNextGrids(fields, iCIDA, rTable); // under any id, 0 too
    const std::int32_t iCIDB = fields.Int();
    return iCIDB != 0 ? StoreByNextGrids(fields, iCIDB, rTable) : 1;
}

/// One frame by three points.
template <class RECORD>
int StoreByPoints(const T_DATA_D& rCard, CMap<RECORD>& rTable) {
    CFieldCursor fields(rCard);
    const std::int32_t iCID = fields.Int();
    RECORD system;
    system.iRID = fields.Int();
    for (double& rValue : system.dA) rValue = fields.Real();
    for (double& rValue : system.dB) rValue = fields.Real();
    for (double& rValue : system.dC) rValue = fields.Real();
    return rTable.SetAt(iCID, system);
}

} // namespace

int CConvertNastran::ParseCORD1R(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, m_pDataPool->CD1R);
}

int CConvertNastran::ParseCORD1C(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, m_pDataPool->CD1C);
}

int CConvertNastran::ParseCORD1S(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, m_pDataPool->CD1S);
}

int CConvertNastran::ParseCORD2R(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, m_pDataPool->CD2R);
}

int CConvertNastran::ParseCORD2C(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, m_pDataPool->CD2C);
}

int CConvertNastran::ParseCORD2S(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, m_pDataPool->CD2S);
}
