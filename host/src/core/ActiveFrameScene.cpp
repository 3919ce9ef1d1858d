#include "core/ActiveFrameScene.h"

#include <cstdint>

#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace vexhost {

SceneState ActiveFrameScene::scene(bool withZones) const {
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
    scene.colourMap = dataSet_.colouring().map;
    scene.colourVariable = dataSet_.colouring().variable;
    for (int a = 0; a < 3; ++a) {
        scene.boundsMin[a] = extent.boundsMin[a];
        scene.boundsMax[a] = extent.boundsMax[a];
    }
    return scene;
}

}  // namespace vexhost
