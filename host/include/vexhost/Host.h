// The host: one process-wide, deterministic, single-threaded model of the application that the SDK
// functions act on, and the control interface through which tests, benchmarks and vexplot set it up
// and look at it. Control calls do not go through the SDK, take no lock and are never logged.
//
// reset() returns everything to a clean state: no add-ons, menus or macro callbacks, no frames, an
// empty data set, style defaults, the call log off and empty, no host errors, no outstanding host
// memory, an empty idle queue, no state change listeners, export idle with the default writer, the
// null renderer, no queued answers, no fault settings and no fault plan, the trace closed, no
// dialogs or controls.
//
// Each part sits behind a pointer to a class that is only declared here, so this header brings in
// none of the parts' headers and a change to one part rebuilds only the files that use it: a file
// includes the header of each part it uses.
#ifndef VEXHOST_HOST_H
#define VEXHOST_HOST_H

#include <memory>

namespace vexhost {

class ActiveFrameScene;
class AddOnRegistry;
class Bookkeeping;
class CallLog;
class DataSet;
class Drawing;
class Exporter;
class FaultPlan;
class FrameStack;
class FrameTrace;
class GuiModel;
class HostErrors;
class IdleQueue;
class LockState;
class MacroRecorder;
class ProgressStatus;
class StateNotifier;
class StyleStore;
class UserDialogs;
struct SceneState;

class Host {
public:
    static Host& instance();

    void reset();

    CallLog& callLog() { return *callLog_; }
    HostErrors& errors() { return *errors_; }
    LockState& lock() { return *lock_; }
    AddOnRegistry& addOns() { return *addOns_; }
    FrameStack& frames() { return *frames_; }
    StyleStore& style() { return *style_; }
    DataSet& dataSet() { return *dataSet_; }
    Drawing& drawing() { return *drawing_; }
    ProgressStatus& progress() { return *progress_; }
    IdleQueue& idleQueue() { return *idleQueue_; }
    StateNotifier& stateChanges() { return *stateChanges_; }
    MacroRecorder& macro() { return *macro_; }
    UserDialogs& userDialogs() { return *userDialogs_; }
    Exporter& exporter() { return *exporter_; }
    Bookkeeping& bookkeeping() { return *bookkeeping_; }
    // Planned failures of SDK calls, for tests of what an add-on does when the host fails it.
    FaultPlan& faults() { return *faults_; }
    FrameTrace& trace() { return *trace_; }
    // Dialogs and controls (docs/ui-scripting.md); GuiUser acts on them as the user does.
    GuiModel& guiModel() { return *guiModel_; }

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
    std::unique_ptr<CallLog> callLog_;
    std::unique_ptr<HostErrors> errors_;
    std::unique_ptr<FaultPlan> faults_;
    std::unique_ptr<Bookkeeping> bookkeeping_;
    std::unique_ptr<StateNotifier> stateChanges_;
    std::unique_ptr<AddOnRegistry> addOns_;
    std::unique_ptr<LockState> lock_;
    std::unique_ptr<FrameStack> frames_;
    std::unique_ptr<StyleStore> style_;
    std::unique_ptr<DataSet> dataSet_;
    std::unique_ptr<ActiveFrameScene> scene_;
    std::unique_ptr<FrameTrace> trace_;
    std::unique_ptr<Drawing> drawing_;
    std::unique_ptr<ProgressStatus> progress_;
    std::unique_ptr<IdleQueue> idleQueue_;
    std::unique_ptr<MacroRecorder> macro_;
    std::unique_ptr<UserDialogs> userDialogs_;
    std::unique_ptr<Exporter> exporter_;
    std::unique_ptr<GuiModel> guiModel_;
};

}  // namespace vexhost

#endif
