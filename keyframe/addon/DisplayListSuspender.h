#ifndef VEXUTILTOOLS_DISPLAYLISTSUSPENDER_H
#define VEXUTILTOOLS_DISPLAYLISTSUSPENDER_H

#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

// Switches the host's display lists off for the scope's lifetime: an animation changes the scene
// every frame, so cached display lists would only be rebuilt for nothing. Construction reads the
// boolean style value ("Interface", "UseDisplayLists"), keeps it and sets it to false; destruction
// sets the kept value back, on every exit path.
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
    // Starts as true, the host's normal setting: should the host refuse the read, the scope
    // still ends with display lists on rather than leaving them switched off for good.
    bool kept_ = true;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
