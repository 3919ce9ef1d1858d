#ifndef VEXUTILTOOLS_ANIMATORONSCREEN_H
#define VEXUTILTOOLS_ANIMATORONSCREEN_H

#include <vector>

#include "animation/AnimatorAbstract.h"

namespace vexplot {
namespace vexutiltools {

// The terminal stage of a run drawn on screen: each frame asks the host for a full redraw of what
// the stages before it set up. Has no successor and changes nothing that needs putting back.
class AnimatorOnScreen : public AnimatorAbstract {
public:
    explicit AnimatorOnScreen(const std::vector<KeyFrame_s>& keyFrames);
    ~AnimatorOnScreen() override;

protected:
    void doAnimateFrame(uint64_t frame) override;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
