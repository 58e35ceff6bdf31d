// CTRIA3, CTRIA6, CTRIAR, CQUAD4, CQUAD8, CQUADR and CSHEAR.

#include "cards/NodeLayout.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace {

// Corners come first, midside nodes from slot 4 on, also behind a triangle.
constexpr std::size_t TRIA3_SLOTS[] = {0, 1, 2};
constexpr std::size_t TRIA6_SLOTS[] = {0, 1, 2, 4, 5, 6};
constexpr std::size_t QUAD4_SLOTS[] = {0, 1, 2, 3};
constexpr std::size_t QUAD8_SLOTS[] = {0, 1, 2, 3, 4, 5, 6, 7};

constexpr T_LAYT_D TRIA3 = {TYPE_PLATE, SHAPE_TRIA3, TRIA3_SLOTS};
constexpr T_LAYT_D TRIA6 = {TYPE_PLATE, SHAPE_TRIA6, TRIA6_SLOTS};
constexpr T_LAYT_D QUAD4 = {TYPE_PLATE, SHAPE_QUAD4, QUAD4_SLOTS};
constexpr T_LAYT_D QUAD8 = {TYPE_PLATE, SHAPE_QUAD8, QUAD8_SLOTS};
constexpr T_LAYT_D SHEAR = {TYPE_SHEAR, SHAPE_QUAD4, QUAD4_SLOTS};

/// The field behind the nodes is THETA if it has a ".", else sOther; what follows isn't read. Behind the nodes of a
/// CQUAD8 the card has T1, not THETA: a T1 with a "." is taken for the angle.
int StorePlate(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYT_D& rLayout, const char* sOther = "MCID") {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    if (fields.Peek().find('.') != std::string_view::npos) {
        element.dX1 = fields.Real();
    } else {
        fields.Skip(sOther);
    }
    return rDataPool.SetELEM(iEID, std::move(element));
}

} // namespace

int CConvertNastran::ParseCTRIA3(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, TRIA3);
}

int CConvertNastran::ParseCTRIA6(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, TRIA6);
}

int CConvertNastran::ParseCTRIAR(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, TRIA3);
}

int CConvertNastran::ParseCQUAD4(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, QUAD4);
}

int CConvertNastran::ParseCQUAD8(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, QUAD8, "T1");
}

int CConvertNastran::ParseCQUADR(const T_DATA_D& rCard) {
    return StorePlate(*m_pDataPool, rCard, QUAD4);
}

int CConvertNastran::ParseCSHEAR(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, SHEAR);
}
