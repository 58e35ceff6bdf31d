// Reference points of line elements, angles of links, lengths.

#include "messages/ZdtMsgMgr.h"
#include "store/DataPool.h"
#include "support/NoDialogs.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <ostream>
#include <utility>

namespace {

/// A model with a log.
class CModel : public CDataPool {
  public:
    CModel() { m_pMsgMgr = &m_log; }

    void AddNode(std::int32_t iID, double dX, double dY, double dZ) {
        T_NODS_D node;
        node.dX1 = node.dGX = dX;
        node.dX2 = node.dGY = dY;
        node.dX3 = node.dGZ = dZ;
        SetNODS(iID, node);
    }

    void AddLine(std::int32_t iID, std::int32_t iType, std::int32_t iNode1, std::int32_t iNode2, std::int32_t iG0) {
        T_ELEM_D element;
        element.iTYPE = iType;
        element.iNODE.Set(0, iNode1);
        element.iNODE.Set(1, iNode2);
        element.iG0 = iG0;
        SetELEM(iID, element);
    }

    std::string Orientation(std::int32_t iID) const {
        const T_ELEM_D rElement = *ELEM.Find(iID);
        return Text(rElement.bVECTOR) + ": " + Text(rElement.dX1, rElement.dX2, rElement.dX3);
    }

    std::string Beta(std::int32_t iNode1, std::int32_t iNode2, double dVX, double dVY, double dVZ) const {
        double dAngle = 7.0;
        ComputeBetaAngle(iNode1, iNode2, dVX, dVY, dVZ, dAngle);
        return Text(dAngle);
    }

    const std::vector<std::string>& GetLog() const { return m_log.GetMessages(); }

  private:
    CNoDialogs m_dialogs;
    CZdtMsgMgr m_log{m_dialogs};
};

struct T_LINE_CASE_D {
    const char* sNAME;
    double dFROM[3], dTO[3], dVECTOR[3];
    const char* sPOINT;
    friend std::ostream& operator<<(std::ostream& rOut, const T_LINE_CASE_D& rCase) { return rOut << rCase.sNAME; }
};

class ReferencePointTest : public testing::TestWithParam<T_LINE_CASE_D> {};

} // namespace

TEST_P(ReferencePointTest, ByVectorAndByGrid) {
    const auto& [sName, dFrom, dTo, dVector, sPoint] = GetParam();
    CModel model;
    model.AddNode(1, dFrom[0], dFrom[1], dFrom[2]);
    model.AddNode(2, dTo[0], dTo[1], dTo[2]);
    model.AddNode(3, dFrom[0] + dVector[0], dFrom[1] + dVector[1], dFrom[2] + dVector[2]);
    model.AddLine(10, TYPE_BAR, 1, 2, 0);
    model.ELEM.Update(10, [&rVector = dVector](T_ELEM_D& rByVector) {
        rByVector.bVECTOR = 1;
        rByVector.dX1 = rVector[0];
        rByVector.dX2 = rVector[1];
        rByVector.dX3 = rVector[2];
    });
    model.AddLine(11, TYPE_BUSH, 1, 2, 3);
    model.ResolveElementOrientations();
    EXPECT_EQ(model.Orientation(10), "1: " + std::string(sPoint));
    EXPECT_EQ(model.Orientation(11), "1: " + std::string(sPoint));
}

