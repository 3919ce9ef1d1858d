#include "AnimationFixture.h"

#include <cmath>
#include <cstdlib>
#include <exception>
#include <limits>

#include "addon/KeyFrameError.h"
#include "animation/AnimationManager.h"
#include "support/CallLogLines.h"
#include "support/KeyFrameData.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace vextest {

using vexplot::vexutiltools::AnimationManager;
using vexplot::vexutiltools::KeyFrameError;

void AnimationFixture::SetUp() {
    AddOnFixture::SetUp();
    createFrame3D();
}

AnimationFixture::KeyFrameView_s AnimationFixture::viewWithAngles(double psi, double theta,
                                                                  double alpha) {
    const vexhost::View3D defaults;
    const auto& p = defaults.position();
    return KeyFrameView_s{p[0], p[1], p[2], psi, theta, alpha, defaults.width()};
}

AnimationFixture::KeyFrame_s AnimationFixture::keyFrame(const KeyFrameView_s& view,
                                                        uint64_t frameCount, double solutionTime) {
    return vextest::keyFrame("View", view, frameCount, solutionTime);
}

std::vector<AnimationFixture::KeyFrame_s> AnimationFixture::keyFramesWithPsi(
    const std::vector<double>& psiOf, const std::vector<uint64_t>& frameCounts) {
    std::vector<KeyFrame_s> keyFrames;
    for (std::size_t i = 0; i < psiOf.size(); ++i)
        keyFrames.push_back(keyFrame(viewWithAngles(psiOf[i], 30, 0), frameCounts.at(i)));
    return keyFrames;
}

std::vector<AnimationFixture::KeyFrame_s> AnimationFixture::keyFramesWithCounts(
    const std::vector<uint64_t>& frameCounts) {
    std::vector<KeyFrame_s> keyFrames;
    for (std::size_t i = 0; i < frameCounts.size(); ++i) {
        KeyFrameView_s view = viewWithAngles(20.0 + 10.0 * i, 30.0 - 5.0 * i, 2.0 * i);
        view.X += static_cast<double>(i);
        view.Width += 0.5 * static_cast<double>(i);
        keyFrames.push_back(keyFrame(view, frameCounts[i], static_cast<double>(i)));
    }
    return keyFrames;
}

RestoredState AnimationFixture::restoredState() const {
    const vexhost::StyleStore& style = host().style();
    RestoredState state;
    state.useDisplayLists = style.getBool({"Interface", "UseDisplayLists"});
    state.intensity = style.getDouble({"GlobalThreeD", "LightSource", "Intensity"});
    state.backgroundLight = style.getDouble({"GlobalThreeD", "LightSource", "BackgroundLight"});
    state.axisShow = style.getBool({"ThreeDAxis", "FrameAxis", "Show"});
    state.timeAnchor = style.getDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"});
    return state;
}

void AnimationFixture::expectRestored(const RestoredState& before) const {
    const RestoredState after = restoredState();
    EXPECT_EQ(before.useDisplayLists, after.useDisplayLists) << "UseDisplayLists";
    EXPECT_EQ(before.intensity, after.intensity) << "light source intensity";
    EXPECT_EQ(before.backgroundLight, after.backgroundLight) << "background light";
    EXPECT_EQ(before.axisShow, after.axisShow) << "3D frame axis";
    EXPECT_EQ(before.timeAnchor, after.timeAnchor) << "streamtrace time anchor";
    EXPECT_FALSE(host().exporter().isRecording()) << "an export is still recording";
    EXPECT_EQ(0, host().lock().depth()) << "a lock is still held";
    EXPECT_FALSE(host().drawing().isSuspended()) << "drawing is still suspended";
    EXPECT_FALSE(host().progress().isOpen()) << "the status is still open";
}

std::string AnimationFixture::animateError(const std::vector<KeyFrame_s>& keyFrames, uint64_t first,
                                           uint64_t count, const AnimationSettings_s& settings,
                                           int32_t suppressRecording) {
    try {
        AnimationManager::animate(keyFrames, first, count, settings, suppressRecording);
    } catch (const KeyFrameError& error) {
        return error.what();
    }
    return "";
}

double AnimationFixture::loggedValue(const std::string& line) {
    const std::size_t comma = line.rfind(", ");
    const std::size_t start = comma == std::string::npos ? line.find('(') + 1 : comma + 2;
    const std::string text = line.substr(start, line.size() - 1 - start);
    if (text == "nan" || text == "-nan")
        return std::numeric_limits<double>::quiet_NaN();
    return std::strtod(text.c_str(), nullptr);
}

bool AnimationFixture::startsWith(const std::string& line, const std::string& prefix) {
    return line.compare(0, prefix.size(), prefix) == 0;
}

std::vector<std::string> AnimationFixture::linesStartingWith(const std::vector<std::string>& log,
                                                             const std::string& prefix) {
    std::vector<std::string> lines;
    for (const std::string& line : log)
        if (startsWith(line, prefix))
            lines.push_back(line);
    return lines;
}

std::vector<std::string> AnimationFixture::logFrom(const std::vector<std::string>& log,
                                                   const std::string& prefix) {
    for (std::size_t i = 0; i < log.size(); ++i)
        if (startsWith(log[i], prefix))
            return std::vector<std::string>(log.begin() + static_cast<std::ptrdiff_t>(i),
                                            log.end());
    return {};
}

std::vector<double> AnimationFixture::psiAtEachRedraw(const std::vector<std::string>& log) {
    std::vector<double> psi;
    double last = std::numeric_limits<double>::quiet_NaN();
    for (const std::string& line : log) {
        if (startsWith(line, vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                    {"ThreeDView", "PSIAngle"})))
            last = loggedValue(line);
        else if (startsWith(line, vextest::callLineStart("VexUtilRedraw")))
            psi.push_back(last);
    }
    return psi;
}

std::string errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

}  // namespace vextest
