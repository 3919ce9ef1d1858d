// Drawing: suspension (VexUtilDrawGraphics false/true, nesting) and the frames drawn by
// VexUtilRedraw. A redraw while drawing is on and a frame exists draws one frame: it is counted,
// written to the frame trace as "redraw" and handed to the renderer, whose picture is kept as the
// last picture. A redraw while suspended draws nothing (it is counted as skipped).
//
// The renderer is the picture seam of the host: by default a null renderer that makes empty
// pictures; vexplot plugs in a real one. Exporting frames uses the same renderer.
#ifndef VEXHOST_DRAWING_H
#define VEXHOST_DRAWING_H

#include <cstdint>
#include <memory>

#include "vexhost/Image.h"
#include "vexhost/Renderer.h"

namespace vexhost {

class Host;

class Drawing {
public:
    explicit Drawing(Host& host);
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    int suspendDepth() const { return suspendDepth_; }
    bool isSuspended() const { return suspendDepth_ > 0; }
    uint64_t drawnFrames() const { return drawnFrames_; }
    uint64_t skippedRedraws() const { return skippedRedraws_; }

    // nullptr puts the null renderer back. Owned from then on.
    void setRenderer(std::unique_ptr<Renderer> renderer);
    // The picture of the last frame drawn (empty with the null renderer or before any).
    const Image& lastPicture() const { return lastPicture_; }
    // The current scene as the renderer draws it at this size.
    Image picture(int width, int height, int supersample);

    // ---- SDK side ----
    void suspend() { ++suspendDepth_; }
    // False (nothing changed) when drawing is not suspended.
    bool resume();
    // Draws a frame unless suspended or without frames; answers whether it drew.
    bool redraw();

    // Not suspended, counts 0, null renderer, no last picture.
    void reset();

private:
    Host& host_;
    int suspendDepth_ = 0;
    uint64_t drawnFrames_ = 0;
    uint64_t skippedRedraws_ = 0;
    std::unique_ptr<Renderer> renderer_;  // never null
    Image lastPicture_;
};

}  // namespace vexhost

#endif
