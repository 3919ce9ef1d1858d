// Everything the renderer needs to draw the active frame, gathered from the host's state at the
// moment of drawing. A plain value: the renderer keeps nothing of the host.
#ifndef VEXHOST_SCENESTATE_H
#define VEXHOST_SCENESTATE_H

#include <memory>
#include <string>
#include <vector>

#include "vexhost/CameraPath.h"
#include "vexhost/ColourMap.h"
#include "vexhost/Streamtrace.h"
#include "vexhost/ZoneGeometry.h"

namespace vexhost {

struct CameraState {
    double position[3] = {0, 0, 0};        // viewer position P
    double psi = 0, theta = 0, alpha = 0;  // degrees; orientation Rz(theta) * Rx(psi) * Rz(alpha)
    double viewWidth = 1;                  // width of the view in data units (orthographic)
    double fieldOfView = 30;               // degrees, horizontal (perspective)
    bool perspective = false;
    double rotateOrigin[3] = {0, 0, 0};
};

struct SceneState {
    CameraState camera;
    double lightIntensity = 75;   // ("GlobalThreeD", "LightSource", "Intensity"), 0..100
    double backgroundLight = 25;  // ("GlobalThreeD", "LightSource", "BackgroundLight"), 0..100
    bool axisShow = true;         // ("ThreeDAxis", "FrameAxis", "Show")
    double timeAnchor = 0;        // ("StreamAttributes", "StreamTiming", "TimeAnchor")
    double deltaTime = 1;         // ("StreamAttributes", "StreamTiming", "DeltaTime")
    bool showMarkers = false;
    bool showDashes = false;
    double solutionTime = 0;
    // The zones drawn: for each strand the zone of the latest time not after solutionTime, and
    // every enabled zone without a strand. Zones with scalars are coloured through colourMap over
    // [scalarMin, scalarMax]; zones without are drawn in one colour.
    std::vector<std::shared_ptr<const ZoneGeometry>> zones;
    std::vector<std::shared_ptr<const Streamtrace>> streamtraces;
    // The scalar range of the whole data set, so colours do not jump between time steps.
    float scalarMin = 0, scalarMax = 1;
    ColourMap colourMap = ColourMap::Rainbow;
    std::string colourVariable;  // the colour legend's title; empty: no legend
    // The axis-aligned box around the whole data set (for the 3D frame axis box).
    float boundsMin[3] = {0, 0, 0}, boundsMax[3] = {1, 1, 1};
    // A camera path drawn over the scene (a line with an arrow per leg, the key frames marked and
    // named); none when empty. Not part of the host's state: the path picture and the studio set
    // it.
    std::shared_ptr<const CameraPath> cameraPath;
    // Lines of text at the picture's top left, on a dark band (a contact sheet's names and frame
    // ranges); none when empty. Not part of the host's state either.
    std::vector<std::string> caption;
};

}  // namespace vexhost

#endif
