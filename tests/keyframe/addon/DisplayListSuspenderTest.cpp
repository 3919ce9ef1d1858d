#include "addon/DisplayListSuspender.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "addon/LockScope.h"
#include "support/AddOnFixture.h"
#include "vexhost/Host.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const vexhost::StyleStore::Path UseDisplayLists{"Interface", "UseDisplayLists"};

// Style values are host state: every test holds the add-on's lock, as the run that uses the
// suspender does.
class DisplayListSuspenderTest : public vextest::AddOnFixture {
protected:
    bool displayListsOn() const { return host().style().getBool(UseDisplayLists); }
};

TEST_F(DisplayListSuspenderTest, SwitchesDisplayListsOffForTheScopeAndBackOn) {
    LockScope lock;
    ASSERT_TRUE(displayListsOn());
    {
        DisplayListSuspender suspender;
        EXPECT_FALSE(displayListsOn());
    }
    EXPECT_TRUE(displayListsOn());
}

TEST_F(DisplayListSuspenderTest, LeavesDisplayListsOffWhenTheyWereOff) {
    LockScope lock;
    host().style().setBool(UseDisplayLists, false);
    {
        DisplayListSuspender suspender;
        EXPECT_FALSE(displayListsOn());
    }
    EXPECT_FALSE(displayListsOn());
}

TEST_F(DisplayListSuspenderTest, RestoresTheSettingWhenAnExceptionPasses) {
    LockScope lock;
    try {
        DisplayListSuspender suspender;
        throw std::runtime_error("failed during the run");
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(displayListsOn());
}

TEST_F(DisplayListSuspenderTest, ARefusedReadLeavesTheSettingAsItWas) {
    LockScope lock;
    for (const bool setting : {false, true}) {
        host().style().clearRefusals();
        host().style().setBool(UseDisplayLists, setting);
        host().style().refuse(UseDisplayLists, true, false);
        {
            DisplayListSuspender suspender;
            EXPECT_EQ(setting, displayListsOn());
        }
        EXPECT_EQ(setting, displayListsOn());
    }
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
