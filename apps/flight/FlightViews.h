// The flight the key frame add-on makes of a key frame file: the view of every frame, as the
// add-on computes it and the host draws it, and the frame at which each key frame stands.
//
// Not a second interpolation: fly() hands the file to the add-on loaded in the host through the
// add-on's own macro commands, as a macro does, so the add-on reads it with its own reader and
// words any failure itself, animates it on screen, and reads each frame's view back from the
// host's frame trace, whose numbers are at full precision. The host's renderer is left as it is:
// with the null renderer of a fresh host no picture is made, the frames are only counted.
//
// The host must hold the key frame add-on (registered under AddOnName) and an active 3D Cartesian
// frame showing the scene to animate in: the add-on turns each view about that frame's rotation
// origin, so the views depend on the data set shown (vexpath's FlightHost sets the host up as
// vexplot does). Afterwards the add-on's key frame list and settings are the file's, as after the
// user opened it, and the active frame's view is put back as it was; the solution time, lighting
// and streamtrace timing are what the last frame left, as after any animation.
#ifndef VEXPLOT_FLIGHT_FLIGHTVIEWS_H
#define VEXPLOT_FLIGHT_FLIGHTVIEWS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrameView_s.h"
#include "model/KeyFrame_s.h"
#include "vexhost/Host.h"
#include "vexhost/View3D.h"

namespace vexhost {
class MacroFileRunner;
}

namespace vexplot {
namespace flight {

using vexutiltools::AnimationSettings_s;
using vexutiltools::KeyFrame_s;
using vexutiltools::KeyFrameView_s;

class FlightViews {
public:
    // The name the key frame add-on registers with the host, which its macro lines name.
    static constexpr const char* AddOnName = "Key Frame Animation";

    // Animates the key frame file (a UTF-8 path, relative to the working directory) with the
    // add-on. Throws:
    //   vexhost::MacroError       the add-on could not read or animate the file; what() is the
    //                             add-on's message as the host received it ("Key Frame Animation
    //                             error:\nInvalid file header.")
    //   std::invalid_argument     a file name holding a double quote, which the add-on's macro
    //                             commands cannot carry
    //   std::logic_error          no active frame, or the host's frame trace already open
    //   std::runtime_error        the trace could not be written or read back
    static FlightViews fly(vexhost::Host& host, const std::string& keyFrameFile);
    // Only reads the file through the add-on, as fly() does, without animating it: the key frames
    // and settings, no views and no frame numbers. For a file that need not be a whole flight (a
    // single view). Throws as fly() does, but for what only animating can fail.
    static FlightViews open(vexhost::Host& host, const std::string& keyFrameFile);

    // The key frames and settings as the add-on's reader reads the file.
    const std::vector<KeyFrame_s>& keyFrames() const { return keyFrames_; }
    const AnimationSettings_s& settings() const { return settings_; }

    // One view per frame of the animation, index = frame number: 1 + the frame counts of every
    // key frame but the last.
    const std::vector<KeyFrameView_s>& views() const { return views_; }
    // The solution time the host showed at each frame, index = frame number.
    const std::vector<double>& solutionTimes() const { return solutionTimes_; }
    // The frame of each key frame: where its leg begins (the last key frame: the last frame).
    const std::vector<uint64_t>& keyFrameFrames() const { return keyFrameFrames_; }
    // The legs, from each key frame to the next: one fewer than the key frames (none without any).
    std::size_t legCount() const { return keyFrames_.empty() ? 0 : keyFrames_.size() - 1; }
    // The rotation origin of the frame the views were made in, which every turn is about.
    const vexhost::View3D::Vector& rotateOrigin() const { return rotateOrigin_; }

private:
    FlightViews() = default;
    // The key frames through the add-on, with the runner that asked it.
    static FlightViews read(vexhost::MacroFileRunner& runner, const std::string& keyFrameFile);

    std::vector<KeyFrame_s> keyFrames_;
    AnimationSettings_s settings_;
    std::vector<KeyFrameView_s> views_;
    std::vector<double> solutionTimes_;
    std::vector<uint64_t> keyFrameFrames_;
    vexhost::View3D::Vector rotateOrigin_{};
};

}  // namespace flight
}  // namespace vexplot

#endif
