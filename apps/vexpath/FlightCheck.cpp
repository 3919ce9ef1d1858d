#include "FlightCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <nlohmann/json.hpp>

#include "SpeedMeasure.h"
#include "model/ShortWay.h"
#include "model/TimeAnimationOperation_e.h"

namespace vexplot {
namespace path {

namespace {

using vexutiltools::shortWay;

std::string format(const char* pattern, double value) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

std::string inQuotes(const std::string& name) {
    return "\"" + name + "\"";
}

}  // namespace

FlightCheck::FlightCheck(const FlightViews& flight)
    : keyFrames_(flight.keyFrames()), frameCount_(flight.views().size()) {
    measureLegs(flight);
    warnOfLegs();
    warnOfKeyFrames(flight);
}

void FlightCheck::measureLegs(const FlightViews& flight) {
    const std::vector<double> lengths = SpeedMeasure::legLengths(flight);
    const std::vector<double> distances = SpeedMeasure::legDistances(flight);
    for (std::size_t i = 0; i < flight.legCount(); ++i) {
        const KeyFrameView_s& from = keyFrames_[i].view;
        const KeyFrameView_s& to = keyFrames_[i + 1].view;
        Leg leg;
        leg.firstFrame = flight.keyFrameFrames()[i];
        leg.frames = keyFrames_[i].frameCount;
        leg.psi = shortWay(to.Psi - from.Psi);
        leg.theta = shortWay(to.Theta - from.Theta);
        leg.alpha = shortWay(to.Alpha - from.Alpha);
        leg.distance = distances[i];
        leg.widthFrom = from.Width;
        leg.widthTo = to.Width;
        leg.length = lengths[i];
        leg.speed = lengths[i] / static_cast<double>(leg.frames);
        legs_.push_back(leg);
    }
}

void FlightCheck::warnOfLegs() {
    const auto name = [this](std::size_t i) {
        return "leg " + std::to_string(i + 1) + " (" + inQuotes(keyFrames_[i].name) + " -> " +
               inQuotes(keyFrames_[i + 1].name) + ")";
    };
    // Legs that move and are no cuts: the ones whose speed is the camera's.
    const auto moving = [this](std::size_t i) {
        return legs_[i].frames > 1 &&
               !SpeedMeasure::still(keyFrames_[i].view, keyFrames_[i + 1].view);
    };
    for (std::size_t i = 0; i < legs_.size(); ++i) {
        const Leg& leg = legs_[i];
        const std::pair<const char*, double> turns[] = {
            {"psi", leg.psi}, {"theta", leg.theta}, {"alpha", leg.alpha}};
        for (const auto& turn : turns) {
            if (std::abs(turn.second) >= 180 - NearHalfTurnDegrees)
                warn("half-turn", i + 1, 0,
                     name(i) + ": " + turn.first + " turns " + format("%+.2f", turn.second) +
                         " degrees, within " + format("%g", NearHalfTurnDegrees) +
                         " degree of a half turn: which way it turns depends on rounding");
        }
        if (SpeedMeasure::still(keyFrames_[i].view, keyFrames_[i + 1].view))
            warn("same-view", i + 1, 0,
                 "key frames " + std::to_string(i + 1) + " and " + std::to_string(i + 2) + " (" +
                     inQuotes(keyFrames_[i].name) + ", " + inQuotes(keyFrames_[i + 1].name) +
                     ") have the same view: a pause of " + std::to_string(leg.frames) +
                     (leg.frames == 1 ? " frame" : " frames") + ", or a mistake");
        if (leg.frames == 1)
            warn("cut", i + 1, 0, name(i) + " has a frame count of 1: a cut");
        if (i > 0 && moving(i - 1) && moving(i)) {
            const double before = legs_[i - 1].speed;
            const double ratio = std::max(leg.speed / before, before / leg.speed);
            if (ratio > SpeedJumpFactor)
                warn("speed-jump", i + 1, 0,
                     "the speed jumps " + format("%.1f", ratio) + " times from " + name(i - 1) +
                         " to " + name(i) + ": " + format("%.4g", before) + " to " +
                         format("%.4g", leg.speed) + " a frame");
        }
    }
}

void FlightCheck::warnOfKeyFrames(const FlightViews& flight) {
    const auto name = [this](std::size_t k) {
        return "key frame " + std::to_string(k + 1) + " (" + inQuotes(keyFrames_[k].name) + ")";
    };
    const bool asCaptured =
        flight.settings().AnimateTime && flight.settings().TimeAnimationOperation ==
                                             vexutiltools::TimeAnimationOperation_e::AsCaptured;
    for (std::size_t k = 0; k < keyFrames_.size(); ++k) {
        const KeyFrame_s& keyFrame = keyFrames_[k];
        if (asCaptured && k > 0 && keyFrame.solutionTime < keyFrames_[k - 1].solutionTime)
            warn("time-backwards", 0, k + 1,
                 "the solution time goes back from " +
                     format("%g", keyFrames_[k - 1].solutionTime) + " to " +
                     format("%g", keyFrame.solutionTime) + " from " + name(k - 1) + " to " +
                     name(k) + " under AsCaptured time animation");
        if (!(keyFrame.view.Width > 0))
            warn("width", 0, k + 1,
                 name(k) + " has width " + format("%g", keyFrame.view.Width) +
                     ": the host takes only widths above 0 and keeps the width it had");
    }
}

void FlightCheck::warn(const std::string& kind, std::size_t leg, std::size_t keyFrame,
                       const std::string& message) {
    warnings_.push_back({kind, leg, keyFrame, message});
}

void FlightCheck::writeText(std::ostream& out, const std::string& fileName) const {
    out << fileName << ": " << keyFrames_.size() << " key frames, " << frameCount_ << " frames\n";
    for (std::size_t i = 0; i < legs_.size(); ++i) {
        const Leg& leg = legs_[i];
        out << "leg " << i + 1 << ' ' << inQuotes(keyFrames_[i].name) << " -> "
            << inQuotes(keyFrames_[i + 1].name) << ", frames " << leg.firstFrame << " to "
            << leg.firstFrame + leg.frames << " (" << leg.frames << ")\n"
            << "  turn psi " << format("%+.2f", leg.psi) << ", theta " << format("%+.2f", leg.theta)
            << ", alpha " << format("%+.2f", leg.alpha) << " degrees\n"
            << "  moved " << format("%.6g", leg.distance) << ", width "
            << format("%g", leg.widthFrom) << " -> " << format("%g", leg.widthTo) << '\n'
            << "  speed " << format("%.4g", leg.speed) << " a frame (length "
            << format("%.4g", leg.length) << ")\n";
    }
    for (const Warning& warning : warnings_)
        out << "warning: " << warning.message << '\n';
    if (warnings_.empty())
        out << "no warnings\n";
    else
        out << warnings_.size() << (warnings_.size() == 1 ? " warning\n" : " warnings\n");
}

void FlightCheck::writeJson(std::ostream& out, const std::string& fileName) const {
    nlohmann::ordered_json legs = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < legs_.size(); ++i) {
        const Leg& leg = legs_[i];
        legs.push_back({{"leg", i + 1},
                        {"from", keyFrames_[i].name},
                        {"to", keyFrames_[i + 1].name},
                        {"firstFrame", leg.firstFrame},
                        {"frames", leg.frames},
                        {"turn", {{"psi", leg.psi}, {"theta", leg.theta}, {"alpha", leg.alpha}}},
                        {"distance", leg.distance},
                        {"widthFrom", leg.widthFrom},
                        {"widthTo", leg.widthTo},
                        {"length", leg.length},
                        {"speed", leg.speed}});
    }
    nlohmann::ordered_json warnings = nlohmann::ordered_json::array();
    for (const Warning& warning : warnings_) {
        nlohmann::ordered_json entry = {{"kind", warning.kind}};
        if (warning.leg > 0)
            entry["leg"] = warning.leg;
        if (warning.keyFrame > 0)
            entry["keyFrame"] = warning.keyFrame;
        entry["message"] = warning.message;
        warnings.push_back(entry);
    }
    const nlohmann::ordered_json report = {{"file", fileName},
                                           {"keyFrames", keyFrames_.size()},
                                           {"frames", frameCount_},
                                           {"legs", legs},
                                           {"warnings", warnings}};
    out << report.dump(2) << '\n';
}

}  // namespace path
}  // namespace vexplot
