#include "addon/FramePopperLightweight.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "ThreeFramesFixture.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using FramePopperLightweightTest = vextest::ThreeFramesFixture;

TEST_F(FramePopperLightweightTest, VisitsEveryFrameTopFirstWithoutReordering) {
    const std::vector<VexUniqueID_t> before = stackOrder();
    {
        FramePopperLightweight popper;
        std::vector<VexUniqueID_t> visited{VexUtilFrameGetUniqueID()};
        while (popper.popNext())
            visited.push_back(VexUtilFrameGetUniqueID());
        EXPECT_EQ((std::vector<VexUniqueID_t>{3, 2, 1}), visited);
        EXPECT_EQ(before, stackOrder());
    }
    EXPECT_EQ(before, stackOrder());
    EXPECT_FALSE(host().frames().isLightweightPopping());
}

TEST_F(FramePopperLightweightTest, DestroyedRightAfterConstructionVisitsTheRestAndEnds) {
    host().callLog().setEnabled(true);
    { FramePopperLightweight popper; }
    EXPECT_EQ((std::vector<std::string>{
                  vextest::addOnLockStart(), vextest::callLine("VexUtilFrameLightweightPopStart"),
                  vextest::callLine("VexUtilFrameLightweightPopNext"),
                  vextest::callLine("VexUtilFrameLightweightPopNext"),
                  vextest::callLine("VexUtilFrameLightweightPopNext"),
                  vextest::callLine("VexUtilFrameLightweightPopEnd"), vextest::addOnLockFinish()}),
              host().callLog().take());
    EXPECT_FALSE(host().frames().isLightweightPopping());
}

TEST_F(FramePopperLightweightTest, HoldsTheLockAndCountsAsAnOpenPopper) {
    {
        FramePopperLightweight popper;
        EXPECT_EQ(1, host().lock().depth());
        EXPECT_EQ(1, FramePopperAbstract::getOpenCount());
    }
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_EQ(0, FramePopperAbstract::getOpenCount());
}

TEST_F(FramePopperLightweightTest, EndsThePoppingWhenAnExceptionPasses) {
    try {
        FramePopperLightweight popper;
        throw std::runtime_error("failed on the first frame");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(host().frames().isLightweightPopping());
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_EQ(0, FramePopperAbstract::getOpenCount());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
