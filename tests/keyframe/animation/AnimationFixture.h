// The fixture of the animation tests: the add-on loaded into a clean host with one 3D frame, and
// helpers to make key frames, read the host's call log and check what a run leaves behind.
#ifndef VEXTEST_ANIMATIONFIXTURE_H
#define VEXTEST_ANIMATIONFIXTURE_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "animation/AnimationManager.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "support/AddOnFixture.h"

namespace vextest {

// The host state that a run switches or changes for its duration and must put back.
struct RestoredState {
    bool useDisplayLists = false;
    double intensity = 0;
    double backgroundLight = 0;
    bool axisShow = false;
    double timeAnchor = 0;
};

class AnimationFixture : public AddOnFixture {
protected:
    void SetUp() override;

    using KeyFrame_s = vexplot::vexutiltools::KeyFrame_s;
    using KeyFrameView_s = vexplot::vexutiltools::KeyFrameView_s;
    using AnimationSettings_s = vexplot::vexutiltools::AnimationSettings_s;
    using AnimationManager = vexplot::vexutiltools::AnimationManager;
    using RestoredState = vextest::RestoredState;

    // A view at the host's default viewer position and width with the given angles.
    static KeyFrameView_s viewWithAngles(double psi, double theta, double alpha);
    static KeyFrame_s keyFrame(const KeyFrameView_s& view, uint64_t frameCount,
                               double solutionTime = 0);
    // Key frames whose views differ in psi only: key frame i has psi psiOf[i].
    static std::vector<KeyFrame_s> keyFramesWithPsi(const std::vector<double>& psiOf,
                                                    const std::vector<uint64_t>& frameCounts);
    // Key frames with the given frame counts, views that differ, solution times 0, 1, 2, ...
    static std::vector<KeyFrame_s> keyFramesWithCounts(const std::vector<uint64_t>& frameCounts);

    RestoredState restoredState() const;
    // Expects the state that a run must put back, and no export recording.
    void expectRestored(const RestoredState& before) const;

    // Runs the animation; the KeyFrameError's text, or "" when it succeeded.
    static std::string animateError(
        const std::vector<KeyFrame_s>& keyFrames, uint64_t first, uint64_t count,
        const AnimationSettings_s& settings,
        int32_t suppressRecording = AnimationManager::SuppressMacroRecording);

    // The style value set by a call log line, its last argument (NaN for "nan").
    static double loggedValue(const std::string& line);
    static bool startsWith(const std::string& line, const std::string& prefix);
    // The lines that start with the prefix.
    static std::vector<std::string> linesStartingWith(const std::vector<std::string>& log,
                                                      const std::string& prefix);
    // The log from the line that starts with the prefix on (empty when there is none).
    static std::vector<std::string> logFrom(const std::vector<std::string>& log,
                                            const std::string& prefix);
    // For each VexUtilRedraw, the psi angle last set through ("ThreeDView", "PSIAngle").
    static std::vector<double> psiAtEachRedraw(const std::vector<std::string>& log);
};

// The text of the std::exception that f throws, or "" when it throws none.
std::string errorOf(const std::function<void()>& f);

}  // namespace vextest

#endif
