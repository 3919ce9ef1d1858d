#include "vexhost/Host.h"

#include "core/ActiveFrameScene.h"

namespace vexhost {

Host& Host::instance() {
    static Host host;
    return host;
}

Host::Host()
    : bookkeeping_(faults_),
      stateChanges_(errors_),
      addOns_(errors_, bookkeeping_),
      lock_(errors_, addOns_),
      frames_(errors_, stateChanges_),
      style_(errors_, frames_, bookkeeping_),
      dataSet_(stateChanges_),
      scene_(std::make_unique<ActiveFrameScene>(frames_, style_, dataSet_)),
      trace_(*scene_),
      drawing_(errors_, frames_, trace_, *scene_),
      progress_(errors_),
      idleQueue_(errors_),
      userDialogs_(errors_),
      exporter_(style_, frames_, drawing_, errors_, userDialogs_, trace_) {}

Host::~Host() = default;

void Host::reset() {
    // The export first: canceling its writer may still look at the rest of the host.
    exporter_.reset();
    trace_.reset();
    callLog_.reset();
    errors_.clear();
    faults_.reset();
    bookkeeping_.reset();
    stateChanges_.reset();
    lock_.reset();
    addOns_.reset();
    frames_.reset();
    style_.reset();
    dataSet_.reset();
    drawing_.reset();
    progress_.reset();
    idleQueue_.reset();
    macro_.reset();
    userDialogs_.reset();
    guiModel_.reset();
}

SceneState Host::scene(bool withZones) {
    return scene_->scene(withZones);
}

void Host::shutDown() {
    // A modal dialog still up holds its add-on's lock and waits for an OK or Cancel that can no
    // longer come: the host quits in the middle of the add-on's work, which is a mistake of
    // whoever drove the dialogs (a macro file that never closes the dialog).
    for (int32_t id : guiModel_.modalDialogsUp())
        errors_.record("Host::shutDown", "the modal dialog \"" + guiModel_.dialog(id)->title +
                                             "\" is still up, holding its add-on's lock");
    stateChanges_.send(VexStateChange_QuitProgram);
}

}  // namespace vexhost
