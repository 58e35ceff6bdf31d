// The block that closes the log: what the model holds.

#include "driver/CConvertNastran.h"

#include <array>

namespace {

/// Where the count of a row comes from.
enum E_COUNTED {
    COUNT_GRIDS,
    COUNT_ELEMENTS, // of a family and a shape
    COUNT_CONRODS,
    COUNT_RBE2,
    COUNT_CELAS1,
    COUNT_CELAS2,
    COUNT_MATERIALS,  // of every kind
    COUNT_PROPERTIES, // of a kind
    COUNT_PSHELLS,    // cards, not records
    COUNT_LAST_SET,   // constrained grids of the set of the last SPC or MPC
    COUNT_LOADS,      // entries of a kind, over all load sets
};

struct T_ROW_D {
    const char* sFORMAT;
    E_COUNTED eCOUNTED;
    std::int32_t iKIND = 0;
    std::int32_t iSHAPE = 0;
};

// clang-format off
constexpr T_ROW_D ROWS[] = {
    {"   GRID : %d",            COUNT_GRIDS},
    {"   CBAR : %d",            COUNT_ELEMENTS, TYPE_BAR, SHAPE_LINE},
    {"   CBEAM : %d",           COUNT_ELEMENTS, TYPE_BEAM, SHAPE_LINE},
    {"   CROD : %d",            COUNT_ELEMENTS, TYPE_ROD, SHAPE_LINE},
    {"   CONROAD : %d",         COUNT_CONRODS},
    {"   CTUBE : %d",           COUNT_ELEMENTS, TYPE_TUBE, SHAPE_LINE},
    {"   CTRIA3 & CTRIAR : %d", COUNT_ELEMENTS, TYPE_PLATE, SHAPE_TRIA3},
    {"   CTRIA6 : %d",          COUNT_ELEMENTS, TYPE_PLATE, SHAPE_TRIA6},
    {"   CQUAD4 & CQUADR : %d", COUNT_ELEMENTS, TYPE_PLATE, SHAPE_QUAD4},
    {"   CQUAD8 : %d",          COUNT_ELEMENTS, TYPE_PLATE, SHAPE_QUAD8},
    {"   CPENTA : %d",          COUNT_ELEMENTS, TYPE_SOLID, SHAPE_PENTA},
    {"   CTETRA : %d",          COUNT_ELEMENTS, TYPE_SOLID, SHAPE_TETRA},
    {"   CHEXA : %d",           COUNT_ELEMENTS, TYPE_SOLID, SHAPE_HEXA},
    {"   CBEND : %d",           COUNT_ELEMENTS, TYPE_BEND, SHAPE_LINE},
    {"   CSHEAR : %d",          COUNT_ELEMENTS, TYPE_SHEAR, SHAPE_QUAD4},
    {"   CGAP : %d",            COUNT_ELEMENTS, TYPE_GAP, SHAPE_LINE},
    {"   CRBE2 : %d",           COUNT_RBE2},
    {"   CELAS1 : %d",          COUNT_CELAS1},
    {"   CELAS2 : %d",          COUNT_CELAS2},
    {"   CMAT1 : %d",           COUNT_MATERIALS},
    {"   PBAR : %d",            COUNT_PROPERTIES, PROP_BAR},
    {"   PBEAM : %d",           COUNT_PROPERTIES, PROP_BEAM},
    {"   PROD : %d",            COUNT_PROPERTIES, PROP_ROD},
    {"   PTUBE : %d",           COUNT_PROPERTIES, PROP_TUBE},
    {"   PSHEAR : %d",          COUNT_PROPERTIES, PROP_MEMBRANE},
    {"   PBEND : %d",           COUNT_PROPERTIES, PROP_BEND},
    {"   PELAS : %d",           COUNT_PROPERTIES, PROP_ELAS},
    {"   PSHELL : %d",          COUNT_PSHELLS},
    {"   SPC : %d",             COUNT_LAST_SET},
    {"   FORCE : %d",           COUNT_LOADS, LOAD_FORCE},
    {"   MOMENT : %d",          COUNT_LOADS, LOAD_MOMENT},
    {"   PLOAD4 : %d",          COUNT_LOADS, LOAD_PRESSURE},
};
// clang-format on

/// Numbers of records by kind, and of elements by shape too.
class CTally {
  public:
    void Add(std::int32_t iKind, std::int32_t iShape = 0) { ++m_aCounts.at(Place(iKind, iShape)); }
    std::size_t Get(std::int32_t iKind, std::int32_t iShape = 0) const { return m_aCounts.at(Place(iKind, iShape)); }

  private:
    static constexpr std::size_t SHAPES = 16; // both more than there are
    static constexpr std::size_t KINDS = 64;

    static std::size_t Place(std::int32_t iKind, std::int32_t iShape) {
        return static_cast<std::size_t>(iKind) * SHAPES + static_cast<std::size_t>(iShape);
    }

    std::array<std::size_t, KINDS* SHAPES> m_aCounts = {};
};

} // namespace

void CConvertNastran::WriteSummary() {
    const CDataPool& rPool = *m_pDataPool;
    CTally elements, properties, loads;
    rPool.ELEM.ForEachTraits(
        [&](std::uint16_t nTraits) { elements.Add(TypeOfTraits(nTraits), ShapeOfTraits(nTraits)); });
    rPool.PROP.ForEach([&](std::int32_t, const T_PROP_D& rProperty) { properties.Add(rProperty.iPROPTYPE); });
    rPool.LOAD.ForEach([&](std::int32_t, const T_LOAD_D& rSet) {
        for (const std::int8_t iKind : rSet.aMBLD.GetKinds()) loads.Add(iKind);
    });
    const T_CNST_D* pLastSet = rPool.CNST.Find(rPool.m_iLastCNST);

    const auto count = [&](const T_ROW_D& rRow) -> std::size_t {
        switch (rRow.eCOUNTED) {
        case COUNT_GRIDS:
            return rPool.NODS.GetCount();
        case COUNT_ELEMENTS:
            return elements.Get(rRow.iKIND, rRow.iSHAPE);
        case COUNT_CONRODS:
            return rPool.CNRD.GetCount();
        case COUNT_RBE2:
            return rPool.RBE2.GetCount();
        case COUNT_CELAS1:
            return rPool.CEL1.GetCount();
        case COUNT_CELAS2:
            return rPool.CEL2.GetCount();
        case COUNT_MATERIALS:
            return rPool.MATL.GetCount();
        case COUNT_PROPERTIES:
            return properties.Get(rRow.iKIND);
        case COUNT_PSHELLS:
            return static_cast<std::size_t>(m_nPSHELL);
        case COUNT_LAST_SET:
            return pLastSet ? pLastSet->aCNND.GetSize() : 0;
        case COUNT_LOADS:
            return loads.Get(rRow.iKIND);
        }
        return 0;
    };

    LogMessage("");
    LogMessage("================================== [ Conversion Summary ] =======================================");
    LogMessage("");
    LogMessage("** Converted Data");
    for (const T_ROW_D& rRow : ROWS) {
        const auto nCount = static_cast<std::int32_t>(count(rRow));
        if (nCount != 0) LogMessage(rRow.sFORMAT, nCount);
    }
    LogMessage("");
    LogMessage("");
    LogMessage(std::string(100, '='));
    LogMessage("");
}
