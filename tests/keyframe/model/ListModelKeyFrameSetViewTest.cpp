#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "model/ListModelKeyFrame.h"
#include "support/AddOnFixture.h"
#include "support/RecordingListObserver.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/Host.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class ListModelKeyFrameSetViewTest : public vextest::AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        KeyFrame_s keyFrame;
        keyFrame.name = "View 1";
        keyFrame.frameCount = 30;
        keyFrame.solutionTime = 0.5;
        model.insertItem(0, keyFrame);
        model.addObserver(&observer);
    }

    ListModelKeyFrame model;
    vextest::RecordingListObserver observer;
};

TEST_F(ListModelKeyFrameSetViewTest, CopiesTheViewAndTakesTheHostsCurrentSolutionTime) {
    host().dataSet().setSolutionTime(2.75);
    const KeyFrameView_s view{1, 2, 3, 30, 45, 0, 10};
    model.setView(0, view);
    EXPECT_EQ(view, model.getItem(0).view);
    EXPECT_EQ(2.75, model.getSolutionTime(0));
    EXPECT_EQ("View 1", model.getName(0));
    EXPECT_EQ(30u, model.getFrameCount(0));
}

TEST_F(ListModelKeyFrameSetViewTest, NotifiesNobody) {
    model.setView(0, KeyFrameView_s{1, 2, 3, 30, 45, 0, 10});
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameSetViewTest, OutOfRangeChangesNothingAndAsksTheHostNothing) {
    host().callLog().setEnabled(true);
    try {
        model.setView(1, KeyFrameView_s{});
        FAIL() << "position 1 of 1 was accepted";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
    EXPECT_TRUE(host().callLog().take().empty());
    EXPECT_EQ(0.5, model.getSolutionTime(0));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
