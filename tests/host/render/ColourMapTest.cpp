// The colour map table: names as the command line and docs use them, and colours along each map.
#include "vexhost/ColourMap.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace vexhost {
namespace {

const ColourMap kAllMaps[] = {ColourMap::Rainbow, ColourMap::Viridis, ColourMap::CoolWarm};

TEST(ColourMapTest, NamesAreListedInEnumOrderAndReadBack) {
    EXPECT_EQ(colourMapNames(), (std::vector<std::string>{"rainbow", "viridis", "coolwarm"}));
    for (ColourMap map : kAllMaps) {
        ColourMap read = ColourMap::Rainbow;
        EXPECT_TRUE(colourMapFromName(colourMapName(map), read)) << colourMapName(map);
        EXPECT_EQ(read, map);
    }
}

TEST(ColourMapTest, NamesAreReadWithoutRegardToCase) {
    ColourMap map = ColourMap::Rainbow;
    EXPECT_TRUE(colourMapFromName("ViRiDiS", map));
    EXPECT_EQ(map, ColourMap::Viridis);
    EXPECT_TRUE(colourMapFromName("COOLWARM", map));
    EXPECT_EQ(map, ColourMap::CoolWarm);
}

TEST(ColourMapTest, UnknownNameIsRefusedAndLeavesTheMapAlone) {
    ColourMap map = ColourMap::CoolWarm;
    for (const char* name : {"jet", "", "rainbow ", "cool warm", "viridis2"}) {
        EXPECT_FALSE(colourMapFromName(name, map)) << '"' << name << '"';
        EXPECT_EQ(map, ColourMap::CoolWarm);
    }
}

TEST(ColourMapTest, RainbowRunsThroughBlueCyanGreenYellowRed) {
    using Colour = std::array<float, 3>;
    EXPECT_EQ(colourMapColour(ColourMap::Rainbow, 0), (Colour{0, 0, 1}));
    EXPECT_EQ(colourMapColour(ColourMap::Rainbow, 0.25), (Colour{0, 1, 1}));
    EXPECT_EQ(colourMapColour(ColourMap::Rainbow, 0.5), (Colour{0, 1, 0}));
    EXPECT_EQ(colourMapColour(ColourMap::Rainbow, 0.75), (Colour{1, 1, 0}));
    EXPECT_EQ(colourMapColour(ColourMap::Rainbow, 1), (Colour{1, 0, 0}));
    const Colour between = colourMapColour(ColourMap::Rainbow, 0.125);
    EXPECT_FLOAT_EQ(between[0], 0);
    EXPECT_FLOAT_EQ(between[1], 0.5f);
    EXPECT_FLOAT_EQ(between[2], 1);
}

TEST(ColourMapTest, ViridisAndCoolWarmHaveTheirPublishedEndsAndMiddle) {
    const std::array<float, 3> viridisLow = colourMapColour(ColourMap::Viridis, 0);
    const std::array<float, 3> viridisHigh = colourMapColour(ColourMap::Viridis, 1);
    EXPECT_NEAR(viridisLow[0], 0.267, 0.001);  // dark violet
    EXPECT_NEAR(viridisLow[2], 0.329, 0.001);
    EXPECT_NEAR(viridisHigh[0], 0.993, 0.001);  // yellow
    EXPECT_NEAR(viridisHigh[1], 0.906, 0.001);
    const std::array<float, 3> middle = colourMapColour(ColourMap::CoolWarm, 0.5);
    for (float c : middle) {
        EXPECT_NEAR(c, 0.865, 0.001);  // neutral grey
    }
    EXPECT_GT(colourMapColour(ColourMap::CoolWarm, 0)[2], 0.7);  // blue
    EXPECT_GT(colourMapColour(ColourMap::CoolWarm, 1)[0], 0.7);  // red
}

TEST(ColourMapTest, PositionsOutsideTheMapAreClampedAndNotANumberIsTheMiddle) {
    for (ColourMap map : kAllMaps) {
        EXPECT_EQ(colourMapColour(map, -3), colourMapColour(map, 0)) << colourMapName(map);
        EXPECT_EQ(colourMapColour(map, 7), colourMapColour(map, 1)) << colourMapName(map);
        EXPECT_EQ(colourMapColour(map, std::numeric_limits<double>::quiet_NaN()),
                  colourMapColour(map, 0.5))
            << colourMapName(map);
    }
}

TEST(ColourMapTest, ColoursChangeSmoothlyAlongEveryMap) {
    for (ColourMap map : kAllMaps) {
        std::array<float, 3> previous = colourMapColour(map, 0);
        for (int i = 1; i <= 1000; ++i) {
            const std::array<float, 3> colour = colourMapColour(map, i / 1000.0);
            for (int c = 0; c < 3; ++c) {
                ASSERT_GE(colour[c], 0) << colourMapName(map);
                ASSERT_LE(colour[c], 1) << colourMapName(map);
                // The steepest stretch, CoolWarm's last, changes by 4.5 per unit.
                ASSERT_LE(std::fabs(colour[c] - previous[c]), 0.0046) << colourMapName(map) << i;
            }
            previous = colour;
        }
    }
}

}  // namespace
}  // namespace vexhost
