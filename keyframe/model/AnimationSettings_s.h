#ifndef VEXUTILTOOLS_ANIMATIONSETTINGS_S_H
#define VEXUTILTOOLS_ANIMATIONSETTINGS_S_H

#include <cstdint>
#include <iosfwd>

#include "model/Destination_e.h"
#include "model/TimeAnimationOperation_e.h"

namespace vexplot {
namespace vexutiltools {

// The options of an animation run, owned by the main dialog and copied into each run and each
// settings file save. The field names are the setting names of the settings file, which does not
// store the destination.
//
// The defaults are what a newly opened dialog and a settings file that names no setting start
// from: the plainest run there is, the views alone drawn on screen. Time stepping, streamtraces
// and fades change the picture beyond the views, so the user asks for each of them; NumCycles 1
// keeps Loop and Bounce at a single pass until the user asks for more.
struct AnimationSettings_s {
    bool AnimateTime = false;
    TimeAnimationOperation_e TimeAnimationOperation = TimeAnimationOperation_e::Forward;
    // Cycles of Loop and Bounce; the other operations ignore it.
    uint64_t NumCycles = 1;
    Destination_e Destination = Destination_e::OnScreen;
    bool AnimateStreamtraces = false;
    bool FadeIn = false;
    bool FadeOut = false;
};

bool operator==(const AnimationSettings_s& a, const AnimationSettings_s& b);
bool operator!=(const AnimationSettings_s& a, const AnimationSettings_s& b);

// For diagnostics and test failures.
std::ostream& operator<<(std::ostream& out, const AnimationSettings_s& settings);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
