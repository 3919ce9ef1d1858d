#include "Retimer.h"

#include <cmath>
#include <numeric>
#include <stdexcept>
#include <string>

#include "SpeedMeasure.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "vexhost/ScratchFile.h"

namespace vexplot {
namespace path {

std::vector<double> Retimer::sampledLegLengths(const FlightHost& host, const FlightViews& flight) {
    std::vector<KeyFrame_s> sampled = flight.keyFrames();
    for (KeyFrame_s& keyFrame : sampled)
        keyFrame.frameCount = SampleFrames;
    vexutiltools::ListModelKeyFrame list;
    list.setItems(sampled);
    // The views alone: time, streamtraces and fades change nothing of them.
    const vexhost::ScratchFile file("vexpath-sample", ".keyframe");
    vexutiltools::KeyFrameFile().write(file.path(), vexutiltools::AnimationSettings_s(), list);
    return SpeedMeasure::legLengths(host.fly(file.path()));
}

std::vector<uint64_t> Retimer::frameCounts(const std::vector<KeyFrame_s>& keyFrames,
                                           const std::vector<double>& lengths, uint64_t totalFrames,
                                           bool ease) {
    std::vector<uint64_t> counts;
    for (const KeyFrame_s& keyFrame : keyFrames)
        counts.push_back(keyFrame.frameCount);
    const std::size_t legs = lengths.size();
    // Each moving leg's weight; 0 for the legs that keep their counts.
    std::vector<double> weights(legs, 0);
    uint64_t kept = 0;
    std::size_t moving = 0;
    for (std::size_t i = 0; i < legs; ++i) {
        if (counts[i] == 1 || SpeedMeasure::still(keyFrames[i].view, keyFrames[i + 1].view)) {
            kept += counts[i];
            continue;
        }
        ++moving;
        const bool eased = ease && (i == 0 || i + 1 == legs);
        weights[i] = lengths[i] * (eased ? EaseSlowdown : 1);
    }
    if (moving == 0)
        throw std::runtime_error(
            "nothing in the flight moves but in cuts: there is nothing to retime");
    if (totalFrames < 1 + kept + moving)
        throw std::runtime_error(
            std::to_string(totalFrames) + " frames are too few: the holds and cuts keep " +
            std::to_string(kept) + ", and each of the " + std::to_string(moving) +
            " legs that move needs one at least, so the flight needs " +
            std::to_string(1 + kept + moving) + " frames or more");

    const uint64_t share = totalFrames - 1 - kept;
    const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
    std::vector<double> ideal(legs, 0);
    uint64_t given = 0;
    for (std::size_t i = 0; i < legs; ++i) {
        if (weights[i] == 0)
            continue;
        ideal[i] = static_cast<double>(share) * weights[i] / total;
        counts[i] = std::max<uint64_t>(1, static_cast<uint64_t>(std::llround(ideal[i])));
        given += counts[i];
    }
    // Speeds relative to the constant one: ideal / count.
    while (given > share) {
        std::size_t pick = legs;
        for (std::size_t i = 0; i < legs; ++i) {
            if (weights[i] > 0 && counts[i] > 1 &&
                (pick == legs || ideal[i] / (counts[i] - 1) < ideal[pick] / (counts[pick] - 1)))
                pick = i;
        }
        --counts[pick];
        --given;
    }
    while (given < share) {
        std::size_t pick = legs;
        for (std::size_t i = 0; i < legs; ++i) {
            if (weights[i] > 0 &&
                (pick == legs || ideal[i] / counts[i] > ideal[pick] / counts[pick]))
                pick = i;
        }
        ++counts[pick];
        ++given;
    }
    return counts;
}

}  // namespace path
}  // namespace vexplot
