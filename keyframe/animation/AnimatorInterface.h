#ifndef VEXUTILTOOLS_ANIMATORINTERFACE_H
#define VEXUTILTOOLS_ANIMATORINTERFACE_H

#include <cstdint>

namespace vexplot {
namespace vexutiltools {

// One stage of an animation run's chain of animators. The run hands each frame number to the head
// of the chain; each stage does its own work for the frame (move the view, fade, step the
// solution time, draw or export) and passes the same number to the stage after it. Destroying a
// stage destroys the stages after it, head first, and puts back what each stage changed.
class AnimatorInterface {
public:
    // Does this stage's work for the frame, then the work of every stage after it. Frames are
    // numbered over the whole key frame list, from 0.
    virtual void animateFrame(uint64_t frame) = 0;
    // The run is being canceled: each stage passes it on; the export stage abandons its movie.
    virtual void cancel() = 0;
    virtual ~AnimatorInterface() = default;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
