// Elements on lines, plates, solids, springs, masses and rigid links.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace {

/// A family and shape of element, and the slots of its nodes in card order.
struct T_LAYOUT_D {
    E_ELEMENT_TYPE eTYPE;
    E_ELEMENT_SHAPE eSHAPE;
    std::span<const std::size_t> aSLOTS;
};

// Plates have their corners first and midside nodes from slot 4 on, also behind a triangle. Solids have the layout of a
// hexahedron of 20 nodes, four slots a ring: the corners of the bottom and the top, then the midside nodes of the
// bottom, of the upright edges and of the top. The smaller shapes leave slots of a ring empty.
constexpr std::size_t LINE_SLOTS[] = {0, 1};
constexpr std::size_t TRIA3_SLOTS[] = {0, 1, 2};
constexpr std::size_t TRIA6_SLOTS[] = {0, 1, 2, 4, 5, 6};
constexpr std::size_t QUAD4_SLOTS[] = {0, 1, 2, 3};
constexpr std::size_t QUAD8_SLOTS[] = {0, 1, 2, 3, 4, 5, 6, 7};
constexpr std::size_t TETRA_SLOTS[] = {0, 1, 2, 4, 8, 9, 10, 12, 13, 14};
constexpr std::size_t PENTA_SLOTS[] = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18};
constexpr std::size_t HEXA_SLOTS[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19};

constexpr T_LAYOUT_D BAR = {TYPE_BAR, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D BEAM = {TYPE_BEAM, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D BEND = {TYPE_BEND, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D ROD = {TYPE_ROD, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D TUBE = {TYPE_TUBE, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D BUSH = {TYPE_BUSH, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D GAP = {TYPE_GAP, SHAPE_LINE, LINE_SLOTS};
constexpr T_LAYOUT_D TRIA3 = {TYPE_PLATE, SHAPE_TRIA3, TRIA3_SLOTS};
constexpr T_LAYOUT_D TRIA6 = {TYPE_PLATE, SHAPE_TRIA6, TRIA6_SLOTS};
constexpr T_LAYOUT_D QUAD4 = {TYPE_PLATE, SHAPE_QUAD4, QUAD4_SLOTS};
constexpr T_LAYOUT_D QUAD8 = {TYPE_PLATE, SHAPE_QUAD8, QUAD8_SLOTS};
constexpr T_LAYOUT_D SHEAR = {TYPE_SHEAR, SHAPE_QUAD4, QUAD4_SLOTS};
constexpr T_LAYOUT_D TETRA = {TYPE_SOLID, SHAPE_TETRA, TETRA_SLOTS};
constexpr T_LAYOUT_D PENTA = {TYPE_SOLID, SHAPE_PENTA, PENTA_SLOTS};
constexpr T_LAYOUT_D HEXA = {TYPE_SOLID, SHAPE_HEXA, HEXA_SLOTS};

/// Reads PID and the nodes into an element of this layout. A node that isn't given leaves 0 in its slot.
inline void ReadElement(CFieldCursor& rFields, T_ELEM_D& rElement, const T_LAYOUT_D& rLayout) {
    rElement.iTYPE = rLayout.eTYPE;
    rElement.iSUBTYPE = rLayout.eSHAPE;
    rElement.iPID = rFields.Int();
    for (const std::size_t iSlot : rLayout.aSLOTS) rElement.iNODE.Set(iSlot, rFields.Int());
}

bool IsReal(std::string_view sField) {
    return sField.find('.') != std::string_view::npos;
}

/// Reads the orientation that starts at the next field: with a "." in that field a vector of three reals into dX1 to
/// dX3, without one, or past the end of the card, a grid into iG0, which has the place of X1. So a vector typed as
/// integers counts as a grid. Returns 1 for a vector.
std::int32_t ReadOrientation(CFieldCursor& rFields, T_ELEM_D& rElement) {
    if (!IsReal(rFields.Peek())) {
        rElement.iG0 = rFields.Int();
        rFields.Skip("X2", "X3");
        return 0;
    }
    rElement.dX1 = rFields.Real();
    rElement.dX2 = rFields.Real();
    rElement.dX3 = rFields.Real();
    return 1;
}

/// Stores an element by PID and nodes.
int StoreElement(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYOUT_D& rLayout) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    return rDataPool.SetELEM(iEID, std::move(element));
}

/// The same with an orientation. Offsets, end releases and further fields aren't read, but whether OFFT has the vector
/// in basic axes, as it is taken.
int StoreBeam(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYOUT_D& rLayout) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    element.bVECTOR = ReadOrientation(fields, element);
    if (element.bVECTOR != 0 && fields.Peek().starts_with('B')) element.bVECTOR = BASIC_VECTOR;
    return rDataPool.SetELEM(iEID, std::move(element));
}

/// The same with THETA, if the field behind the nodes has a ".", else that field is sOther; what follows isn't read.
/// Behind the nodes of a CQUAD8 the card has T1, not THETA: a T1 with a "." is taken for the angle.
int StorePlate(CDataPool& rDataPool, const T_DATA_D& rCard, const T_LAYOUT_D& rLayout, const char* sOther = "MCID") {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, rLayout);
    if (IsReal(fields.Peek())) {
        element.dX1 = fields.Real();
    } else {
        fields.Skip(sOther);
    }
    return rDataPool.SetELEM(iEID, std::move(element));
}

/// The ends of a CELAS1 or CELAS2.
template <class SPRING>
void ReadSpringEnds(CFieldCursor& rFields, SPRING& rSpring) {
    rSpring.iG1 = rFields.Int();
    rSpring.iC1 = rFields.Int();
    rSpring.iG2 = rFields.Int();
    rSpring.iC2 = rFields.Int();
}

/// -i; the lowest number, which has no negative, gives itself.
std::int32_t Negative(std::int32_t i) {
    return static_cast<std::int32_t>(0u - static_cast<std::uint32_t>(i));
}

} // namespace

int CConvertNastran::ParseCBAR(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BAR);
}

int CConvertNastran::ParseCBEAM(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BEAM);
}

