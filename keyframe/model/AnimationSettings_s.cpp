#include "model/AnimationSettings_s.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

bool operator==(const AnimationSettings_s& a, const AnimationSettings_s& b) {
    return a.AnimateTime == b.AnimateTime && a.TimeAnimationOperation == b.TimeAnimationOperation &&
           a.NumCycles == b.NumCycles && a.Destination == b.Destination &&
           a.AnimateStreamtraces == b.AnimateStreamtraces && a.FadeIn == b.FadeIn &&
           a.FadeOut == b.FadeOut;
}

bool operator!=(const AnimationSettings_s& a, const AnimationSettings_s& b) {
    return !(a == b);
}

std::ostream& operator<<(std::ostream& out, const AnimationSettings_s& settings) {
    const std::ios_base::fmtflags flags = out.flags();
    out << std::boolalpha << "{AnimateTime " << settings.AnimateTime << ", TimeAnimationOperation "
        << settings.TimeAnimationOperation << ", NumCycles " << settings.NumCycles
        << ", Destination " << settings.Destination << ", AnimateStreamtraces "
        << settings.AnimateStreamtraces << ", FadeIn " << settings.FadeIn << ", FadeOut "
        << settings.FadeOut << "}";
    out.flags(flags);
    return out;
}

}  // namespace vexutiltools
}  // namespace vexplot
