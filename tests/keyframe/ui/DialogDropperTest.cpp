#include "ui/DialogDropper.h"

#include <gtest/gtest.h>

#include "MainDialogFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/IdleQueue.h"

namespace vextest {
namespace {

class DialogDropperTest : public MainDialogFixture {
protected:
    void SetUp() override {
        MainDialogFixture::SetUp();
        openMainDialog();
    }
    void makeActiveFrame(VexPlotType_e plotType) {
        host().frames().setPlotType(host().frames().active()->uniqueId(), plotType);
    }
};

TEST_F(DialogDropperTest, TheDialogIsDroppedFromTheIdleQueueWhenTheFrameStopsBeing3D) {
    makeActiveFrame(VexPlotType_Cartesian2D);
    // Not inside the notification: one drop request waits for the host to be idle.
    EXPECT_TRUE(dialogNamed(Title).up);
    EXPECT_EQ(host().idleQueue().pending(), 1u);
    makeActiveFrame(VexPlotType_XYLine);
    EXPECT_EQ(host().idleQueue().pending(), 1u);
    runIdle();
    EXPECT_FALSE(dialogNamed(Title).up);
    EXPECT_EQ(lockDepth(), 0);
}

TEST_F(DialogDropperTest, ALastFrameDeletedDropsTheDialog) {
    host().frames().removeAll();
    runIdle();
    EXPECT_FALSE(dialogNamed(Title).up);
}

TEST_F(DialogDropperTest, ChangesThatKeepA3DFrameLeaveTheDialogUp) {
    createFrame3D();
    makeActiveFrame(VexPlotType_Cartesian3D);
    EXPECT_EQ(host().idleQueue().pending(), 0u);
    runIdle();
    EXPECT_TRUE(dialogNamed(Title).up);
}

TEST_F(DialogDropperTest, TheTestRunsUnderTheLock) {
    startCallLog();
    makeActiveFrame(VexPlotType_Cartesian2D);
    const std::vector<std::string> log = takeCallLog();
    const std::vector<std::string> expected = {vextest::addOnLockStart(), vextest::addOnLockStart(),
                                               vextest::callLine("VexUtilFrameGetCount"),
                                               vextest::callLine("VexUtilFrameGetPlotType")};
    ASSERT_GE(log.size(), expected.size());
    EXPECT_EQ(std::vector<std::string>(log.begin(), log.begin() + 4), expected);
    runIdle();
}

TEST_F(DialogDropperTest, TheDroppedDialogOpensAgainOnceTheFrameIs3DAgain) {
    makeActiveFrame(VexPlotType_Cartesian2D);
    runIdle();
    makeActiveFrame(VexPlotType_Cartesian3D);
    openMainDialog();
    EXPECT_TRUE(dialogNamed(Title).up);
    EXPECT_EQ(host().guiModel().dialogs().size(), 1u);
}

}  // namespace
}  // namespace vextest
