#include "animation/AnimationHostQueries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/DataSet.h"
#include "vexhost/Host.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class AnimationHostQueriesTest : public vextest::AnimationFixture {};

TEST_F(AnimationHostQueriesTest, WithoutADataSetNothingIsTransient) {
    startCallLog();
    EXPECT_FALSE(isDataSetTransient());
    EXPECT_TRUE(
        linesStartingWith(takeCallLog(), vextest::callLineStart("VexUtilZoneGetEnabled")).empty());
}

TEST_F(AnimationHostQueriesTest, ZonesOfNoStrandAreNotTransient) {
    addZone(0, 0);
    addZone(1, 0);
    EXPECT_FALSE(isDataSetTransient());
}

TEST_F(AnimationHostQueriesTest, ADisabledStrandIsNotTransient) {
    addZone(0, 0);
    host().dataSet().setZoneEnabled(addZone(1, 3), false);
    EXPECT_FALSE(isDataSetTransient());
}

TEST_F(AnimationHostQueriesTest, AnEnabledZoneOfAStrandIsTransientAndEndsTheWalk) {
    addZone(0, 0);
    addZone(1, 2);
    addZone(2, 2);
    startCallLog();
    EXPECT_TRUE(isDataSetTransient());
    EXPECT_EQ((std::vector<std::string>{vextest::callLine("VexUtilZoneGetStrandID", {1}),
                                        vextest::callLine("VexUtilZoneGetStrandID", {2})}),
              linesStartingWith(takeCallLog(), vextest::callLineStart("VexUtilZoneGetStrandID")));
}

struct StreamCase {
    bool markers;
    bool dashes;
    bool animates;
};

TEST_F(AnimationHostQueriesTest, StreamtracesAnimateWithMarkersOrDashes) {
    const StreamCase cases[] = {
        {false, false, false}, {true, false, true}, {false, true, true}, {true, true, true}};
    for (const StreamCase& c : cases) {
        host().style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, c.markers);
        host().style().setBool({"StreamAttributes", "StreamTiming", "ShowDashes"}, c.dashes);
        EXPECT_EQ(c.animates, canAnimateStreamtraces())
            << "markers " << c.markers << ", dashes " << c.dashes;
    }
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
