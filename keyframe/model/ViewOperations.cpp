#include "model/ViewOperations.h"

#include <ios>
#include <sstream>

#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "addon/SuspendGraphics.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

namespace {
// 180 / pi: the host answers angle queries in radians, key frames keep degrees.
constexpr double DegreesPerRadian = 57.29577951308232;
}  // namespace

KeyFrameView_s captureCurrentView() {
    if (VexUtilFrameGetPlotType() != VexPlotType_Cartesian3D)
        throw KeyFrameError("The current frame must be in 3D Cartesian mode.");

    KeyFrameView_s view;
    VexUtilThreeDViewGetViewerPos(&view.X, &view.Y, &view.Z);

    double psi = 0.0;
    double theta = 0.0;
    double alpha = 0.0;
    VexUtilThreeDViewGetViewerAngle(&psi, &theta, &alpha);
    view.Psi = psi * DegreesPerRadian;
    view.Theta = theta * DegreesPerRadian;
    view.Alpha = alpha * DegreesPerRadian;

    double fieldOfView = 0.0;
    bool isInPerspective = false;
    VexUtilThreeDViewGetProjection(&fieldOfView, &view.Width, &isInPerspective);
    return view;
}

void applyView(const KeyFrameView_s& view) {
    LockScope lock;
    SuspendGraphics suspendGraphics;

    const vexplot::toolbox::StyleValue threeDView("ThreeDView");
    threeDView.set(view.Psi, "PSIAngle");
    threeDView.set(view.Theta, "ThetaAngle");
    threeDView.set(view.Alpha, "AlphaAngle");
    threeDView.set(view.X, "ViewerPosition", "X");
    threeDView.set(view.Y, "ViewerPosition", "Y");
    threeDView.set(view.Z, "ViewerPosition", "Z");

    // The view width is an orthographic width: it is set only while perspective is off, and the
    // user's perspective choice is put back afterwards. Should the host refuse the read, false
    // (the host's normal projection) is what is put back.
    bool drawInPerspective = false;
    threeDView.get(drawInPerspective, "DrawInPerspective");
    threeDView.set(false, "DrawInPerspective");
    threeDView.set(view.Width, "ViewWidth");
    threeDView.set(drawInPerspective, "DrawInPerspective");
}

std::string formatView(const KeyFrameView_s& view) {
    std::ostringstream text;
    text.setf(std::ios::fixed, std::ios::floatfield);
    text.precision(2);
    text << "X=" << view.X << " Y=" << view.Y << " Z=" << view.Z << " Psi=" << view.Psi
         << " Theta=" << view.Theta << " Alpha=" << view.Alpha << " Width=" << view.Width;
    return text.str();
}

}  // namespace vexutiltools
}  // namespace vexplot
