#include "PathPicture.h"

#include <algorithm>
#include <memory>

#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"

namespace vexplot {
namespace path {

namespace {

vexhost::Frame& activeFrame(vexhost::Host& host) {
    vexhost::Frame* frame = host.frames().active();
    if (frame == nullptr)
        throw std::logic_error("PathPicture: the host has no frame to draw");
    return *frame;
}

void setCamera(vexhost::CameraState& camera, const flight::KeyFrameView_s& view) {
    camera.position[0] = view.X;
    camera.position[1] = view.Y;
    camera.position[2] = view.Z;
    camera.psi = view.Psi;
    camera.theta = view.Theta;
    camera.alpha = view.Alpha;
    camera.viewWidth = view.Width;
}

}  // namespace

vexhost::CameraPath PathPicture::cameraPath(const FlightViews& flight) {
    vexhost::CameraPath path;
    path.positions.reserve(3 * flight.views().size());
    for (const flight::KeyFrameView_s& view : flight.views())
        path.positions.insert(path.positions.end(), {view.X, view.Y, view.Z});
    for (std::size_t k = 0; k < flight.keyFrameFrames().size(); ++k) {
        // The last key frame stands at the flight's last frame, whatever its own count.
        const uint64_t frame = std::min<uint64_t>(
            flight.keyFrameFrames()[k], flight.views().empty() ? 0 : flight.views().size() - 1);
        path.keyFrames.push_back({static_cast<std::size_t>(frame), flight.keyFrames()[k].name});
    }
    return path;
}

vexhost::SceneState PathPicture::overview(vexhost::Host& host, const FlightViews& flight) {
    vexhost::Frame& frame = activeFrame(host);
    auto path = std::make_shared<vexhost::CameraPath>(cameraPath(flight));
    vexhost::SceneState scene = host.scene();
    float boxMin[3], boxMax[3];
    for (int k = 0; k < 3; ++k) {
        boxMin[k] = scene.boundsMin[k];
        boxMax[k] = scene.boundsMax[k];
    }
    for (std::size_t i = 0; i + 2 < path->positions.size(); i += 3) {
        for (int k = 0; k < 3; ++k) {
            boxMin[k] = std::min(boxMin[k], static_cast<float>(path->positions[i + k]));
            boxMax[k] = std::max(boxMax[k], static_cast<float>(path->positions[i + k]));
        }
    }
    // The frame's own fit, over the larger box, on a copy of the view that is put back after.
    const vexhost::View3D view = frame.view();
    frame.fitView(boxMin, boxMax);
    scene = host.scene();
    frame.view() = view;
    scene.cameraPath = std::move(path);
    return scene;
}

vexhost::SceneState PathPicture::keyFrameScene(vexhost::Host& host, const FlightViews& flight,
                                               std::size_t k) {
    const uint64_t frame = flight.keyFrameFrames().at(k);
    vexhost::DataSet& data = host.dataSet();
    const double time = data.solutionTime();
    data.setSolutionTime(
        flight.solutionTimes().at(std::min<uint64_t>(frame, flight.solutionTimes().size() - 1)));
    vexhost::SceneState scene = host.scene();
    data.setSolutionTime(time);
    setCamera(scene.camera,
              flight.views().at(std::min<uint64_t>(frame, flight.views().size() - 1)));
    scene.caption = keyFrameCaption(flight, k);
    return scene;
}

std::vector<std::string> PathPicture::keyFrameCaption(const FlightViews& flight, std::size_t k) {
    const uint64_t first = flight.keyFrameFrames().at(k);
    const uint64_t last =
        k + 1 < flight.keyFrameFrames().size() ? flight.keyFrameFrames()[k + 1] - 1 : first;
    return {flight.keyFrames().at(k).name,
            first == last ? "frame " + std::to_string(first)
                          : "frames " + std::to_string(first) + "-" + std::to_string(last)};
}

}  // namespace path
}  // namespace vexplot
