// Drawing: suspension (VexUtilDrawGraphics false/true, nesting) and the frames drawn by
// VexUtilRedraw. A redraw while drawing is on and a frame exists draws one frame: it is counted,
// written to the frame trace as "redraw", and the scene of the active frame at that moment is kept
// together with the frame's size in pixels. A redraw while suspended draws nothing (it is counted
// as skipped).
//
// The picture of a redraw is made lazily: the renderer draws the kept scene only when someone asks
// for lastPicture(), once per redraw. An on-screen animation of thousands of frames thus pays for
// no picture that nobody looks at, while whoever looks sees exactly the state of that redraw.
//
// The renderer is the picture seam of the host: by default a null renderer that makes empty
// pictures; vexplot plugs in a real one. Exporting frames uses the same renderer. A renderer that
// fails is a host error ("VexUtilRedraw: the renderer failed: ..."), never an exception.
#ifndef VEXHOST_DRAWING_H
#define VEXHOST_DRAWING_H

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "vexhost/Frame.h"
#include "vexhost/Image.h"
#include "vexhost/Renderer.h"
#include "vexhost/SceneState.h"

namespace vexhost {

class FrameStack;
class FrameTrace;
class HostErrors;
class SceneSource;

class Drawing {
public:
    Drawing(HostErrors& errors, const FrameStack& frames, FrameTrace& trace,
            const SceneSource& sceneSource);
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    int suspendDepth() const { return suspendDepth_; }
    bool isSuspended() const { return suspendDepth_ > 0; }
    uint64_t drawnFrames() const { return drawnFrames_; }
    uint64_t skippedRedraws() const { return skippedRedraws_; }
    // Pictures the renderer has made so far (redraws asked for, snapshots, export frames).
    uint64_t renderedPictures() const { return renderedPictures_; }

    // nullptr puts the null renderer back. Owned from then on. The picture of the last redraw is
    // made by the renderer in place when it is asked for.
    void setRenderer(std::unique_ptr<Renderer> renderer);
    // The picture of the last frame drawn: the scene of that redraw at the frame's size, drawn now
    // if it was not drawn yet. Empty with the null renderer, before any redraw, or when the
    // renderer failed (a host error).
    const Image& lastPicture();
    // The current scene as the renderer draws it at this size. Throws what the renderer throws.
    Image picture(int width, int height, int supersample);
    // The scene a picture taken now would show, kept to be drawn later by the overload below.
    SceneState scene() const;
    // A scene taken before (a team's export and the studio keep those of a run's frames), or one
    // with more drawn over it, at this size; counted as the current one's. Throws what the
    // renderer throws.
    Image picture(const SceneState& scene, int width, int height, int supersample);

    // A frame's size in pixels (the screen's pixels per inch), each side at least 1.
    static std::pair<int, int> pixelSize(const Frame& frame);

    // ---- SDK side ----
    void suspend() { ++suspendDepth_; }
    // False (nothing changed) when drawing is not suspended.
    bool resume();
    // Draws a frame unless suspended or without frames; answers whether it drew.
    bool redraw();

    // Not suspended, counts 0, null renderer, no last picture.
    void reset();

private:
    HostErrors& errors_;
    const FrameStack& frames_;
    FrameTrace& trace_;
    const SceneSource& sceneSource_;
    int suspendDepth_ = 0;
    uint64_t drawnFrames_ = 0;
    uint64_t skippedRedraws_ = 0;
    uint64_t renderedPictures_ = 0;
    std::unique_ptr<Renderer> renderer_;  // never null
    // The last redraw, until its picture is made.
    struct PendingRedraw {
        SceneState scene;
        int width = 0, height = 0;
    };
    std::optional<PendingRedraw> pending_;
    Image lastPicture_;
};

}  // namespace vexhost

#endif
