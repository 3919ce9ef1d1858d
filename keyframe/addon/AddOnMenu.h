#ifndef VEXUTILTOOLS_ADDONMENU_H
#define VEXUTILTOOLS_ADDONMENU_H

namespace vexplot {
namespace vexutiltools {

// The callback of the host menu item "&Key Frame Animation...". Key frame animation needs a 3D
// plot: the choice is allowed only when the host has at least one frame and the active frame's
// plot type is 3D Cartesian. Otherwise the host error dialog shows "Keyframe animation is only
// allowed with 3D plots.". When allowed, the main dialog is created on the first choice (with its
// menu bar) and launched; later choices launch the same dialog again. The whole callback runs
// under the host lock.
void addOnMenuCallback();

}  // namespace vexutiltools
}  // namespace vexplot

#endif
