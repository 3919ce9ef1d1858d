#include "vexhost/Host.h"

#include <cstdint>

#include "core/ActiveFrameScene.h"
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

Host& Host::instance() {
    static Host host;
    return host;
}

Host::Host()
    : callLog_(std::make_unique<CallLog>()),
      errors_(std::make_unique<HostErrors>()),
      faults_(std::make_unique<FaultPlan>()),
      bookkeeping_(std::make_unique<Bookkeeping>(*faults_)),
      stateChanges_(std::make_unique<StateNotifier>(*errors_)),
      addOns_(std::make_unique<AddOnRegistry>(*errors_, *bookkeeping_)),
      lock_(std::make_unique<LockState>(*errors_, *addOns_)),
      frames_(std::make_unique<FrameStack>(*errors_, *stateChanges_)),
      style_(std::make_unique<StyleStore>(*errors_, *frames_, *bookkeeping_)),
      dataSet_(std::make_unique<DataSet>(*stateChanges_)),
      scene_(std::make_unique<ActiveFrameScene>(*frames_, *style_, *dataSet_)),
      trace_(std::make_unique<FrameTrace>(*scene_)),
      drawing_(std::make_unique<Drawing>(*errors_, *frames_, *trace_, *scene_)),
      progress_(std::make_unique<ProgressStatus>(*errors_)),
      idleQueue_(std::make_unique<IdleQueue>(*errors_)),
      macro_(std::make_unique<MacroRecorder>()),
      userDialogs_(std::make_unique<UserDialogs>(*errors_)),
      exporter_(std::make_unique<Exporter>(*style_, *frames_, *drawing_, *errors_, *userDialogs_,
                                           *trace_, *progress_)),
      guiModel_(std::make_unique<GuiModel>()) {}

Host::~Host() = default;

void Host::reset() {
    // The export first: canceling its writer may still look at the rest of the host.
    exporter_->reset();
    trace_->reset();
    callLog_->reset();
    errors_->clear();
    faults_->reset();
    bookkeeping_->reset();
    stateChanges_->reset();
    lock_->reset();
    addOns_->reset();
    frames_->reset();
    style_->reset();
    dataSet_->reset();
    drawing_->reset();
    progress_->reset();
    idleQueue_->reset();
    macro_->reset();
    userDialogs_->reset();
    guiModel_->reset();
}

SceneState Host::scene(bool withZones) {
    return scene_->scene(withZones);
}

void Host::shutDown() {
    // A modal dialog still up holds its add-on's lock and waits for an OK or Cancel that can no
    // longer come: the host quits in the middle of the add-on's work, which is a mistake of
    // whoever drove the dialogs (a macro file that never closes the dialog).
    for (int32_t id : guiModel_->modalDialogsUp())
        errors_->record("Host::shutDown", "the modal dialog \"" + guiModel_->dialog(id)->title +
                                              "\" is still up, holding its add-on's lock");
    stateChanges_->send(VexStateChange_QuitProgram);
}

}  // namespace vexhost
