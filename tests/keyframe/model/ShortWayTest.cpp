#include "model/ShortWay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vexplot {
namespace vexutiltools {
namespace {

TEST(ShortWayTest, AnglesWithinAHalfTurnStayAsTheyAre) {
    EXPECT_EQ(0.0, shortWay(0.0));
    EXPECT_EQ(179.5, shortWay(179.5));
    EXPECT_EQ(-179.5, shortWay(-179.5));
}

TEST(ShortWayTest, LongerTurnsGoTheOtherWayRound) {
    EXPECT_EQ(-170.0, shortWay(190.0));
    EXPECT_EQ(170.0, shortWay(-190.0));
    EXPECT_EQ(10.0, shortWay(370.0));
    EXPECT_EQ(-90.0, shortWay(270.0));
}

TEST(ShortWayTest, AHalfTurnKeepsItsDirection) {
    EXPECT_EQ(180.0, shortWay(180.0));
    EXPECT_EQ(-180.0, shortWay(-180.0));
    EXPECT_EQ(180.0, shortWay(540.0));
}

TEST(ShortWayTest, AHugeAngleEndsAtOnce) {
    EXPECT_LE(std::abs(shortWay(1e300)), 180.0);
    EXPECT_TRUE(std::isnan(shortWay(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
