#include "addon/FramePopper.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "ThreeFramesFixture.h"
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

using FramePopperTest = vextest::ThreeFramesFixture;

TEST_F(FramePopperTest, DestroyedRightAfterConstructionStillCyclesThroughAllFrames) {
    const std::vector<VexUniqueID_t> before = stackOrder();
    host().callLog().setEnabled(true);
    { FramePopper popper; }
    const std::vector<std::string> log = host().callLog().take();
    int pushes = 0;
    for (const std::string& entry : log)
        pushes += entry == vextest::callLine("VexUtilFramePushTop");
    EXPECT_EQ(3, pushes);
    ASSERT_GE(log.size(), 3u);
    EXPECT_EQ(vextest::callLine("VexUtilFrameActivateByUniqueID", {3}), log[log.size() - 3])
        << "the frame active before is activated again";
    EXPECT_EQ(before, stackOrder());
    EXPECT_EQ(3, activeId());
}

TEST_F(FramePopperTest, PopNextBringsEachFrameToTheTopOnce) {
    FramePopper popper;
    std::vector<VexUniqueID_t> visited{activeId()};
    while (popper.popNext())
        visited.push_back(activeId());
    EXPECT_EQ((std::vector<VexUniqueID_t>{3, 2, 1}), visited);
    EXPECT_FALSE(popper.popNext()) << "a finished popper stays finished";
}

TEST_F(FramePopperTest, StoppingEarlyStillPutsTheStackBack) {
    const std::vector<VexUniqueID_t> before = stackOrder();
    {
        FramePopper popper;
        ASSERT_TRUE(popper.popNext());
        EXPECT_EQ(2, activeId());
    }
    EXPECT_EQ(before, stackOrder());
    EXPECT_EQ(3, activeId());
}

TEST_F(FramePopperTest, HoldsTheLockAndSuspendsDrawingWhilePopping) {
    {
        FramePopper popper;
        EXPECT_EQ(1, host().lock().depth());
        EXPECT_TRUE(host().drawing().isSuspended());
        EXPECT_EQ(1, FramePopperAbstract::getOpenCount());
    }
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_FALSE(host().drawing().isSuspended());
    EXPECT_EQ(0, FramePopperAbstract::getOpenCount());
}

TEST_F(FramePopperTest, NestedPoppersAreCounted) {
    FramePopper outer;
    {
        FramePopper inner;
        EXPECT_EQ(2, FramePopperAbstract::getOpenCount());
    }
    EXPECT_EQ(1, FramePopperAbstract::getOpenCount());
}

TEST_F(FramePopperTest, ExactHostCallsWithOneFrame) {
    host().frames().removeAll();
    const VexUniqueID_t id = host().frames().create(VexPlotType_Cartesian3D).uniqueId();
    host().callLog().setEnabled(true);
    { FramePopper popper; }
    const std::string idText = std::to_string(id);
    EXPECT_EQ(
        (std::vector<std::string>{
            vextest::addOnLockStart(), vextest::callLine("VexUtilFrameGetUniqueID"),
            vextest::callLine("VexUtilFrameActivateTop"),
            vextest::callLine("VexUtilFrameGetUniqueID"),
            vextest::callLine("VexUtilDrawGraphics", {false}),
            vextest::callLine("VexUtilFramePushTop"), vextest::callLine("VexUtilFrameGetUniqueID"),
            "VexUtilFrameActivateByUniqueID(" + idText + ")",
            vextest::callLine("VexUtilDrawGraphics", {true}), vextest::addOnLockFinish()}),
        host().callLog().take());
}

TEST_F(FramePopperTest, RestoresFramesDrawingAndLockWhenAnExceptionPasses) {
    const std::vector<VexUniqueID_t> before = stackOrder();
    try {
        FramePopper popper;
        popper.popNext();
        throw std::runtime_error("failed on the second frame");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(before, stackOrder());
    EXPECT_EQ(3, activeId());
    EXPECT_FALSE(host().drawing().isSuspended());
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_EQ(0, FramePopperAbstract::getOpenCount());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
