// What the store holds that the file doesn't.

#include "nas2zdt/ModelLosses.h"

#include <gtest/gtest.h>

namespace {

std::string Describe(const CDataPool& rPool) {
    std::string sText;
    for (const T_MODELLOSS_D& rLoss : FindModelLosses(rPool)) {
        sText += std::string(rLoss.sKEYWORD) + " " + std::to_string(rLoss.nCOUNT) + ":";
        for (const std::int32_t iID : rLoss.aIDS) sText += " " + std::to_string(iID);
        sText += "\n";
    }
    return sText;
}

T_CNEQ_D Equation(std::int32_t iEQ, double d1, double d2) {
    T_CNEQ_D equation;
    equation.iEQ = iEQ;
    equation.aTERMS.Add({1, 1, d1});
    equation.aTERMS.Add({2, 1, d2});
    return equation;
}

TEST(ModelLosses, OfElementsPropertiesAndEigenvalues) {
    CDataPool pool;
    T_ELEM_D bend;
    bend.iTYPE = TYPE_BEND;
    pool.SetELEM(8, bend);
    pool.SetELEM(3, bend);
    T_ELEM_D bar;
    bar.iTYPE = TYPE_BAR;
    pool.SetELEM(4, bar);
    T_PROP_D laminate;
    laminate.iPROPTYPE = PROP_COMP;
    pool.SetPROP(6, laminate);
    pool.SetEIGB(1, {});
    pool.SetEIRL(1, {}); // 16807, 33614 and 50421 modulo 11 are 10, 9 and 8: the set 3 is the one that is written
    pool.SetEIRL(2, {});
    pool.SetEIRL(3, {});
    EXPECT_EQ(Describe(pool), "CBEND 2: 3 8\nPCOMP 1: 6\nEIGB 1: 1\nEIGRL 2: 2 1\n");
}

TEST(ModelLosses, OfConstraints) {
    CDataPool pool;
    T_NODS_D held;
    held.bPS[2] = true;
    pool.SetNODS(7, held);
    EXPECT_EQ(Describe(pool), "GRID 1: 7\n");

    T_CNST_D set;
    set.aCNND.Add({});
    set.aCNND.Add({});
    set.aCNEQ.Add(Equation(1, -1.0, 1.0));
    set.aCNEQ.Add(Equation(2, 1.0, -1.0));
    pool.SetCNST(1, set); // 16807 and 33614 modulo 1001 are 791 and 581: the set 2 is the one that is written
    pool.SetCNST(2, set);
    pool.m_iLastCNST = 1;
    EXPECT_EQ(Describe(pool), "SPC 2: 1\nMPC 2: 2\nMPC 1: 2\n");
}

TEST(ModelLosses, OfLoads) {
    CDataPool pool;
    T_ELEM_D element;
    element.iTYPE = TYPE_PLATE;
    pool.SetELEM(1, element);
    element.iTYPE = TYPE_BAR;
    pool.SetELEM(2, element);
    T_LOAD_D set;
    const auto add = [&](std::int32_t iID, int iKind, int iForm) {
        T_MBLD_D entry;
        entry.iID = iID;
        entry.iKIND = static_cast<decltype(entry.iKIND)>(iKind);
        entry.iFORM = static_cast<decltype(entry.iFORM)>(iForm);
        set.aMBLD.Add(entry);
    };
    add(1, 42, 1);
    add(2, 42, 1);
    add(9, 42, 0);
    add(2, 41, 0);
    add(9, 40, 0);
    add(2, 0, 0);
    add(9, 1, 0);
    pool.SetLOAD(5, set);
    T_LDCB_D combination;
    combination.aLOADS.Add(5);
    combination.aLOADS.Add(6);
    pool.SetLDCB(30, combination);
    EXPECT_EQ(Describe(pool), "PLOAD4 1: 2\nPLOAD2 1: 9\nPLOAD1 1: 9\nPLOAD1 1: 2\nLOAD 1: 30\n");
}

} // namespace
