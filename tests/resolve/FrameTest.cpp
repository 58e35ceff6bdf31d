// Frames in a circle, and the vector operations under frames.

#include "store/Frames.h"
#include "store/MathFunc.h"
#include "support/Text.h"

#include <gtest/gtest.h>

namespace {

/// A frame with the axes of the one above it and its origin at (dX, dY, dZ).
CUCSRect Shifted(double dX, double dY, double dZ) {
    CUCSRect frame;
    frame.SetByThreePoints({dX, dY, dZ}, {dX, dY, dZ + 1.0}, {dX + 1.0, dY, dZ});
    return frame;
}

std::string Global(const CUCSRect& rFrame, double dX, double dY, double dZ) {
    rFrame.ToGlobal(dX, dY, dZ);
    return Text(dX, dY, dZ);
}

std::string Turn(double dAngle, const double (&dAxis)[3], double dX, double dY, double dZ) {
    CMathFunc::RotateAboutAxis(dAngle, dAxis[0], dAxis[1], dAxis[2], dX, dY, dZ);
    return Text(dX, dY, dZ);
}

} // namespace

TEST(Frame, EachFrameOfACircleOnce) {
    for (std::size_t nFrames = 1; nFrames <= 6; ++nFrames) {
        for (std::size_t iEntry = 0; iEntry < nFrames; ++iEntry) {
            // Each frame shifts by a digit of its own: a sum of ones tells that every frame was met and none twice.
            for (std::size_t iMeasured = 0; iMeasured <= nFrames; ++iMeasured) { // the first one; at last none is
                SCOPED_TRACE(testing::Message() << nFrames << " frames, the last leads to " << iEntry << ", "
                                                << iMeasured << " is measured first");
                CUCSRect frames[6];
                double dSum = 0.0, dDigit = 1.0;
                for (std::size_t i = 0; i < nFrames; ++i, dDigit *= 10.0) {
                    frames[i] = Shifted(dDigit, 0, 0);
                    frames[i].SetParent(&frames[i + 1 < nFrames ? i + 1 : iEntry]);
                    dSum += dDigit;
                }
                if (iMeasured < nFrames) {
                    frames[iMeasured].MeasureChain();
                    for (std::size_t i = 0; i < nFrames; ++i) frames[i].MeasureChain();
                }
                EXPECT_EQ(Global(frames[0], 0, 0, 0), Text(dSum, 0, 0));
                const CUCSRect copy = frames[nFrames - 1]; // stands before the circle
                EXPECT_EQ(copy.GetFrameCount(), 1 + nFrames - iEntry);
            }
        }
    }
}

TEST(MathFunc, TurnsAboutAnAxis) {
    EXPECT_EQ(Turn(90, {0, 0, 1}, 1, 0, 0), "0 1 0");
    EXPECT_EQ(Turn(90, {1, 0, 0}, 0, 1, 0), "0 0 1");
    EXPECT_EQ(Turn(90, {0, 5, 0}, 0, 0, 1), "1 0 0");
    EXPECT_EQ(Turn(90, {0, 0, -2}, 1, 0, 0), "0 -1 0");
    EXPECT_EQ(Turn(90, {-1, 0, 0}, 0, 1, 0), "0 0 -1");
    EXPECT_EQ(Turn(90, {0, 0, 0}, 1, 0, 0), "0 1 0");
    EXPECT_EQ(Turn(90, {1, 1, 1}, 1, 0, 0), "0.333333 0.910684 -0.244017");
    EXPECT_EQ(Turn(60, {0, 0, 1}, 2, 0, 3), "1 1.73205 3");
    EXPECT_EQ(Turn(90, {0, 0, 1}, 1, 1e-11, -0.0), "0 1 0"); // small values become 0, and lose their sign
    EXPECT_EQ(Turn(0, {0, 0, 1}, 1, 1e-11, -0.0), "1 1e-11 -0");
    EXPECT_EQ(Turn(90, {0, 0, 1}, 2e-10, 9e-11, 2e-10), "0 2e-10 2e-10");
    EXPECT_EQ(Turn(90, {0, 0, 1}, 9e-11, -2e-10, -9e-11), "2e-10 0 0");
}

TEST(MathFunc, NormalizeRefusesNoLength) {
    double dUnit[3] = {7, 8, 9};
    EXPECT_EQ(CMathFunc::Normalize({1e-16, 0, 0}, dUnit), 0);
    EXPECT_EQ(Text(dUnit[0], dUnit[1], dUnit[2]), "7 8 9");
    EXPECT_EQ(CMathFunc::Normalize({0, 0, 2e-15}, dUnit), 1);
    EXPECT_EQ(Text(dUnit[0], dUnit[1], dUnit[2]), "0 0 1");
    EXPECT_EQ(CMathFunc::Normalize({0, 3, -4}, dUnit), 1);
    EXPECT_EQ(Text(dUnit[0], dUnit[1], dUnit[2]), "0 0.6 -0.8");
}

TEST(MathFunc, ArcCosineTellsWhyItIsNoNumber) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double NAN_ = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(CMathFunc::ArcCosine(1.0), 0.0);
    for (const double d : {1.0000001, -2.0, INF, -INF, NAN_, -NAN_}) {
        const double dAngle = CMathFunc::ArcCosine(d);
        EXPECT_TRUE(std::isnan(dAngle)) << d;
        EXPECT_EQ(std::signbit(dAngle), !std::isfinite(d)) << d;
    }
}
