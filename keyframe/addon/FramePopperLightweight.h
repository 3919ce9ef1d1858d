#ifndef VEXUTILTOOLS_FRAMEPOPPERLIGHTWEIGHT_H
#define VEXUTILTOOLS_FRAMEPOPPERLIGHTWEIGHT_H

#include "addon/FramePopperAbstract.h"

namespace vexplot {
namespace vexutiltools {

// Visits every frame without reordering the host's frame stack: the host's lightweight popping
// makes each frame current for queries in turn, top first, and ends back at the active frame.
// Construction starts at the top frame; destruction visits what is left and ends the popping.
class FramePopperLightweight : public FramePopperAbstract {
public:
    FramePopperLightweight();
    ~FramePopperLightweight() override;

    bool popNext() override;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
