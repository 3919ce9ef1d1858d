#include "model/EnabledZoneSolutionTimeRange.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/Zone.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class EnabledZoneSolutionTimeRangeTest : public vextest::AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        host().frames().create(VexPlotType_Cartesian3D);
    }

    int32_t addZone(double time, bool enabled = true) {
        return host().dataSet().addZone(vexhost::Zone{"zone", time, 1, enabled, nullptr});
    }

    double minTime = -99;
    double maxTime = 99;
};

TEST_F(EnabledZoneSolutionTimeRangeTest, NoZonesGiveNoRangeAndLeaveTheBoundsAlone) {
    EXPECT_FALSE(getEnabledZoneSolutionTimeRange(minTime, maxTime));
    EXPECT_EQ(-99, minTime);
    EXPECT_EQ(99, maxTime);
}

TEST_F(EnabledZoneSolutionTimeRangeTest, DisabledZonesDoNotCount) {
    addZone(1, false);
    addZone(2, false);
    EXPECT_FALSE(getEnabledZoneSolutionTimeRange(minTime, maxTime));
    EXPECT_EQ(-99, minTime);
}

TEST_F(EnabledZoneSolutionTimeRangeTest, FirstZoneSetsBothBounds) {
    addZone(-3);
    ASSERT_TRUE(getEnabledZoneSolutionTimeRange(minTime, maxTime));
    EXPECT_EQ(-3, minTime);
    EXPECT_EQ(-3, maxTime);
}

TEST_F(EnabledZoneSolutionTimeRangeTest, LaterZonesWidenTheRangeInEitherDirection) {
    addZone(2);
    addZone(0.5);
    addZone(10, false);
    addZone(3);
    addZone(1);
    ASSERT_TRUE(getEnabledZoneSolutionTimeRange(minTime, maxTime));
    EXPECT_EQ(0.5, minTime);
    EXPECT_EQ(3, maxTime);
}

TEST_F(EnabledZoneSolutionTimeRangeTest, WalksTheEnabledZonesUnderTheLockAndFreesTheSet) {
    addZone(4);
    addZone(5);
    host().callLog().setEnabled(true);
    ASSERT_TRUE(getEnabledZoneSolutionTimeRange(minTime, maxTime));
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(vextest::addOnLockStart(), log.front());
    EXPECT_EQ(vextest::addOnLockFinish(), log.back());
    int setFrees = 0;
    int timeReads = 0;
    for (const std::string& entry : log) {
        setFrees += entry.rfind(vextest::callLineStart("VexUtilSetDealloc"), 0) == 0;
        timeReads += entry.rfind(vextest::callLineStart("VexUtilZoneGetSolutionTime"), 0) == 0;
    }
    EXPECT_EQ(1, setFrees);
    EXPECT_EQ(2, timeReads);
    EXPECT_EQ(0u, host().bookkeeping().outstanding(vexhost::Bookkeeping::Kind::Set));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
