#include "OrbitPlanner.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace vexplot {
namespace path {

namespace {

constexpr double Radians = 3.14159265358979323846 / 180;

// The start view turned by `degrees` about the vertical axis through `origin`.
KeyFrameView_s turned(const KeyFrameView_s& start, const vexhost::View3D::Vector& origin,
                      double degrees) {
    const double c = std::cos(degrees * Radians), s = std::sin(degrees * Radians);
    const double x = start.X - origin[0], y = start.Y - origin[1];
    KeyFrameView_s view = start;
    view.X = origin[0] + c * x - s * y;
    view.Y = origin[1] + s * x + c * y;
    view.Theta = vexhost::View3D::normalizeAngle(start.Theta + degrees);
    return view;
}

}  // namespace

uint64_t OrbitPlanner::legsFor(double angle) {
    return static_cast<uint64_t>(std::ceil(std::abs(angle) / MaxLegDegrees));
}

std::vector<KeyFrame_s> OrbitPlanner::plan(const KeyFrameView_s& start,
                                           const vexhost::View3D::Vector& origin, double angle,
                                           uint64_t frames, double solutionTime) {
    const uint64_t legs = legsFor(angle);
    const uint64_t steps = frames - 1;
    if (steps < legs) {
        char degrees[32];
        std::snprintf(degrees, sizeof degrees, "%g", angle);
        throw std::runtime_error(std::to_string(frames) + " frames are too few for a turn of " +
                                 degrees + " degrees in legs of at most 90: it needs " +
                                 std::to_string(legs + 1) + " frames or more");
    }
    const double perFrame = angle / static_cast<double>(steps);
    std::vector<KeyFrame_s> keyFrames;
    uint64_t frame = 0;
    for (uint64_t leg = 0; leg <= legs; ++leg) {
        // The first `steps % legs` legs take one frame more than the others.
        const uint64_t count = leg == legs ? 1 : steps / legs + (leg < steps % legs ? 1 : 0);
        const double degrees = leg == legs ? angle : perFrame * static_cast<double>(frame);
        char name[48];
        std::snprintf(name, sizeof name, "Orbit %g", degrees);
        KeyFrame_s keyFrame;
        keyFrame.view = turned(start, origin, degrees);
        keyFrame.name = name;
        keyFrame.frameCount = count;
        keyFrame.solutionTime = solutionTime;
        keyFrames.push_back(keyFrame);
        frame += count;
    }
    return keyFrames;
}

}  // namespace path
}  // namespace vexplot
