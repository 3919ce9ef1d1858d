#include "FuzzHost.h"

#include <utility>
#include <vector>

#include "FuzzSupport.h"
#include "addon/InitVexAddOn113.h"
#include "addon/ResetAddOnState.h"
#include "support/KeyFrameData.h"
#include "ui/DialogMain.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

using namespace vexplot::vexutiltools;

namespace vexfuzz {

namespace {

const char* const SmallFile = "small.keyframe";
const char* const OtherFile = "other.keyframe";

const ScratchDirectory& scratch() {
    return scratchDirectory();
}

// Every stage of a run, time bouncing.
AnimationSettings_s everyOption() {
    return vextest::everyStage(TimeAnimationOperation_e::Bounce);
}

}  // namespace

FuzzHost::FuzzHost() {
    scratch();
}

void FuzzHost::reset() {
    resetAddOnState();
    vexhost::Host& host = vexhost::Host::instance();
    host.reset();
    scratch().keepOnly({});
    InitVexAddOn113();

    host.frames().create(VexPlotType_Cartesian3D).setPosAndSize(0.5, 0.5, 4.0, 3.0);
    for (double time : {0.0, 0.5, 1.0}) {
        vexhost::Zone zone;
        zone.name = "Zone";
        zone.solutionTime = time;
        zone.strandId = 1;
        host.dataSet().addZone(std::move(zone));
    }
    host.style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
    host.style().setInt({"ExportSetup", "ImageWidth"}, 64);
    host.macro().setRecording(true);

    vextest::writeSettingsFile(SmallFile, vextest::smallFlight(), everyOption());
    vextest::writeSettingsFile(OtherFile, vextest::smallFlight(), AnimationSettings_s());

    DialogMain& dialog = DialogMain::instance();
    dialog.getSettings() = everyOption();
    dialog.getKeyFrameModel().setItems(vextest::smallFlight());
    host.idleQueue().runUntilEmpty();
    expect(host.errors().empty(), "setting the host up made host errors");
}

void FuzzHost::checkHost() const {
    vexhost::Host& host = vexhost::Host::instance();
    expect(host.lock().depth() == 0 || host.guiModel().isModalDialogUp(),
           "the add-on's lock is still held");
    expect(!host.drawing().isSuspended(), "drawing is still suspended");
    expect(!host.progress().isOpen(), "a percent-done status is still open");
    expect(host.progress().startCount() == host.progress().finishCount(),
           "a percent-done status was never finished");
    expect(!host.exporter().isRecording(), "an export is still recording");
    expect(host.bookkeeping().outstandingTotal() == 0, "host memory leaked");
}

bool FuzzHost::staysInScratch(const std::string& input) {
    return input.find('/') == std::string::npos && input.find('\0') == std::string::npos;
}

}  // namespace vexfuzz
