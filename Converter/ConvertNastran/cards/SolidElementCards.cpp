// CTETRA, CPENTA and CHEXA.

#include "cards/NodeLayout.h"
#include "driver/CConvertNastran.h"
#include "store/DataPool.h"

#include <cstddef>

namespace {

// All have the layout of a hexahedron of 20 nodes, four slots a ring: the corners of the bottom and the top, then the
// midside nodes of the bottom, of the upright edges and of the top. The smaller shapes leave slots of a ring empty.
constexpr std::size_t TETRA_SLOTS[] = {0, 1, 2, 4, 8, 9, 10, 12, 13, 14};
constexpr std::size_t PENTA_SLOTS[] = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18};
constexpr std::size_t HEXA_SLOTS[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19};

constexpr T_LAYT_D TETRA = {TYPE_SOLID, SHAPE_TETRA, TETRA_SLOTS};
constexpr T_LAYT_D PENTA = {TYPE_SOLID, SHAPE_PENTA, PENTA_SLOTS};
constexpr T_LAYT_D HEXA = {TYPE_SOLID, SHAPE_HEXA, HEXA_SLOTS};

} // namespace

int CConvertNastran::ParseCTETRA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, TETRA);
}

int CConvertNastran::ParseCPENTA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, PENTA);
}

int CConvertNastran::ParseCHEXA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, HEXA);
}
