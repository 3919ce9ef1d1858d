// The demo data set as vexplot loads it: the zones and times docs/vexplot.md lists, streamtrace
// markers on, and a view that shows all of it.
#include "DemoScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "support/HostFixture.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace {

using vexplot::app::DemoScene;

class DemoSceneTest : public vextest::HostFixture {};

TEST_F(DemoSceneTest, LoadsSixSurfaceZonesOfOneStrandAtTimesZeroToOne) {
    createFrame3D();
    DemoScene::load(host());
    const vexhost::DataSet& data = host().dataSet();
    ASSERT_EQ(6, data.zoneCount());
    const double times[] = {0, 0.2, 0.4, 0.6, 0.8, 1};
    const char* const names[] = {"Surface t=0",   "Surface t=0.2", "Surface t=0.4",
                                 "Surface t=0.6", "Surface t=0.8", "Surface t=1"};
    for (int32_t z = 1; z <= 6; ++z) {
        EXPECT_EQ(names[z - 1], data.zone(z).name);
        EXPECT_DOUBLE_EQ(times[z - 1], data.zone(z).solutionTime);
        EXPECT_EQ(1, data.zone(z).strandId);
        EXPECT_TRUE(data.zone(z).enabled);
        EXPECT_NE(nullptr, data.zone(z).geometry);
    }
    EXPECT_EQ(4u, data.streamtraces().size());
    EXPECT_EQ(0, data.solutionTime());
    // One zone shows at a time: the strand's latest step not after the current time.
    EXPECT_EQ(std::vector<int32_t>{3}, data.zonesShownAt(0.5));
}

TEST_F(DemoSceneTest, TurnsStreamtraceMarkersOn) {
    createFrame3D();
    DemoScene::load(host());
    EXPECT_TRUE(host().style().getBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}));
    EXPECT_EQ(DemoScene::MarkerDeltaTime,
              host().style().getDouble({"StreamAttributes", "StreamTiming", "DeltaTime"}));
}

TEST_F(DemoSceneTest, AddingTheZonesIsOneNotification) {
    createFrame3D();
    DemoScene::load(host());
    EXPECT_EQ(1u, host().stateChanges().sentCount(VexStateChange_ZonesAdded));
}

// The box corners seen from the view, in the view's right and up axes.
struct Extent {
    double halfWidth = 0, halfHeight = 0;
};

Extent seenExtent(const vexhost::View3D& view, const vexhost::DataSet::Extent& box) {
    const vexhost::View3D::Matrix r = view.orientation();
    const vexhost::View3D::Vector& p = view.position();
    Extent extent;
    for (int corner = 0; corner < 8; ++corner) {
        const double c[3] = {(corner & 1) ? box.boundsMax[0] : box.boundsMin[0],
                             (corner & 2) ? box.boundsMax[1] : box.boundsMin[1],
                             (corner & 4) ? box.boundsMax[2] : box.boundsMin[2]};
        const double d[3] = {c[0] - p[0], c[1] - p[1], c[2] - p[2]};
        extent.halfWidth =
            std::max(extent.halfWidth, std::abs(r[0] * d[0] + r[3] * d[1] + r[6] * d[2]));
        extent.halfHeight =
            std::max(extent.halfHeight, std::abs(r[1] * d[0] + r[4] * d[1] + r[7] * d[2]));
    }
    return extent;
}

TEST_F(DemoSceneTest, ViewShowsTheWholeDataSetWithAMargin) {
    for (const auto& size : {std::pair<double, double>{8, 6}, {6, 8}, {16, 2}}) {
        host().reset();
        vexhost::Frame& frame = createFrame3D();
        frame.setPosAndSize(1, 0.25, size.first, size.second);
        DemoScene::load(host());
        const vexhost::View3D& view = frame.view();
        const Extent seen = seenExtent(view, host().dataSet().extent());
        const double halfWidth = view.width() / 2;
        const double halfHeight = halfWidth * size.second / size.first;
        EXPECT_LE(seen.halfWidth, halfWidth);
        EXPECT_LE(seen.halfHeight, halfHeight);
        // Tight in one direction: the margin and no more.
        const double fill = std::max(seen.halfWidth / halfWidth, seen.halfHeight / halfHeight);
        EXPECT_NEAR(1 / (1 + vexhost::Frame::FitMargin), fill, 1e-9)
            << size.first << "x" << size.second;
    }
}

TEST_F(DemoSceneTest, ViewLooksFromTheDefaultAnglesAtTheCentreOfTheData) {
    vexhost::Frame& frame = createFrame3D();
    DemoScene::load(host());
    const vexhost::View3D& view = frame.view();
    EXPECT_EQ(vexhost::View3D::DefaultPsi, view.psi());
    EXPECT_EQ(vexhost::View3D::DefaultTheta, view.theta());
    EXPECT_EQ(vexhost::View3D::DefaultAlpha, view.alpha());
    const vexhost::DataSet::Extent& box = host().dataSet().extent();
    const vexhost::View3D::Vector& origin = view.rotateOrigin();
    for (int a = 0; a < 3; ++a)
        EXPECT_NEAR((box.boundsMin[a] + box.boundsMax[a]) / 2.0, origin[a], 1e-6);
    // The line of sight from the viewer passes through the centre.
    const vexhost::View3D::Matrix r = view.orientation();
    const vexhost::View3D::Vector& p = view.position();
    const double d[3] = {origin[0] - p[0], origin[1] - p[1], origin[2] - p[2]};
    EXPECT_NEAR(0, r[0] * d[0] + r[3] * d[1] + r[6] * d[2], 1e-9);
    EXPECT_NEAR(0, r[1] * d[0] + r[4] * d[1] + r[7] * d[2], 1e-9);
    EXPECT_LT(r[2] * d[0] + r[5] * d[1] + r[8] * d[2], 0);  // in front of the viewer
}

TEST_F(DemoSceneTest, LoadWithoutAFrameIsAProgrammingError) {
    EXPECT_THROW(DemoScene::load(host()), std::logic_error);
}

}  // namespace