INSTANTIATE_TEST_SUITE_P(Cases, ReferencePointTest,
                         testing::ValuesIn<T_LINE_CASE_D>({
                             {"AlongX", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, "0 0 1"},
                             {"AlongXUp", {0, 0, 0}, {1, 0, 0}, {0, 0, 1}, "0 -1 0"},
                             {"AlongY", {1, 1, 1}, {1, 3, 1}, {0, 0, 1}, "2 1 1"},
                             {"AlongZ", {0, 0, 0}, {0, 0, 1}, {1, 0, 0}, "0 1 0"},
                             {"Downward", {0, 0, 1}, {0, 0, 0}, {1, 0, 0}, "0 -1 1"},
                             {"Slanted", {0, 0, 0}, {2, 2, 2}, {1, 0, 0}, "0.333333 0.910684 -0.244017"},
                             {"NoLength", {1, 1, 1}, {1, 1, 1}, {1, 0, 0}, "1 2 1"},
                         }),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(ElementOrientations, WhatIsMissingStaysAndIsLoggedInStoreOrder) {
    CModel model;
    model.AddNode(1, 0, 0, 0);
    model.AddNode(2, 1, 0, 0);
    model.AddNode(3, 0, 1, 0);
    model.AddLine(50, TYPE_BAR, 1, 2, 9);
    model.AddLine(100, TYPE_BEAM, 1, 2, 0);
    model.AddLine(20, TYPE_GAP, 8, 9, 3);
    model.AddLine(30, TYPE_ROD, 1, 9, 0);
    model.AddLine(31, TYPE_BEND, 1, 2, 9);
    model.AddLine(32, TYPE_TUBE, 1, 2, 0);
    model.AddLine(33, TYPE_BAR, 1, 2, 3);
    model.AddLine(34, TYPE_PLATE, 1, 9, 9);
    model.ELEM.Update(34, [](T_ELEM_D& rPlate) { rPlate.iSUBTYPE = SHAPE_TRIA3; });
    model.ResolveElementOrientations();
    EXPECT_EQ(model.GetLog(), (std::vector<std::string>{"Element 20: its first grid doesn't exist.",
                                                        "Element 30: its second grid doesn't exist.",
                                                        "Element 100: its orientation grid 0 doesn't exist.",
                                                        "Element 50: its orientation grid 9 doesn't exist."}));
    for (const std::int32_t iID : {20, 30, 31, 32, 34, 50, 100}) EXPECT_EQ(model.Orientation(iID), "0: 0 0 0") << iID;
    EXPECT_EQ(model.Orientation(33), "1: 0 0 1");
}

TEST(ElementGeometry, BetaAngle) {
    CModel model;
    model.AddNode(1, 0, 0, 0);
    model.AddNode(2, 1, 0, 0);
    model.AddNode(3, 0, 0, 1);
    model.AddNode(4, 1, 0, 1);
    model.AddNode(5, 0, 0, 0);
    model.NODS.Update(2, [](T_NODS_D& rNode) { rNode.dGZ = 5.0; }); // the card's coordinates count
    EXPECT_EQ(model.Beta(1, 2, 0, 0, 0), "0");
    EXPECT_EQ(model.Beta(1, 2, 3, 0, 0), "0");  // along the element
    EXPECT_EQ(model.Beta(1, 5, 1, 0, 0), "0");  // no length
    EXPECT_EQ(model.Beta(2, 99, 0, 0, 1), "0"); // no second node: the first
    // vertical
    EXPECT_EQ(model.Beta(1, 3, 1, 0, 0), "90");
    EXPECT_EQ(model.Beta(1, 3, -1, 0, 0), "270");
    EXPECT_EQ(model.Beta(1, 3, 0, 1, 0), "180");
    EXPECT_EQ(model.Beta(99, 3, 1, 1, 0), "135"); // no first node: the origin
    // level
    EXPECT_EQ(model.Beta(1, 2, 0, 1, 0), "0");
    EXPECT_EQ(model.Beta(1, 2, 0, 0, 1), "90");
    EXPECT_EQ(model.Beta(1, 2, 0, -1, 0), "180");
    // slanted
    EXPECT_EQ(model.Beta(1, 4, 0, 1, 0), "-90");
    EXPECT_EQ(model.Beta(1, 4, 0, 0, 1), "0");
    EXPECT_EQ(model.Beta(1, 4, 0, -1, 0), "90");
    // nearly vertical or level, and a little less so
    const double NEAR = 0.00009, FAR = 0.00011;
    const std::pair<std::array<double, 3>, const char*> aEnds[] = {
        {{NEAR, 0, 1}, "180"}, {{FAR, 0, 1}, "-90"}, {{-NEAR, 0, 1}, "180"}, {{-FAR, 0, 1}, "90"},
        {{0, NEAR, 1}, "180"}, {{0, FAR, 1}, "0"},   {{0, -NEAR, 1}, "180"}, {{0, -FAR, 1}, "0"}};
    for (const auto& [dEnd, sAngle] : aEnds) {
        model.AddNode(6, dEnd[0], dEnd[1], dEnd[2]);
        EXPECT_EQ(model.Beta(1, 6, 0, 1, 0), sAngle) << Text(dEnd[0], dEnd[1], dEnd[2]);
    }
    for (const double dZ : {NEAR, -NEAR, FAR, -FAR}) {
        model.AddNode(6, 1, 0, dZ);
        EXPECT_EQ(model.Beta(1, 6, 0, 0, 1), std::fabs(dZ) == NEAR ? "90" : "0") << dZ;
    }
}

TEST(ElementGeometry, Length) {
    CModel model;
    model.AddNode(1, 0, 0, 0);
    model.AddNode(2, 7, 7, 7);
    model.NODS.Update(2, [](T_NODS_D& rNode) { // the position counts
        rNode.dGX = 3.0;
        rNode.dGY = 4.0;
        rNode.dGZ = 12.0;
    });
    model.AddLine(1, TYPE_BAR, 1, 2, 0);
    model.AddLine(2, TYPE_BAR, 2, 99, 0);
    double dLength = 0.0;
    EXPECT_EQ(model.ComputeElementLength(1, dLength), 1);
    EXPECT_EQ(dLength, 13.0);
    model.ComputeElementLength(2, dLength);
    EXPECT_EQ(dLength, 13.0);
    EXPECT_EQ(model.ComputeElementLength(99, dLength), 1);
    EXPECT_EQ(dLength, 0.0);
}
