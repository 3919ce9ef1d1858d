#include "animation/AnimatorOnScreen.h"

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

AnimatorOnScreen::AnimatorOnScreen(const std::vector<KeyFrame_s>& keyFrames)
    : AnimatorAbstract(keyFrames, nullptr) {}

AnimatorOnScreen::~AnimatorOnScreen() = default;

void AnimatorOnScreen::doAnimateFrame(uint64_t /*frame*/) {
    VexUtilRedraw(true);
}

}  // namespace vexutiltools
}  // namespace vexplot
