#include "vexhost/Drawing.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>

#include "core/NullRenderer.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/HostErrors.h"
#include "vexhost/SceneSource.h"

namespace vexhost {

Drawing::Drawing(HostErrors& errors, const FrameStack& frames, FrameTrace& trace,
                 const SceneSource& sceneSource)
    : errors_(errors),
      frames_(frames),
      trace_(trace),
      sceneSource_(sceneSource),
      renderer_(std::make_unique<NullRenderer>()) {}

Drawing::~Drawing() = default;

void Drawing::setRenderer(std::unique_ptr<Renderer> renderer) {
    renderer_ = renderer != nullptr ? std::move(renderer) : std::make_unique<NullRenderer>();
}

Image Drawing::picture(const SceneState& scene, int width, int height, int supersample) {
    Image image = renderer_->render(scene, width, height, supersample);
    ++renderedPictures_;
    return image;
}

Image Drawing::picture(int width, int height, int supersample) {
    return picture(sceneSource_.scene(true), width, height, supersample);
}

const Image& Drawing::lastPicture() {
    if (pending_) {
        // Taken first: a renderer that fails is reported once, not at every look.
        const PendingRedraw redraw = std::move(*pending_);
        pending_.reset();
        try {
            lastPicture_ = picture(redraw.scene, redraw.width, redraw.height, 1);
        } catch (const std::exception& error) {
            // Nothing may escape into the add-on through the C interface, and the picture is asked
            // for on its behalf.
            lastPicture_ = Image();
            errors_.record("VexUtilRedraw", std::string("the renderer failed: ") + error.what());
        }
    }
    return lastPicture_;
}

std::pair<int, int> Drawing::pixelSize(const Frame& frame) {
    // Rounded, not truncated: a frame made from a pixel size (vexplot --size) must come back to
    // it, and 2.9 inches is 289.99999999999997 pixels in floating point.
    const auto pixels = [](double inches) {
        return static_cast<int>(std::max(1.0, std::round(inches * FrameStack::PixelsPerInch)));
    };
    return {pixels(frame.width()), pixels(frame.height())};
}

bool Drawing::resume() {
    if (suspendDepth_ == 0)
        return false;
    --suspendDepth_;
    return true;
}

bool Drawing::redraw() {
    const Frame* frame = frames_.active();
    if (isSuspended() || frame == nullptr) {
        ++skippedRedraws_;
        return false;
    }
    ++drawnFrames_;
    trace_.writeEvent("redraw");
    const std::pair<int, int> size = pixelSize(*frame);
    pending_ = PendingRedraw{sceneSource_.scene(true), size.first, size.second};
    return true;
}

void Drawing::reset() {
    suspendDepth_ = 0;
    drawnFrames_ = 0;
    skippedRedraws_ = 0;
    renderedPictures_ = 0;
    renderer_ = std::make_unique<NullRenderer>();
    pending_.reset();
    lastPicture_ = Image();
}

}  // namespace vexhost
