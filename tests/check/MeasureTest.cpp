// Lengths, areas and volumes, worked out by hand.

#include "nas2zdt/check/Measure.h"
#include "nas2zdt/check/DenseRows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using CORNERS = std::array<T_VECTOR, 8>;

/// Of edges of length 1.
constexpr CORNERS CUBE = {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}};

/// A cube with two corners moved.
CORNERS Moved(std::size_t iA, const T_VECTOR& rA, std::size_t iB, const T_VECTOR& rB) {
    CORNERS corners = CUBE;
    corners[iA] = Add(corners[iA], rA);
    corners[iB] = Add(corners[iB], rB);
    return corners;
}

/// With u, v, w from 0 to 1 a corner's move is weighted by products such as u v w or (1 - u) v w.
TEST(Measure, VolumesOfTwistedSolids) {
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_HEXA, CUBE), 1.0);
    // the integral of 1 + v w
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_HEXA, Moved(6, {1, 0, 0}, 0, {})), 1.25);
    // of (1 + v w) (1 + (1 - u) (1 - v)) + u v w (1 - v), and its like for the other pairs of axes
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_HEXA, Moved(6, {1, 0, 0}, 4, {0, 0, 1})), 19.0 / 12);
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_HEXA, Moved(6, {0, 1, 0}, 1, {1, 0, 0})), 19.0 / 12);
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_HEXA, Moved(6, {0, 0, 1}, 3, {0, 1, 0})), 19.0 / 12);
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_WEDGE, {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}}}),
                     0.5);
    // a top of twice the edges: the integral of (1 + w)^2 / 2
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_WEDGE, {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {2, 0, 1}, {0, 2, 1}}}),
                     7.0 / 6);
    EXPECT_DOUBLE_EQ(MeasureBody(BODY_PYRAMID, {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {5, 5, 1}}}), 1.0 / 3);
}

TEST(Measure, AreasOfQuads) {
    const auto area = [](double dSize, double dHeight) {
        return MeasureBody(BODY_QUAD, {{{0, 0, 0}, {dSize, 0, 0}, {dSize, dSize, dHeight}, {0, dSize, 0}}});
    };
    EXPECT_DOUBLE_EQ(area(3.0, 0.0), 9.0);
    // corners that are 1, 0, 1, 0 high: normals (-v, -u, 1) at the four points, whose u and v are p and 1 - p
    const double dP = 0.5 + 0.5 / std::sqrt(3.0), dQ = 1.0 - dP;
    EXPECT_DOUBLE_EQ(area(1.0, 1.0), (std::sqrt(1 + 2 * dP * dP) + std::sqrt(1 + 2 * dQ * dQ)) / 4 +
                                         std::sqrt(1 + dP * dP + dQ * dQ) / 2);
    EXPECT_DOUBLE_EQ(area(1e-80, 0.0), 1e-160); // whose squares are too small, or too large, for a number
    EXPECT_DOUBLE_EQ(area(1e80, 0.0), 1e160);
    EXPECT_EQ(area(0.0, 0.0), 0.0);
    EXPECT_TRUE(std::isnan(area(1.0, std::numeric_limits<double>::quiet_NaN())));
}

/// Ids one after the other, with gaps, in another order, and far apart.
TEST(DenseRows, FindsTheLastRowOfAnId) {
    using IDS = std::vector<std::int32_t>;
    for (const IDS& rIds : {IDS{5, 6, 7, 8}, IDS{5, 7, 8}, IDS{6, 5, 7}, IDS{5, 6, 6}, IDS{-1, 0, 1},
                            IDS{1, 2000000000}, IDS{7}, IDS{}}) {
        CDenseRows rows;
        rows.Fill(rIds, [](std::int32_t i) { return i; });
        for (const std::int32_t iID :
             {-2, -1, 0, 1, 4, 5, 6, 7, 8, 9, 2000000000, std::numeric_limits<std::int32_t>::max(),
              std::numeric_limits<std::int32_t>::min()}) {
            std::uint32_t iWanted = CKeyIndex::NONE;
            for (std::uint32_t i = 0; i < rIds.size(); ++i) {
                if (rIds[i] == iID) iWanted = i;
            }
            EXPECT_EQ(rows.Find(iID), iWanted) << iID;
        }
    }
}

} // namespace
