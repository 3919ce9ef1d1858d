#include "SpeedMeasure.h"

#include <cmath>
#include <functional>

#include "model/ShortWay.h"

namespace vexplot {
namespace path {

namespace {

using vexutiltools::shortWay;

double distance(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    return std::sqrt((b.X - a.X) * (b.X - a.X) + (b.Y - a.Y) * (b.Y - a.Y) +
                     (b.Z - a.Z) * (b.Z - a.Z));
}

// Each leg's steps, measured by `measure`, summed.
std::vector<double> sumOverLegs(
    const FlightViews& flight,
    const std::function<double(const KeyFrameView_s&, const KeyFrameView_s&)>& measure) {
    const std::vector<KeyFrameView_s>& views = flight.views();
    const std::vector<uint64_t>& starts = flight.keyFrameFrames();
    std::vector<double> sums;
    for (std::size_t leg = 0; leg < flight.legCount(); ++leg) {
        double sum = 0;
        for (uint64_t frame = starts[leg]; frame < starts[leg + 1]; ++frame)
            sum += measure(views[frame], views[frame + 1]);
        sums.push_back(sum);
    }
    return sums;
}

}  // namespace

const double SpeedMeasure::TurnPerDegree = std::acos(-1.0) / 360;

double SpeedMeasure::turnDegrees(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    return std::hypot(shortWay(b.Psi - a.Psi), shortWay(b.Theta - a.Theta),
                      shortWay(b.Alpha - a.Alpha));
}

bool SpeedMeasure::still(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    return a.X == b.X && a.Y == b.Y && a.Z == b.Z && a.Width == b.Width && turnDegrees(a, b) == 0;
}

double SpeedMeasure::step(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    const double turn = turnDegrees(a, b) * TurnPerDegree;
    const double move = distance(a, b) / std::sqrt(a.Width * b.Width);
    const double zoom = std::abs(std::log(b.Width / a.Width)) / 2;
    return std::hypot(turn, move, zoom);
}

std::vector<double> SpeedMeasure::legLengths(const FlightViews& flight) {
    return sumOverLegs(flight, &SpeedMeasure::step);
}

std::vector<double> SpeedMeasure::legDistances(const FlightViews& flight) {
    return sumOverLegs(flight, distance);
}

}  // namespace path
}  // namespace vexplot
