#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/RegisteredAddOnFixture.h"
#include "vexhost/ProgressStatus.h"
#include "vxsdkbase.h"

namespace {

using vexhost::ProgressStatus;
using vextest::ScopedLock;

class ProgressStatusTest : public vextest::RegisteredAddOnFixture {
protected:
    void SetUp() override {
        RegisteredAddOnFixture::SetUp();
        lock_ = std::make_unique<ScopedLock>(addOn_);
    }
    void TearDown() override {
        lock_.reset();
        RegisteredAddOnFixture::TearDown();
    }
    std::vector<bool> check(int times) {
        std::vector<bool> answers;
        for (int i = 0; i < times; ++i)
            answers.push_back(VexUtilStatusCheckPercentDone(i * 10));
        return answers;
    }

    std::unique_ptr<ScopedLock> lock_;
};

TEST_F(ProgressStatusTest, TextsAndPercentsAreKept) {
    ASSERT_TRUE(VexUtilStatusStartPercentDone("Working.", true, false));
    EXPECT_TRUE(host().progress().isOpen());
    EXPECT_TRUE(host().progress().showsStopButton());
    EXPECT_FALSE(host().progress().showsProgressBar());
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(0));
    VexUtilStatusSetPercentDoneText("Still working.");
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(100));
    VexUtilStatusFinishPercentDone();
    EXPECT_FALSE(host().progress().isOpen());
    EXPECT_EQ(host().progress().texts(), (std::vector<std::string>{"Working.", "Still working."}));
    EXPECT_EQ(host().progress().checkedPercents(), (std::vector<int32_t>{0, 100}));
}

TEST_F(ProgressStatusTest, StopPressedAtTheNthCheckHoldsForThatStatus) {
    host().progress().pressStopAt(3);
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_EQ(check(5), (std::vector<bool>{true, true, false, false, false}));
    VexUtilStatusFinishPercentDone();
    VexUtilStatusStartPercentDone("Again", true, true);
    EXPECT_EQ(check(2), (std::vector<bool>{true, true})) << "a new status starts unstopped";
    VexUtilStatusFinishPercentDone();
}

TEST_F(ProgressStatusTest, StopIsCountedFromArmingAcrossStatuses) {
    host().progress().pressStopAt(3);
    VexUtilStatusStartPercentDone("Creating interpolated views....", true, true);
    EXPECT_EQ(check(2), (std::vector<bool>{true, true}));
    VexUtilStatusFinishPercentDone();
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_EQ(check(2), (std::vector<bool>{false, false}));
    VexUtilStatusFinishPercentDone();
}

TEST_F(ProgressStatusTest, StatusMisuseIsAHostError) {
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(5));
    VexUtilStatusSetPercentDoneText("x");
    VexUtilStatusFinishPercentDone();
    VexUtilStatusStartPercentDone("One", false, false);
    VexUtilStatusStartPercentDone("Two", false, false);
    VexUtilStatusCheckPercentDone(101);
    VexUtilStatusFinishPercentDone();
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilStatusCheckPercentDone: no percent-done status is open",
                  "VexUtilStatusSetPercentDoneText: no percent-done status is open",
                  "VexUtilStatusFinishPercentDone: no percent-done status is open",
                  "VexUtilStatusStartPercentDone: a percent-done status (\"One\") is already "
                  "open",
                  "VexUtilStatusCheckPercentDone: the percentage 101 is not in 0..100"}));
}

TEST_F(ProgressStatusTest, SinkHearsEveryEvent) {
    std::vector<std::string> heard;
    host().progress().setSink([&](const ProgressStatus::Event& event) {
        heard.push_back(std::to_string(static_cast<int>(event.kind)) + " " + event.text + " " +
                        std::to_string(event.percent));
    });
    VexUtilStatusStartPercentDone("A", true, true);
    VexUtilStatusCheckPercentDone(40);
    VexUtilStatusSetPercentDoneText("B");
    VexUtilStatusFinishPercentDone();
    EXPECT_EQ(heard, (std::vector<std::string>{"0 A -1", "2 A 40", "1 B -1", "3 B -1"}));
}

TEST_F(ProgressStatusTest, WithAStopAgreementEachCheckAnswersWhatTheTeamAgrees) {
    // What this process brought to each agreement; the team answers Stop at the third.
    std::vector<bool> brought;
    host().progress().setStopAgreement([&brought](bool stopPressedHere) {
        brought.push_back(stopPressedHere);
        return stopPressedHere || brought.size() == 3;
    });
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_EQ(check(4), (std::vector<bool>{true, true, false, false}));
    EXPECT_EQ(brought, (std::vector<bool>{false, false, false, true}))
        << "a Stop the team agreed on holds here as if pressed here";
    VexUtilStatusFinishPercentDone();
    EXPECT_EQ(brought.size(), 4u) << "a check without a status has nothing to agree on";
}

TEST_F(ProgressStatusTest, AStopPressedHereGoesToTheAgreement) {
    std::vector<bool> brought;
    host().progress().setStopAgreement([&brought](bool stopPressedHere) {
        brought.push_back(stopPressedHere);
        return stopPressedHere;
    });
    host().progress().pressStopAt(2);
    VexUtilStatusStartPercentDone("Animating....", true, true);
    EXPECT_EQ(check(2), (std::vector<bool>{true, false}));
    EXPECT_EQ(brought, (std::vector<bool>{false, true}));
    VexUtilStatusFinishPercentDone();
}

TEST_F(ProgressStatusTest, TheHostsOwnChecksAnswerForThisProcessAlone) {
    int agreements = 0;
    host().progress().setStopAgreement([&agreements](bool) {
        ++agreements;
        return true;
    });
    host().progress().pressStopAt(2);
    host().progress().start("Exporting", true, true);
    EXPECT_TRUE(host().progress().checkHere(10));
    EXPECT_FALSE(host().progress().checkHere(20));
    host().progress().finish();
    EXPECT_EQ(agreements, 0);
    EXPECT_EQ(host().progress().checkedPercents(), (std::vector<int32_t>{10, 20}));
}

}  // namespace
