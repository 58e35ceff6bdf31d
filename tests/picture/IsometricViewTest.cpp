#include "nas2zdt/picture/IsometricView.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

void ExpectNear(const T_VECTOR& got, const T_VECTOR& expected) {
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(got[i], expected[i], 1e-9) << "component " << i;
}

// The cube is sqrt(2) wide and 4 / sqrt(6) high in this view, so a height of 400 makes the scale 100 sqrt(6): right is
// 100 sqrt(3) (x + y), up 100 (2z - x + y), towards the eye 100 sqrt(2) (x - y + z), all from the middle of the frame.
TEST(IsometricView, UnitCube) {
    std::vector<T_VECTOR> aCorners;
    for (int i = 0; i < 8; ++i) aCorners.push_back({double(i & 1), double(i >> 1 & 1), double(i >> 2)});
    const CIsometricView view(aCorners, {10, 20, 4000, 400});
    const double r3 = 100 * std::sqrt(3.0), r2 = 100 * std::sqrt(2.0);
    ExpectNear(view.Project({0, 0, 0}), {2010 - r3, 320, -r2 / 2});
    ExpectNear(view.Project({1, 0, 0}), {2010, 420, r2 / 2});
    ExpectNear(view.Project({0, 1, 0}), {2010, 220, -1.5 * r2});
    ExpectNear(view.Project({0, 0, 1}), {2010 - r3, 120, r2 / 2});
    ExpectNear(view.Project({1, 1, 1}), {2010 + r3, 120, r2 / 2});
    ExpectNear(view.Project({0, 1, 1}), {2010, 20, -r2 / 2});
}

TEST(IsometricView, PlacesOfAnyPointsAreInTheFrame) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double BIG = std::numeric_limits<double>::max();
    const std::vector<T_VECTOR> aModels[] = {
        {{0, 0, 0}},
        {{5, 5, 5}, {5, 5, 5}},
        {{0, 0, 0}, {1, -1, 1}}, // along the view
        {{-BIG, -BIG, -BIG}, {BIG, BIG, BIG}},
        {{5e-324, 0, 0}, {0, 0, 0}},
        {{1, 2, 3}, {INF, 0, 0}, {0, std::nan(""), 0}},
    };
    for (const std::vector<T_VECTOR>& aPoints : aModels) {
        const CIsometricView view(aPoints, {0, 0, 100, 50});
        for (const T_VECTOR& rPoint : aPoints) {
            const T_VECTOR place = view.Project(rPoint);
            EXPECT_EQ(IsFinite(place), IsFinite(rPoint));
            if (!IsFinite(place)) continue;
            EXPECT_TRUE(place[0] >= -1e-9 && place[0] <= 100 + 1e-9) << place[0];
            EXPECT_TRUE(place[1] >= -1e-9 && place[1] <= 50 + 1e-9) << place[1];
            EXPECT_LT(std::abs(place[2]), 2001.0);
        }
    }
}

} // namespace
