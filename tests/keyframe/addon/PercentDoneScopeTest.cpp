#include "addon/PercentDoneScope.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "addon/LockScope.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const std::string Hint = " Press [Esc] or click [Stop] to cancel.";

// The status is host state: every test holds the add-on's lock while a scope is open, as the
// scope's users do.
class PercentDoneScopeTest : public vextest::AddOnFixture {};

TEST_F(PercentDoneScopeTest, AppendsTheCancelHintAndShowsStopButtonAndBar) {
    LockScope lock;
    PercentDoneScope status("Animating....", PercentDoneScope::WithCancelHint, 7);
    EXPECT_TRUE(host().progress().isOpen());
    EXPECT_EQ("Animating.... Press [Esc] or click [Stop] to cancel.", host().progress().text());
    EXPECT_TRUE(host().progress().showsStopButton());
    EXPECT_TRUE(host().progress().showsProgressBar());
    EXPECT_EQ(7.0, status.getTotal());
    EXPECT_EQ(0.0, status.getDone());
    EXPECT_FALSE(status.isCanceled());
}

TEST_F(PercentDoneScopeTest, SuffixSwitchOneShowsTheTextAlone) {
    LockScope lock;
    PercentDoneScope status("Working", PercentDoneScope::TextOnly, 3);
    EXPECT_EQ("Working", host().progress().text());
}

TEST_F(PercentDoneScopeTest, OnlySwitchOneDropsTheHint) {
    LockScope lock;
    PercentDoneScope status("Working", 2, 3);
    EXPECT_EQ("Working" + Hint, host().progress().text());
}

TEST_F(PercentDoneScopeTest, TotalZeroShowsNeitherStopButtonNorBarAndNeverPolls) {
    LockScope lock;
    PercentDoneScope status("Creating interpolated views....", PercentDoneScope::WithCancelHint, 0);
    EXPECT_FALSE(host().progress().showsStopButton());
    EXPECT_FALSE(host().progress().showsProgressBar());
    host().progress().pressStopAt(1);
    for (int i = 0; i < 5; ++i)
        status.step();
    EXPECT_TRUE(host().progress().checkedPercents().empty());
    EXPECT_FALSE(status.isCanceled());
    EXPECT_EQ(5.0, status.getDone());
}

TEST_F(PercentDoneScopeTest, StepsReportTruncatedPercentagesCappedAt100) {
    LockScope lock;
    PercentDoneScope status("Animating....", PercentDoneScope::WithCancelHint, 3);
    for (int i = 0; i < 5; ++i)
        status.step();
    EXPECT_EQ((std::vector<int32_t>{33, 66, 100, 100, 100}), host().progress().checkedPercents());
    EXPECT_FALSE(status.isCanceled());
}

TEST_F(PercentDoneScopeTest, StopPressedAtTheSecondCheckCancelsAtTheSecondStep) {
    LockScope lock;
    PercentDoneScope status("Animating....", PercentDoneScope::WithCancelHint, 10);
    host().progress().pressStopAt(2);
    status.step();
    EXPECT_FALSE(status.isCanceled());
    status.step();
    EXPECT_TRUE(status.isCanceled());
}

TEST_F(PercentDoneScopeTest, SetTextKeepsTheSuffixChoiceOfTheScope) {
    LockScope lock;
    {
        PercentDoneScope status("First", PercentDoneScope::WithCancelHint, 1);
        status.setText("Second");
    }
    {
        PercentDoneScope status("Third", PercentDoneScope::TextOnly, 1);
        status.setText("Fourth");
    }
    EXPECT_EQ((std::vector<std::string>{"First" + Hint, "Second" + Hint, "Third", "Fourth"}),
              host().progress().texts());
}

TEST_F(PercentDoneScopeTest, StartsAndFinishesTheStatusThroughTheHost) {
    LockScope lock;
    host().callLog().setEnabled(true);
    {
        PercentDoneScope status("Animating....", PercentDoneScope::WithCancelHint, 2);
        status.step();
    }
    EXPECT_EQ((std::vector<std::string>{
                  "VexUtilStatusStartPercentDone(\"Animating...." + Hint + "\", true, true)",
                  vextest::callLine("VexUtilStatusCheckPercentDone", {50}),
                  vextest::callLine("VexUtilStatusFinishPercentDone")}),
              host().callLog().take());
    EXPECT_FALSE(host().progress().isOpen());
}

TEST_F(PercentDoneScopeTest, FinishesTheStatusWhenAnExceptionPasses) {
    LockScope lock;
    try {
        PercentDoneScope status("Animating....", PercentDoneScope::WithCancelHint, 2);
        throw std::runtime_error("failed during the operation");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(host().progress().isOpen());
    EXPECT_EQ(1u, host().progress().finishCount());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
