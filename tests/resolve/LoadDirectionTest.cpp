// Loads whose direction is given by grids.

#include "store/DataPool.h"
#include "support/Text.h"

#include <gtest/gtest.h>

namespace {

T_MBLD_D Load(E_LOAD_KIND eKind, E_LOAD_FORM eForm, double dValue, std::array<std::int32_t, 4> aGrids) {
    T_MBLD_D load;
    load.iKIND = eKind;
    load.iFORM = eForm;
    load.dV[0] = dValue;
    load.iG = aGrids;
    return load;
}

} // namespace

TEST(LoadDirections, SetsByAscendingId) {
    const double dPoints[6][3] = {{0, 0, 0}, {0, 3, 4}, {1, 0, 0}, {0, 1, 0}, {0, 0, 2}, {0, 0, 0}};
    CDataPool pool;
    for (std::int32_t i = 0; i < 6; ++i) {
        T_NODS_D node;
        node.dX1 = 100.0; // the position counts
        node.dGX = dPoints[i][0];
        node.dGY = dPoints[i][1];
        node.dGZ = dPoints[i][2];
        pool.SetNODS(i + 1, node);
    }
    struct T_CASE_D {
        std::int32_t iSET;
        T_MBLD_D load;
        const char* sVALUES;
    };
    const T_CASE_D aCases[] = {
        // In store order set 3 comes first. Its first entry has no length and follows the last direction of set 1.
        {3, Load(LOAD_FORCE, FORM_TWO_GRIDS, 2, {1, 6}), "0 0 -2"},
        {3, Load(LOAD_FORCE, FORM_CROSS, 1, {1, 3, 1, 4}), "0 0 1"},
        {3, Load(LOAD_MOMENT, FORM_CROSS, 2, {1, 4, 1, 3}), "0 0 -2"},
        {1, Load(LOAD_FORCE, FORM_TWO_GRIDS, 5, {6, 1}), "0 0 0"}, // no direction before it
        {1, Load(LOAD_FORCE, FORM_TWO_GRIDS, 10, {1, 2}), "0 6 8"},
        {1, Load(LOAD_MOMENT, FORM_TWO_GRIDS, -10, {2, 1}), "-0 6 8"},
        {1, Load(LOAD_MOMENT, FORM_TWO_GRIDS, 3, {4, 4}), "0 -1.8 -2.4"}, // as the entry before it
        {1, Load(LOAD_FORCE, FORM_PLAIN, 7, {1, 2}), "7 0 0"},
        {1, Load(LOAD_PRESSURE, FORM_TWO_GRIDS, 7, {1, 2}), "7 0 0"},
        {1, Load(LOAD_DISPLACEMENT, FORM_CROSS, 7, {1, 2, 3, 4}), "7 0 0"},
        {1, Load(LOAD_FORCE, FORM_TWO_GRIDS, 1, {5, 99}), "0 0 -1"}, // a missing grid is the origin
    };
    for (const T_CASE_D& rCase : aCases) pool.LOAD[rCase.iSET].aMBLD.Add(rCase.load);
    pool.LOAD[2]; // a set without entries
    CArray<std::int32_t> aIds;
    EXPECT_EQ(pool.GetSortedLoadIds(aIds), 1);
    EXPECT_EQ(std::vector<std::int32_t>(aIds.begin(), aIds.end()), (std::vector<std::int32_t>{1, 2, 3}));

    pool.ResolveLoadDirections();
    std::size_t aNext[4] = {};
    for (const T_CASE_D& rCase : aCases) {
        const std::size_t i = aNext[rCase.iSET]++;
        const T_MBLD_D rLoad = pool.LOAD.Find(rCase.iSET)->aMBLD[i];
        EXPECT_EQ(Text(rLoad.dV[0], rLoad.dV[1], rLoad.dV[2]), rCase.sVALUES) << "set " << rCase.iSET << " entry " << i;
    }
}

TEST(LoadDirections, NoSets) {
    CArray<std::int32_t> aIds;
    aIds.Add(7);
    EXPECT_EQ(CDataPool().GetSortedLoadIds(aIds), 0);
    EXPECT_TRUE(aIds.IsEmpty());
}
