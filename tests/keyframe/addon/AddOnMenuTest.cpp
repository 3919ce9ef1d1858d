#include "addon/AddOnMenu.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "ui/DialogMain.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/CallLog.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const std::string NotAllowed = "Keyframe animation is only allowed with 3D plots.";
const std::string Lock = vextest::addOnLockStart();
const std::string Unlock = vextest::addOnLockFinish();

class AddOnMenuTest : public vextest::AddOnFixture {
protected:
    bool chooseMenuItem() {
        return host().addOns().chooseMenuOption("Animate", "&Key Frame Animation...");
    }
};

TEST_F(AddOnMenuTest, HostWithNoFramesShowsOnlyAllowedWith3DPlots) {
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(std::vector<std::string>{NotAllowed}, host().userDialogs().errorMessages());
}

class AddOnMenuPlotTypeTest : public AddOnMenuTest,
                              public ::testing::WithParamInterface<VexPlotType_e> {};

TEST_P(AddOnMenuPlotTypeTest, ActiveFrameThatIsNot3DCartesianShowsOnlyAllowedWith3DPlots) {
    host().frames().create(GetParam());
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(std::vector<std::string>{NotAllowed}, host().userDialogs().errorMessages());
}

INSTANTIATE_TEST_SUITE_P(PlotTypes, AddOnMenuPlotTypeTest,
                         ::testing::Values(VexPlotType_Sketch, VexPlotType_Cartesian2D,
                                           VexPlotType_XYLine, VexPlotType_PolarLine));

TEST_F(AddOnMenuTest, OnlyTheActiveFrameCounts) {
    host().frames().create(VexPlotType_Cartesian3D);
    host().frames().create(VexPlotType_Cartesian2D);
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(std::vector<std::string>{NotAllowed}, host().userDialogs().errorMessages());
}

TEST_F(AddOnMenuTest, A3DCartesianFrameIsAllowedWithoutError) {
    host().frames().create(VexPlotType_Cartesian3D);
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_TRUE(host().userDialogs().errorMessages().empty());
}

TEST_F(AddOnMenuTest, ChoosingTheItemTwiceWithA3DFrameIsAllowedBothTimes) {
    host().frames().create(VexPlotType_Cartesian3D);
    ASSERT_TRUE(chooseMenuItem());
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_TRUE(host().userDialogs().errorMessages().empty());
}

TEST_F(AddOnMenuTest, CheckRunsInAnInnerLockWithinTheCallbacksLock) {
    host().frames().create(VexPlotType_Cartesian3D);
    host().callLog().setEnabled(true);
    ASSERT_TRUE(chooseMenuItem());
    // After the check the allowed callback goes on to open the main dialog, still in its lock.
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_GE(log.size(), 6u);
    EXPECT_EQ((std::vector<std::string>{Lock, Lock, vextest::callLine("VexUtilFrameGetCount"),
                                        vextest::callLine("VexUtilFrameGetPlotType"), Unlock}),
              std::vector<std::string>(log.begin(), log.begin() + 5));
    EXPECT_EQ(log.back(), Unlock);
}

TEST_F(AddOnMenuTest, ErrorIsShownAfterTheCheckReleasedItsLock) {
    host().callLog().setEnabled(true);
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(
        (std::vector<std::string>{Lock, Lock, vextest::callLine("VexUtilFrameGetCount"), Unlock,
                                  "VexUtilDialogErrMsg(\"" + NotAllowed + "\")", Unlock}),
        host().callLog().take());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
