#include "picture/Model.h"
#include "store/PropertyRecords.h"

#include <initializer_list>

namespace {

struct T_GIVEN_D {
    std::int32_t iID, iTYPE, iSUBTYPE, iPID;
    std::initializer_list<std::int32_t> aSLOTS;
};

constexpr double POINTS[][3] = {
    {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}, // 1 to 8: the first cube
    {2, 0, 0}, {2, 1, 0}, {2, 0, 1}, {2, 1, 1},                                             // 9 to 12: the second
    {0, 0, 2}, {1, 0, 2}, {1, 1, 2}, {0, 1, 2}, // 13 to 15 the wedge, 16 the tetrahedron
    {4, 0, 0}, {5, 0, 0}, {5, 1, 0}, {4, 1, 0}, {4, 0, 1}, {6, 0, 0}, {6, 1, 0}, {3, 0, 2}, // 24 is free
};

} // namespace

void FillModel(CDataPool& rDataPool) {
    std::int32_t iNode = 0;
    for (const auto& [x, y, z] : POINTS) {
        T_NODS_D node;
        node.dGX = x, node.dGY = y, node.dGZ = z;
        rDataPool.SetNODS(++iNode, node);
    }
    const T_GIVEN_D aElements[] = {
        {101, TYPE_SOLID, SHAPE_HEXA, 1, {1, 2, 3, 4, 5, 6, 7, 8}},
        {102, TYPE_SOLID, SHAPE_HEXA, 1, {2, 9, 10, 3, 6, 11, 12, 7}},
        {103, TYPE_SOLID, SHAPE_PENTA, 1, {5, 6, 7, 0, 13, 14, 15}},
        {104, TYPE_SOLID, SHAPE_TETRA, 1, {5, 7, 8, 0, 16}},
        {105, TYPE_PLATE, SHAPE_QUAD4, 2, {17, 18, 19, 20}},
        {106, TYPE_PLATE, SHAPE_TRIA3, 2, {17, 18, 21}},
        {107, TYPE_SHEAR, SHAPE_QUAD4, 1, {18, 22, 23, 19}},
        {108, TYPE_BAR, SHAPE_LINE, 1, {9, 17}},
        {109, TYPE_ROD, SHAPE_LINE, 1, {10, 20}},
        {110, TYPE_BEND, SHAPE_LINE, 1, {1, 2}},
        {111, TYPE_BUSH, SHAPE_LINE, 6, {20, 21}},
        {112, TYPE_MASS, SHAPE_POINT, -112, {22}},
        {113, TYPE_PLATE, SHAPE_QUAD4, 2, {17, 18, 19, 999}},
    };
    for (const T_GIVEN_D& rGiven : aElements) {
        T_ELEM_D element;
        element.iTYPE = rGiven.iTYPE;
        element.iSUBTYPE = rGiven.iSUBTYPE;
        element.iPID = rGiven.iPID;
        std::size_t iSlot = 0;
        for (const std::int32_t iGrid : rGiven.aSLOTS) element.iNODE.Set(iSlot++, iGrid);
        element.dX3 = 5.0; // the bar's reference point is above it
        rDataPool.SetELEM(rGiven.iID, std::move(element));
    }
    rDataPool.CNRD[101] = {11, 21, 7, 0.0, 0.0, 0.0, 0.0};
    rDataPool.PROP[1].iMID = 4;
    rDataPool.PROP[2].iMID = 1;
    rDataPool.PROP[2].iPROPTYPE = PROP_SHELL;
    rDataPool.PROP[2].dVAL.Set(SLOT_T, 2.5);
    rDataPool.MATL[4].dE = 210000.0;
    rDataPool.PROP[6].iPROPTYPE = PROP_BUSH;
    rDataPool.PROP[6].dVAL.Set(SLOT_BUSH_K + 1, 7.0);
    rDataPool.PROP[3].dVAL.Set(SLOT_K, 100.0);
    rDataPool.PROP[-112].dVAL.Set(SLOT_MX, 1.0);
    T_RBE2_D& rRigid = rDataPool.RBE2[5];
    rRigid.iGN = 19;
    for (const std::int32_t iGrid : {22, 23, 998}) rRigid.aGM.Add(iGrid);
    rDataPool.CEL1[1] = {3, 20, 23, 1, 1};
    rDataPool.CEL2[2] = {50.0, 21, 0, 3, 0, 0.0, 0.0};

    rDataPool.CNST[1].aCNND.Add({1, {true, true, true, true, true, true}});
    rDataPool.CNST[1].aCNND.Add({2, {true, true, true, false, false, false}});
    rDataPool.NODS.Update(3, [](T_NODS_D& rNode) { rNode.bPS[0] = true; });

    T_LOAD_D& rLoads = rDataPool.LOAD[1];
    rLoads.bGRAV = 1;
    rLoads.dGRAVZ = -9.81;
    const auto AddLoad = [&](std::int32_t iID, std::int8_t iKind, double dValue, std::int32_t iG1, std::int32_t iG34) {
        T_MBLD_D entry;
        entry.iID = iID;
        entry.iKIND = iKind;
        entry.iFORM = iKind == LOAD_PRESSURE ? FORM_CORNERS : FORM_PLAIN;
        entry.dV[2] = dValue; // Z of a force, third corner of a pressure
        entry.iFACEG1 = iG1;
        entry.iFACEG34 = iG34;
        rLoads.aMBLD.Add(entry);
    };
    AddLoad(15, LOAD_FORCE, 10.0, 0, 0);
    AddLoad(997, LOAD_FORCE, 10.0, 0, 0);
    AddLoad(15, LOAD_MOMENT, 0.0, 0, 0); // no load
    AddLoad(102, LOAD_PRESSURE, 2.0, 9, 12);
    AddLoad(105, LOAD_PRESSURE, -2.0, 0, 0);
    AddLoad(108, LOAD_PRESSURE, 2.0, 0, 0); // a bar takes none
}
