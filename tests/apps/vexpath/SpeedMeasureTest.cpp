// The one measure of how far the camera goes: turn, movement and zoom in widths of the picture.
#include "SpeedMeasure.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using vexplot::path::KeyFrameView_s;
using vexplot::path::SpeedMeasure;

const double Pi = std::acos(-1.0);

TEST(SpeedMeasureTest, AQuarterTurnMovesThePicturesEdgeByAQuarterOfPiWidths) {
    const KeyFrameView_s a{0, 0, 0, 60, 10, 0, 10};
    KeyFrameView_s b = a;
    b.Theta = 100;
    EXPECT_DOUBLE_EQ(90, SpeedMeasure::turnDegrees(a, b));
    EXPECT_NEAR(Pi / 4, SpeedMeasure::step(a, b), 1e-12);
}

TEST(SpeedMeasureTest, TheThreeAnglesTurnTogetherEachTheShortWay) {
    const KeyFrameView_s a{0, 0, 0, 10, 170, -175, 10};
    const KeyFrameView_s b{0, 0, 0, 13, -170, 175, 10};
    // 3, 20 and -10 degrees.
    EXPECT_NEAR(std::sqrt(9.0 + 400 + 100), SpeedMeasure::turnDegrees(a, b), 1e-12);
}

TEST(SpeedMeasureTest, MovingByOneViewWidthIsOneWidth) {
    const KeyFrameView_s a{0, 0, 0, 60, 30, 0, 4};
    KeyFrameView_s b = a;
    b.X = 3;
    b.Y = 4;
    EXPECT_NEAR(5.0 / 4, SpeedMeasure::step(a, b), 1e-12);
}

TEST(SpeedMeasureTest, ZoomingByAFactorCountsHalfItsLogarithmEitherWay) {
    const KeyFrameView_s a{0, 0, 0, 60, 30, 0, 4};
    KeyFrameView_s b = a;
    b.Width = 8;
    EXPECT_NEAR(std::log(2.0) / 2, SpeedMeasure::step(a, b), 1e-12);
    EXPECT_NEAR(std::log(2.0) / 2, SpeedMeasure::step(b, a), 1e-12);
}

TEST(SpeedMeasureTest, KindsOfMotionAddAsTheSidesOfABox) {
    const KeyFrameView_s a{0, 0, 0, 60, 30, 0, 1};
    const KeyFrameView_s b{0, 1, 0, 60, 30 + 360 / Pi, 0, 1};
    // A turn of 2 radians moves the edge by 1 width, the viewer moves by 1 width.
    EXPECT_NEAR(std::sqrt(2.0), SpeedMeasure::step(a, b), 1e-12);
}

TEST(SpeedMeasureTest, AViewHoldsStillOnlyWithNothingChanged) {
    const KeyFrameView_s a{1, 2, 3, 60, 180, 0, 5};
    KeyFrameView_s b = a;
    EXPECT_TRUE(SpeedMeasure::still(a, b));
    b.Theta = -180;  // the same angle
    EXPECT_TRUE(SpeedMeasure::still(a, b));
    b.Width = 5.0001;
    EXPECT_FALSE(SpeedMeasure::still(a, b));
    EXPECT_EQ(0, SpeedMeasure::step(a, a));
}

}  // namespace
