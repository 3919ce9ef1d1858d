#ifndef VEXUTILTOOLS_VIEWOPERATIONS_H
#define VEXUTILTOOLS_VIEWOPERATIONS_H

#include <string>

#include "model/KeyFrameView_s.h"

namespace vexplot {
namespace vexutiltools {

// The host's current 3D view of the active frame: viewer position, the view angles converted from
// the host's radians to degrees, and the view width (field of view and perspective flag are not
// kept). Throws KeyFrameError "The current frame must be in 3D Cartesian mode." when the active
// frame is not 3D Cartesian; nothing is read then. Reads only, so it takes no lock of its own:
// callers that combine it with changes hold the lock around both.
KeyFrameView_s captureCurrentView();

// Makes the view the host's current 3D view, under the host lock with drawing suspended, so the
// host draws the new view once. The angles are set before the position. The width is set with
// perspective switched off and the host's perspective flag is then put back, so the perspective
// state is the same afterwards. Makes no plot type check: callers are responsible for it. A style
// value that the host refuses is not reported.
void applyView(const KeyFrameView_s& view);

// The one-line text of a view, two decimals each:
// "X=1.00 Y=2.00 Z=3.00 Psi=30.00 Theta=45.00 Alpha=0.00 Width=10.00".
std::string formatView(const KeyFrameView_s& view);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
