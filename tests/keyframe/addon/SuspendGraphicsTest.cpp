#include "addon/SuspendGraphics.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Drawing.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class SuspendGraphicsTest : public vextest::AddOnFixture {};

TEST_F(SuspendGraphicsTest, TakesTheLockThenSuspendsDrawingAndUndoesBothInReverse) {
    host().callLog().setEnabled(true);
    {
        SuspendGraphics suspend;
        EXPECT_TRUE(host().drawing().isSuspended());
        EXPECT_EQ(1, host().lock().depth());
    }
    EXPECT_FALSE(host().drawing().isSuspended());
    EXPECT_EQ((std::vector<std::string>{
                  vextest::addOnLockStart(), vextest::callLine("VexUtilDrawGraphics", {false}),
                  vextest::callLine("VexUtilDrawGraphics", {true}), vextest::addOnLockFinish()}),
              host().callLog().take());
}

TEST_F(SuspendGraphicsTest, NestedScopesKeepDrawingOffUntilTheOuterOneEnds) {
    {
        SuspendGraphics outer;
        {
            SuspendGraphics inner;
            EXPECT_EQ(2, host().drawing().suspendDepth());
        }
        EXPECT_TRUE(host().drawing().isSuspended());
    }
    EXPECT_FALSE(host().drawing().isSuspended());
}

TEST_F(SuspendGraphicsTest, RestoresDrawingAndLockWhenAnExceptionPasses) {
    try {
        SuspendGraphics suspend;
        throw std::runtime_error("failed while drawing was off");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(host().drawing().isSuspended());
    EXPECT_EQ(0, host().lock().depth());
}

TEST_F(SuspendGraphicsTest, RedrawWhileSuspendedDrawsNothing) {
    host().frames().create(VexPlotType_Cartesian3D);
    {
        SuspendGraphics suspend;
        VexUtilRedraw(true);
    }
    EXPECT_EQ(0u, host().drawing().drawnFrames());
    EXPECT_EQ(1u, host().drawing().skippedRedraws());
}

TEST_F(SuspendGraphicsTest, HasAVirtualDestructorAndIsNotCopyable) {
    static_assert(std::has_virtual_destructor<SuspendGraphics>::value, "virtual destructor");
    static_assert(!std::is_copy_constructible<SuspendGraphics>::value, "held once");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
