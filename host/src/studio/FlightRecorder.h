// The frames of the last animation the add-on ran in the studio: the scene of every frame it drew
// on screen or exported, kept as the plain value the renderer draws (the geometry shared, not
// copied), so that the studio can draw any of them again, at any size, after the run.
//
// A run is a percent-done status in which frames are drawn or exported: each progress check that
// finds a frame drawn (a redraw) or exported (a picture taken for the movie) since the one before
// keeps the scene of that moment, which is the frame's. The first frame of a status starts a new
// run and drops the last run's frames; the status's end ends the run, a stopped one with the
// frames made so far. A status without frames (the add-on computing its views) leaves the last
// run as it was, and what is drawn after the last check (the view put back after a Stop) is not a
// frame of the run.
#ifndef VEXHOST_STUDIO_FLIGHTRECORDER_H
#define VEXHOST_STUDIO_FLIGHTRECORDER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "vexhost/CameraPath.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/SceneState.h"

namespace vexhost {

class Host;

namespace studio {

class FlightRecorder {
public:
    explicit FlightRecorder(Host& host);

    // Every event of the host's percent-done status, as its sink gets them. True when a new run
    // started (its first frame was kept).
    bool observe(ProgressStatus::EventKind kind);
    // Counts from the host's present (after it was reset).
    void attach();

    std::size_t frameCount() const { return frames_.size(); }
    bool running() const { return running_; }
    // Frame k (from 0) of the last run; k < frameCount().
    const SceneState& frame(std::size_t k) const { return frames_.at(k); }
    // The viewer's path over frames 0 to `last` (at most the last frame) with these key frames.
    std::shared_ptr<const CameraPath> path(std::size_t last,
                                           std::vector<CameraPath::KeyFrame> keyFrames) const;

private:
    // Frames drawn and pictures exported so far: one of them moving is a frame.
    uint64_t framesMade() const;

    Host& host_;
    std::vector<SceneState> frames_;
    bool running_ = false;
    bool statusHasFrames_ = false;
    uint64_t framesSeen_ = 0;
};

}  // namespace studio
}  // namespace vexhost

#endif
