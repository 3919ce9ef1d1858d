#include "animation/AnimatorToFile.h"

#include "addon/KeyFrameError.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

namespace {

// The host's movie formats; every other export format writes still images.
bool isAnimationFormat(int32_t format) {
    switch (format) {
        case VexExportFormat_RasterMetafile:
        case VexExportFormat_AVI:
        case VexExportFormat_Flash:
        case VexExportFormat_FLV:
        case VexExportFormat_MPEG4:
        case VexExportFormat_WMV:
            return true;
        default:
            return false;
    }
}

}  // namespace

AnimatorToFile::AnimatorToFile(const std::vector<KeyFrame_s>& keyFrames)
    : AnimatorAbstract(keyFrames, nullptr) {}

// The stage asks the host, not its own flag, whether an export is open: so an export it started is
// always closed before it is gone, whichever way the run ended. The host keeps no owner of an
// export, so a run refused because another export was recording closes that one as well; the
// host is then left with no export open, as after every run.
AnimatorToFile::~AnimatorToFile() {
    if (VexUtilExportIsRecording())
        VexUtilExportFinish();
}

void AnimatorToFile::cancel() {
    // Terminal: nothing to pass on.
    if (VexUtilExportIsRecording())
        VexUtilExportCancel();
}

void AnimatorToFile::doAnimateFrame(uint64_t /*frame*/) {
    if (!exportNotStarted_) {
        // The host reports its own trouble with a frame; the run goes on.
        VexUtilExportNextFrame();
        return;
    }
    if (VexUtilExportIsRecording())
        throw KeyFrameError(
            "Unable to start animation export. Another export is already in progress.");
    int32_t format = 255;
    vexplot::toolbox::StyleValue("ExportSetup", "ExportFormat").get(format);
    if (!isAnimationFormat(format))
        throw KeyFrameError(
            "The export file format must be set to an animation format \nbefore animating to "
            "file.");
    if (!VexUtilExportStart())
        throw KeyFrameError("Unable to start animation export.");
    exportNotStarted_ = false;
}

}  // namespace vexutiltools
}  // namespace vexplot
