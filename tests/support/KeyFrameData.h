// Key frames and animation settings as the tests, the fuzz targets and the benchmarks spell them:
// one builder for each record, the lists and settings that more than one of them runs, and their
// settings files. Needs no test framework.
#ifndef VEXTEST_KEYFRAMEDATA_H
#define VEXTEST_KEYFRAMEDATA_H

#include <cstdint>
#include <string>
#include <vector>

#include "file/KeyFrameFile.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "model/ListModelKeyFrame.h"

namespace vextest {

using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::Destination_e;
using vexplot::vexutiltools::KeyFrame_s;
using vexplot::vexutiltools::KeyFrameView_s;
using vexplot::vexutiltools::TimeAnimationOperation_e;

inline KeyFrame_s keyFrame(const std::string& name, const KeyFrameView_s& view, uint64_t frameCount,
                           double solutionTime = 0) {
    KeyFrame_s result;
    result.view = view;
    result.name = name;
    result.frameCount = frameCount;
    result.solutionTime = solutionTime;
    return result;
}

// The switches of AnimationSettings_s, combined with |: option::AnimateTime | option::FadeIn.
namespace option {
constexpr unsigned None = 0;
constexpr unsigned AnimateTime = 1u << 0;
constexpr unsigned AnimateStreamtraces = 1u << 1;
constexpr unsigned FadeIn = 1u << 2;
constexpr unsigned FadeOut = 1u << 3;
}  // namespace option

// Settings with the switches named in `options` on and the others off.
inline AnimationSettings_s animationSettings(
    unsigned options, TimeAnimationOperation_e operation = TimeAnimationOperation_e::Forward,
    uint64_t numCycles = 1, Destination_e destination = Destination_e::OnScreen) {
    AnimationSettings_s settings;
    settings.AnimateTime = (options & option::AnimateTime) != 0;
    settings.TimeAnimationOperation = operation;
    settings.NumCycles = numCycles;
    settings.Destination = destination;
    settings.AnimateStreamtraces = (options & option::AnimateStreamtraces) != 0;
    settings.FadeIn = (options & option::FadeIn) != 0;
    settings.FadeOut = (options & option::FadeOut) != 0;
    return settings;
}

// Every stage of a run: time animated over two cycles of `operation`, streamtraces, fade in and
// fade out.
inline AnimationSettings_s everyStage(TimeAnimationOperation_e operation,
                                      Destination_e destination = Destination_e::OnScreen) {
    return animationSettings(
        option::AnimateTime | option::AnimateStreamtraces | option::FadeIn | option::FadeOut,
        operation, 2, destination);
}

// A short flight over a transient data set of solution times 0, 0.5 and 1: three key frames, 12
// frames in all, each key frame at its own time.
inline std::vector<KeyFrame_s> smallFlight() {
    return {keyFrame("Front", {8.66, -15, 10, 60, 30, 0, 10}, 6, 0.0),
            keyFrame("Side", {15, 8.66, 10, 60, 120, 0, 12}, 5, 0.5),
            keyFrame("Top", {0, 0, 20, 0, 0, 0, 8}, 1, 1.0)};
}

// Settings and key frames unlike any default and unlike what the tests' files hold, for a caller's
// state that a failing read must leave as it was.
inline AnimationSettings_s settingsUnlikeAnyDefault() {
    return animationSettings(option::AnimateTime | option::AnimateStreamtraces | option::FadeIn,
                             TimeAnimationOperation_e::Bounce, 7, Destination_e::ToFile);
}

inline std::vector<KeyFrame_s> keyFramesUnlikeAnyDefault() {
    const KeyFrame_s first = keyFrame("Before 1", {7, 8, 9, 10, 11, 12, 13}, 4, 2.5);
    KeyFrame_s second = first;
    second.name = "Before 2";
    second.view.X = -7;
    return {first, second};
}

// Writes the key frames and settings as a settings file (UTF-8 file name), as the add-on saves
// one: the file format is the add-on's, spelled out once in its own tests (tests/keyframe/file).
inline void writeSettingsFile(const std::string& fileName, const std::vector<KeyFrame_s>& keyFrames,
                              const AnimationSettings_s& settings) {
    vexplot::vexutiltools::ListModelKeyFrame model;
    model.setItems(keyFrames);
    vexplot::vexutiltools::KeyFrameFile().write(fileName, settings, model);
}

}  // namespace vextest

#endif
