#include "vexhost/Host.h"

namespace vexhost {

Host& Host::instance() {
    static Host host;
    return host;
}

Host::Host()
    : memory_(faults_),
      stateChanges_(*this),
      lock_(*this),
      addOns_(*this),
      frames_(*this),
      style_(errors_, frames_, memory_),
      dataSet_(*this),
      drawing_(*this),
      progress_(*this),
      idleQueue_(*this),
      dialogs_(*this),
      trace_(*this),
      exporter_(style_, frames_, drawing_, errors_, dialogs_, trace_) {}

Host::~Host() = default;

void Host::reset() {
    // The export first: canceling its writer may still look at the rest of the host.
    exporter_.reset();
    trace_.reset();
    callLog_.reset();
    errors_.clear();
    faults_.reset();
    memory_.reset();
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
    dialogs_.reset();
    gui_.reset();
}

SceneState Host::scene(bool withZones) {
    static const StyleStore::Path Intensity = {"GlobalThreeD", "LightSource", "Intensity"};
    static const StyleStore::Path BackgroundLight = {"GlobalThreeD", "LightSource",
                                                     "BackgroundLight"};
    static const StyleStore::Path AxisShow = {"ThreeDAxis", "FrameAxis", "Show"};
    static const StyleStore::Path TimeAnchor = {"StreamAttributes", "StreamTiming", "TimeAnchor"};
    static const StyleStore::Path DeltaTime = {"StreamAttributes", "StreamTiming", "DeltaTime"};
    static const StyleStore::Path ShowMarkers = {"StreamAttributes", "StreamTiming", "ShowMarkers"};
    static const StyleStore::Path ShowDashes = {"StreamAttributes", "StreamTiming", "ShowDashes"};

    SceneState scene;
    const Frame* frame = frames_.active();
    const View3D view = frame != nullptr ? frame->view() : View3D();
    CameraState& camera = scene.camera;
    for (int a = 0; a < 3; ++a) {
        camera.position[a] = view.position()[a];
        camera.rotateOrigin[a] = view.rotateOrigin()[a];
    }
    camera.psi = view.psi();
    camera.theta = view.theta();
    camera.alpha = view.alpha();
    camera.viewWidth = view.width();
    camera.fieldOfView = view.fieldOfView();
    camera.perspective = view.perspective();

    scene.lightIntensity = style_.getDouble(Intensity);
    scene.backgroundLight = style_.getDouble(BackgroundLight);
    scene.axisShow = style_.getBool(AxisShow);
    scene.timeAnchor = style_.getDouble(TimeAnchor);
    scene.deltaTime = style_.getDouble(DeltaTime);
    scene.showMarkers = style_.getBool(ShowMarkers);
    scene.showDashes = style_.getBool(ShowDashes);
    scene.solutionTime = dataSet_.solutionTime();
    if (!withZones)
        return scene;

    for (int32_t number : dataSet_.zonesShownAt(scene.solutionTime)) {
        const Zone& zone = dataSet_.zone(number);
        if (zone.geometry != nullptr)
            scene.zones.push_back(zone.geometry);
    }
    scene.streamtraces = dataSet_.streamtraces();
    const DataSet::Extent& extent = dataSet_.extent();
    scene.scalarMin = extent.scalarMin;
    scene.scalarMax = extent.scalarMax;
    for (int a = 0; a < 3; ++a) {
        scene.boundsMin[a] = extent.boundsMin[a];
        scene.boundsMax[a] = extent.boundsMax[a];
    }
    return scene;
}

void Host::shutDown() {
    // A modal dialog still up holds its add-on's lock and waits for an OK or Cancel that can no
    // longer come: the host quits in the middle of the add-on's work, which is a mistake of
    // whoever drove the dialogs (a macro file that never closes the dialog).
    for (int32_t id : gui_.modalDialogsUp())
        errors_.record("Host::shutDown", "the modal dialog \"" + gui_.dialog(id)->title +
                                             "\" is still up, holding its add-on's lock");
    stateChanges_.send(VexStateChange_QuitProgram);
}

}  // namespace vexhost