int CConvertNastran::ParseCBEND(const T_DATA_D& rCard) {
    return StoreBeam(*m_pDataPool, rCard, BEND);
}

int CConvertNastran::ParseCROD(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, ROD);
}

int CConvertNastran::ParseCTUBE(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, TUBE);
}

int CConvertNastran::ParseCONROD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CNRD_D rod;
    rod.iG1 = fields.Int();
    rod.iG2 = fields.Int();
    rod.iMID = fields.Int();
    rod.dA = fields.Real();
    rod.dJ = fields.Real();
    rod.dC = fields.Real();
    rod.dNSM = fields.Real();
    return m_pDataPool->Set(m_pDataPool->CNRD, iEID, rod);
}

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

int CConvertNastran::ParseCTETRA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, TETRA);
}

int CConvertNastran::ParseCPENTA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, PENTA);
}

int CConvertNastran::ParseCHEXA(const T_DATA_D& rCard) {
    return StoreElement(*m_pDataPool, rCard, HEXA);
}

int CConvertNastran::ParseCELAS1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CEL1_D spring;
    spring.iPID = fields.Int();
    ReadSpringEnds(fields, spring);
    return m_pDataPool->Set(m_pDataPool->CEL1, iEID, spring);
}

int CConvertNastran::ParseCELAS2(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_CEL2_D spring;
    spring.dK = fields.Real();
    ReadSpringEnds(fields, spring);
    spring.dGE = fields.Real();
    spring.dS = fields.Real();
    return m_pDataPool->Set(m_pDataPool->CEL2, iEID, spring);
}

int CConvertNastran::ParseCBUSH(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, BUSH);
    ReadOrientation(fields, element); // bVECTOR stays 0: a bush's vector isn't made a reference point
    return m_pDataPool->SetELEM(iEID, std::move(element));
}

int CConvertNastran::ParseCGAP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iEID = fields.Int();
    T_ELEM_D element;
    ReadElement(fields, element, GAP);
    element.bVECTOR = ReadOrientation(fields, element);
    fields.Skip("CID");
    return m_pDataPool->SetELEM(iEID, std::move(element));
}

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
    return m_pDataPool->Set(m_pDataPool->RBE2, iEID, std::move(link));
}
