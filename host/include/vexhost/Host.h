// The host: one process-wide, deterministic, single-threaded model of the application that the SDK
// functions act on, and the control interface through which tests, benchmarks and vexplot set it up
// and look at it. Control calls do not go through the SDK, take no lock and are never logged.
//
// reset() returns everything to a clean state: no add-ons, menus or macro callbacks, no frames, an
// empty data set, style defaults, the call log off and empty, no host errors, no outstanding host
// memory, an empty idle queue, no state change listeners, export idle with the default writer, the
// null renderer, no queued answers, no fault settings and no fault plan, the trace closed, no
// dialogs or controls.
#ifndef VEXHOST_HOST_H
#define VEXHOST_HOST_H

#include <memory>

#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FaultPlan.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/GuiModel.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/SceneState.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"

namespace vexhost {

class ActiveFrameScene;

class Host {
public:
    static Host& instance();

    void reset();

    CallLog& callLog() { return callLog_; }
    HostErrors& errors() { return errors_; }
    LockState& lock() { return lock_; }
    AddOnRegistry& addOns() { return addOns_; }
    FrameStack& frames() { return frames_; }
    StyleStore& style() { return style_; }
    DataSet& dataSet() { return dataSet_; }
    Drawing& drawing() { return drawing_; }
    ProgressStatus& progress() { return progress_; }
    IdleQueue& idleQueue() { return idleQueue_; }
    StateNotifier& stateChanges() { return stateChanges_; }
    MacroRecorder& macro() { return macro_; }
    UserDialogs& userDialogs() { return userDialogs_; }
    Exporter& exporter() { return exporter_; }
    Bookkeeping& bookkeeping() { return bookkeeping_; }
    // Planned failures of SDK calls, for tests of what an add-on does when the host fails it.
    FaultPlan& faults() { return faults_; }
    FrameTrace& trace() { return trace_; }
    // Dialogs and controls (docs/ui-scripting.md); GuiUser acts on them as the user does.
    GuiModel& guiModel() { return guiModel_; }

    // What a picture of the active frame shows now: its view (the default view without frames),
    // lighting, axis, stream timing, solution time and, with zones, the zones shown at the current
    // solution time (DataSet::zonesShownAt) that have geometry, and the streamtraces.
    SceneState scene(bool withZones = true);

    // Tells every listener that the host is shutting down (VexStateChange_QuitProgram). A modal
    // dialog still up is a host error, one per dialog.
    void shutDown();

    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

private:
    Host();
    ~Host();

    // Each part is built after the parts it takes.
    CallLog callLog_;
    HostErrors errors_;
    FaultPlan faults_;
    Bookkeeping bookkeeping_;
    StateNotifier stateChanges_;
    AddOnRegistry addOns_;
    LockState lock_;
    FrameStack frames_;
    StyleStore style_;
    DataSet dataSet_;
    std::unique_ptr<ActiveFrameScene> scene_;
    FrameTrace trace_;
    Drawing drawing_;
    ProgressStatus progress_;
    IdleQueue idleQueue_;
    MacroRecorder macro_;
    UserDialogs userDialogs_;
    Exporter exporter_;
    GuiModel guiModel_;
};

}  // namespace vexhost

#endif
