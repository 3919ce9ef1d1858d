#include "DemoScene.h"

#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

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
    frame->fitView(demo.boundsMin, demo.boundsMax);
}

}  // namespace app
}  // namespace vexplot
