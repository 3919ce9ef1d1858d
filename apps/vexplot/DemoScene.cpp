#include "DemoScene.h"

#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace vexplot {
namespace app {

void DemoScene::load(vexhost::Host& host, int triangleCount) {
    vexhost::Frame* frame = host.frames().active();
    if (frame == nullptr)
        throw std::logic_error("DemoScene::load(): there is no frame to show the data set in");
    vexhost::DemoDataSet::Options options;
    options.triangleCount = triangleCount;
    const vexhost::DemoDataSet demo = vexhost::DemoDataSet::build(options);
    std::vector<vexhost::Zone> zones;
    for (const vexhost::DemoDataSet::Zone& zone : demo.zones) {
        vexhost::Zone added;
        added.name = zone.name;
        added.solutionTime = zone.solutionTime;
        added.strandId = zone.strandId;
        added.enabled = true;
        added.geometry = zone.geometry;
        zones.push_back(std::move(added));
    }
    host.dataSet().addZones(std::move(zones));
    for (const auto& streamtrace : demo.streamtraces)
        host.dataSet().addStreamtrace(streamtrace);
    host.style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
    host.style().setDouble({"StreamAttributes", "StreamTiming", "DeltaTime"}, MarkerDeltaTime);
    frameView(*frame, demo.boundsMin, demo.boundsMax);
}

void DemoScene::frameView(vexhost::Frame& frame, const float (&boundsMin)[3],
                          const float (&boundsMax)[3]) {
    using Vector = vexhost::View3D::Vector;
    vexhost::View3D& view = frame.view();
    const Vector centre = {(boundsMin[0] + boundsMax[0]) / 2.0, (boundsMin[1] + boundsMax[1]) / 2.0,
                           (boundsMin[2] + boundsMax[2]) / 2.0};
    const vexhost::View3D::Matrix r = vexhost::View3D::orientation(
        vexhost::View3D::DefaultPsi, vexhost::View3D::DefaultTheta, vexhost::View3D::DefaultAlpha);

    // The box corners in the viewer's axes (R^T * (corner - centre)): how wide and high the box
    // looks from there.
    double halfWidth = 0, halfHeight = 0, diagonal = 0;
    for (int corner = 0; corner < 8; ++corner) {
        const double d[3] = {((corner & 1) ? boundsMax[0] : boundsMin[0]) - centre[0],
                             ((corner & 2) ? boundsMax[1] : boundsMin[1]) - centre[1],
                             ((corner & 4) ? boundsMax[2] : boundsMin[2]) - centre[2]};
        const double right = r[0] * d[0] + r[3] * d[1] + r[6] * d[2];
        const double up = r[1] * d[0] + r[4] * d[1] + r[7] * d[2];
        halfWidth = std::max(halfWidth, std::abs(right));
        halfHeight = std::max(halfHeight, std::abs(up));
        diagonal = std::max(diagonal, 2 * std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]));
    }
    const double aspect = frame.height() / frame.width();
    const double width = 2 * std::max(halfWidth, halfHeight / aspect) * (1 + ViewMargin);

    // Far enough out that the whole box is in front of the viewer also in perspective.
    const double distance = 2 * std::max(diagonal, 1.0);
    view.setRotateOrigin(centre);
    view.setPsi(vexhost::View3D::DefaultPsi);
    view.setTheta(vexhost::View3D::DefaultTheta);
    view.setAlpha(vexhost::View3D::DefaultAlpha);
    view.setPosition(
        {centre[0] + distance * r[2], centre[1] + distance * r[5], centre[2] + distance * r[8]});
    view.setWidth(width > 0 ? width : vexhost::View3D::DefaultWidth);
}

}  // namespace app
}  // namespace vexplot
