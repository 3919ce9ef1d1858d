#include "vexhost/Drawing.h"

#include <exception>
#include <string>

#include "core/NullRenderer.h"
#include "vexhost/Host.h"

namespace vexhost {

Drawing::Drawing(Host& host) : host_(host), renderer_(std::make_unique<NullRenderer>()) {}

Drawing::~Drawing() = default;

void Drawing::setRenderer(std::unique_ptr<Renderer> renderer) {
    renderer_ = renderer != nullptr ? std::move(renderer) : std::make_unique<NullRenderer>();
}

Image Drawing::picture(int width, int height, int supersample) {
    return renderer_->render(host_.scene(), width, height, supersample);
}

bool Drawing::resume() {
    if (suspendDepth_ == 0)
        return false;
    --suspendDepth_;
    return true;
}

bool Drawing::redraw() {
    const Frame* frame = host_.frames().active();
    if (isSuspended() || frame == nullptr) {
        ++skippedRedraws_;
        return false;
    }
    ++drawnFrames_;
    host_.trace().writeEvent("redraw");
    const int width = static_cast<int>(frame->width() * FrameStack::PixelsPerInch);
    const int height = static_cast<int>(frame->height() * FrameStack::PixelsPerInch);
    try {
        lastPicture_ = picture(width, height, 1);
    } catch (const std::exception& error) {
        // Nothing may escape into the add-on through the C interface.
        lastPicture_ = Image();
        host_.errors().record("VexUtilRedraw", std::string("the renderer failed: ") + error.what());
    }
    return true;
}

void Drawing::reset() {
    suspendDepth_ = 0;
    drawnFrames_ = 0;
    skippedRedraws_ = 0;
    renderer_ = std::make_unique<NullRenderer>();
    lastPicture_ = Image();
}

}  // namespace vexhost
