// The mouse on the studio's view: the host's own rotation about the rotation origin, panning in
// the screen's plane, zooming by the view width, and what a finished change tells and records.
#include <gtest/gtest.h>

#include <cmath>

#include "studio/ViewNavigator.h"
#include "support/HostFixture.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/StateNotifier.h"

namespace {

using vexhost::View3D;
using vexhost::studio::ViewNavigator;

double distance(const View3D::Vector& a, const View3D::Vector& b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) +
                     (a[2] - b[2]) * (a[2] - b[2]));
}

class ViewNavigatorTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        createFrame3D();
        view().setRotateOrigin({1, 2, 3});
    }
    View3D& view() { return host().frames().active()->view(); }
    ViewNavigator navigator_{host()};
};

TEST_F(ViewNavigatorTest, ADragTurnsTheViewAboutTheRotationOrigin) {
    const View3D before = view();
    const double radius = distance(before.position(), before.rotateOrigin());
    ASSERT_TRUE(navigator_.rotate(50, 0));
    EXPECT_NE(before.theta(), view().theta());
    EXPECT_NEAR(radius, distance(view().position(), view().rotateOrigin()), 1e-9);
    EXPECT_EQ(before.width(), view().width());
    // Back the same way: the same view.
    ASSERT_TRUE(navigator_.rotate(-50, 0));
    EXPECT_NEAR(before.psi(), view().psi(), 1e-9);
    EXPECT_NEAR(before.theta(), view().theta(), 1e-9);
    EXPECT_NEAR(before.alpha(), view().alpha(), 1e-9);
    ASSERT_TRUE(navigator_.rotate(0, 30));
    EXPECT_NE(before.psi(), view().psi());
    EXPECT_FALSE(navigator_.rotate(0, 0));
}

TEST_F(ViewNavigatorTest, PanningMovesTheViewerAndKeepsTheAngles) {
    const View3D before = view();
    ASSERT_TRUE(navigator_.pan(100, 0, 800));
    EXPECT_EQ(before.psi(), view().psi());
    EXPECT_EQ(before.theta(), view().theta());
    // 100 of 800 pixels: an eighth of the view width, sideways.
    EXPECT_NEAR(before.width() / 8, distance(before.position(), view().position()), 1e-9);
    EXPECT_FALSE(navigator_.pan(10, 10, 0));
}

TEST_F(ViewNavigatorTest, ZoomingChangesTheWidthOnly) {
    const View3D before = view();
    ASSERT_TRUE(navigator_.wheel(2));
    EXPECT_NEAR(before.width() * 1.21, view().width(), 1e-9);
    ASSERT_TRUE(navigator_.zoom(-200));
    EXPECT_NEAR(before.width() * 1.21 * std::exp(-1.0), view().width(), 1e-9);
    EXPECT_EQ(before.position(), view().position());
}

TEST_F(ViewNavigatorTest, FitShowsTheDataAsANewFrameDoes) {
    navigator_.rotate(77, 13);
    ASSERT_TRUE(navigator_.fit());
    vexhost::Frame expected(0, VexPlotType_Cartesian3D);
    const auto& extent = host().dataSet().extent();
    const float lo[3] = {extent.boundsMin[0], extent.boundsMin[1], extent.boundsMin[2]};
    const float hi[3] = {extent.boundsMax[0], extent.boundsMax[1], extent.boundsMax[2]};
    expected.view().setRotateOrigin(view().rotateOrigin());
    expected.fitView(lo, hi);
    EXPECT_EQ(expected.view(), view());
}

TEST_F(ViewNavigatorTest, ACommitTellsTheListenersAndRecordsTheViewWhileRecording) {
    const uint64_t sent = host().stateChanges().sentCount(VexStateChange_View);
    navigator_.rotate(10, 0);
    EXPECT_EQ(sent, host().stateChanges().sentCount(VexStateChange_View));
    navigator_.commit();
    EXPECT_EQ(sent + 1, host().stateChanges().sentCount(VexStateChange_View));
    EXPECT_TRUE(host().macro().lines().empty());

    host().macro().setRecording(true);
    view().setPosition({0.1, -2, 1e-17});
    view().setPsi(60);
    view().setTheta(-30.5);
    view().setAlpha(0);
    view().setWidth(3);
    navigator_.commit();
    ASSERT_EQ(1u, host().macro().lines().size());
    EXPECT_EQ("$!VIEW 0.10000000000000001 -2 1.0000000000000001e-17 60 -30.5 0 3",
              host().macro().lines()[0]);
}

}  // namespace
