// What vexpath check reports of a flight: each leg's turns, movement, zoom and speed, and the
// warnings of what will surprise whoever animates it. Measured on the add-on's own views
// (FlightViews), the speed by SpeedMeasure.
#ifndef VEXPLOT_PATH_FLIGHTCHECK_H
#define VEXPLOT_PATH_FLIGHTCHECK_H

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "FlightViews.h"

namespace vexplot {
namespace path {

using flight::FlightViews;
using flight::KeyFrame_s;

class FlightCheck {
public:
    // A turn of any angle this close to a half turn (degrees) may go either way after rounding.
    static constexpr double NearHalfTurnDegrees = 1;
    // A speed more than this many times the previous leg's, or less than its share, is a jump.
    static constexpr double SpeedJumpFactor = 3;

    struct Leg {
        uint64_t firstFrame = 0;  // the frame of the key frame it starts at
        uint64_t frames = 0;      // its frame count: the frames up to the next key frame
        // Each angle's turn, the short way, as the add-on turns it (degrees).
        double psi = 0, theta = 0, alpha = 0;
        double distance = 0;  // the viewer's movement along the leg, in data units
        double widthFrom = 0, widthTo = 0;
        double length = 0;  // SpeedMeasure's
        double speed = 0;   // length a frame
    };

    struct Warning {
        // "half-turn", "same-view", "cut", "speed-jump", "time-backwards" or "width".
        std::string kind;
        // The leg (from 1) the warning is about, or 0 for one about a key frame.
        std::size_t leg = 0;
        // The key frame (from 1) it is about, or 0 for one about a leg.
        std::size_t keyFrame = 0;
        std::string message;
    };

    explicit FlightCheck(const FlightViews& flight);

    const std::vector<Leg>& legs() const { return legs_; }
    const std::vector<Warning>& warnings() const { return warnings_; }

    // The report for a person: a line about the flight, a block per leg, a line per warning and
    // their count. `fileName` names the file in the first line.
    void writeText(std::ostream& out, const std::string& fileName) const;
    // The report as one JSON object: {"file", "keyFrames", "frames", "legs": [...],
    // "warnings": [...]} (docs/camera-paths.md).
    void writeJson(std::ostream& out, const std::string& fileName) const;

private:
    void measureLegs(const FlightViews& flight);
    void warnOfLegs();
    void warnOfKeyFrames(const FlightViews& flight);
    void warn(const std::string& kind, std::size_t leg, std::size_t keyFrame,
              const std::string& message);

    std::vector<KeyFrame_s> keyFrames_;
    uint64_t frameCount_ = 0;
    std::vector<Leg> legs_;
    std::vector<Warning> warnings_;
};

}  // namespace path
}  // namespace vexplot

#endif
