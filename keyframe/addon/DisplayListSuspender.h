#ifndef VEXUTILTOOLS_DISPLAYLISTSUSPENDER_H
#define VEXUTILTOOLS_DISPLAYLISTSUSPENDER_H

#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

// Switches the host's display lists off for the scope's lifetime: an animation changes the scene
// every frame, so cached display lists would only be rebuilt for nothing. Construction reads the
// boolean style value ("Interface", "UseDisplayLists"), keeps it and sets it to false; destruction
// sets the kept value back, on every exit path. Should the host refuse the read, the scope leaves
// the setting alone altogether: what it cannot put back, it does not change.
//
// The caller holds the host lock for the scope's lifetime (style values are host state).
class DisplayListSuspender {
public:
    DisplayListSuspender();
    ~DisplayListSuspender();

    DisplayListSuspender(const DisplayListSuspender&) = delete;
    DisplayListSuspender& operator=(const DisplayListSuspender&) = delete;

private:
    vexplot::toolbox::StyleValue useDisplayLists_;
    bool kept_ = true;
    bool switchedOff_ = false;  // the read succeeded and the setting was switched off
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
