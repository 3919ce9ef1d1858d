#include "studio/FlightRecorder.h"

#include <algorithm>

#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Host.h"

namespace vexhost {
namespace studio {

FlightRecorder::FlightRecorder(Host& host) : host_(host) {
    attach();
}

void FlightRecorder::attach() {
    framesSeen_ = framesMade();
}

uint64_t FlightRecorder::framesMade() const {
    return host_.drawing().drawnFrames() + host_.exporter().counts().frames;
}

bool FlightRecorder::observe(ProgressStatus::EventKind kind) {
    switch (kind) {
        case ProgressStatus::EventKind::Started:
        case ProgressStatus::EventKind::Finished:
            // What is drawn outside a status (a Fit, the view put back after a Stop) is no frame.
            framesSeen_ = framesMade();
            statusHasFrames_ = false;
            running_ = false;
            return false;
        case ProgressStatus::EventKind::TextChanged:
            return false;
        case ProgressStatus::EventKind::Checked:
            break;
    }
    const uint64_t made = framesMade();
    if (made == framesSeen_)
        return false;
    framesSeen_ = made;
    const bool starts = !statusHasFrames_;
    if (starts) {
        frames_.clear();
        statusHasFrames_ = true;
        running_ = true;
    }
    // Nothing changes between the frame's redraw or export and its check: the scene now is the
    // frame's.
    frames_.push_back(host_.scene(true));
    return starts;
}

std::shared_ptr<const CameraPath> FlightRecorder::path(
    std::size_t last, std::vector<CameraPath::KeyFrame> keyFrames) const {
    auto path = std::make_shared<CameraPath>();
    const std::size_t end = std::min(last + 1, frames_.size());
    path->positions.reserve(3 * end);
    for (std::size_t k = 0; k < end; ++k) {
        const double* position = frames_[k].camera.position;
        path->positions.insert(path->positions.end(), position, position + 3);
    }
    path->keyFrames = std::move(keyFrames);
    return path;
}

}  // namespace studio
}  // namespace vexhost
