#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "model/AnimationSettings_s.h"
#include "model/Destination_e.h"
#include "model/KeyFrameView_s.h"
#include "model/KeyFrame_s.h"
#include "model/TimeAnimationOperation_e.h"
#include "support/Printed.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using vextest::printed;

KeyFrame_s sampleKeyFrame() {
    KeyFrame_s keyFrame;
    keyFrame.view = KeyFrameView_s{1, 2, 3, 30, 45, 0, 10};
    keyFrame.name = "Front view";
    keyFrame.frameCount = 20;
    keyFrame.solutionTime = 0.5;
    return keyFrame;
}

TEST(RecordsTest, ValueInitialisedKeyFrameIsAllZerosWithAnEmptyName) {
    const KeyFrame_s keyFrame{};
    EXPECT_EQ(KeyFrameView_s({0, 0, 0, 0, 0, 0, 0}), keyFrame.view);
    EXPECT_EQ("", keyFrame.name);
    EXPECT_EQ(0u, keyFrame.frameCount);
    EXPECT_EQ(0.0, keyFrame.solutionTime);
}

TEST(RecordsTest, ViewFieldsKeepTheirOrder) {
    const KeyFrameView_s view{1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(1, view.X);
    EXPECT_EQ(2, view.Y);
    EXPECT_EQ(3, view.Z);
    EXPECT_EQ(4, view.Psi);
    EXPECT_EQ(5, view.Theta);
    EXPECT_EQ(6, view.Alpha);
    EXPECT_EQ(7, view.Width);
}

TEST(RecordsTest, AnimationSettingsDefaultToAPlainOnScreenRun) {
    const AnimationSettings_s settings;
    EXPECT_FALSE(settings.AnimateTime);
    EXPECT_EQ(TimeAnimationOperation_e::Forward, settings.TimeAnimationOperation);
    EXPECT_EQ(1u, settings.NumCycles);
    EXPECT_EQ(Destination_e::OnScreen, settings.Destination);
    EXPECT_FALSE(settings.AnimateStreamtraces);
    EXPECT_FALSE(settings.FadeIn);
    EXPECT_FALSE(settings.FadeOut);
}

TEST(RecordsTest, EnumerationsHaveTheirFixedNumbers) {
    EXPECT_EQ(0, static_cast<int32_t>(TimeAnimationOperation_e::Forward));
    EXPECT_EQ(1, static_cast<int32_t>(TimeAnimationOperation_e::Loop));
    EXPECT_EQ(2, static_cast<int32_t>(TimeAnimationOperation_e::Bounce));
    EXPECT_EQ(3, static_cast<int32_t>(TimeAnimationOperation_e::AsCaptured));
    EXPECT_EQ(0, static_cast<int32_t>(Destination_e::OnScreen));
    EXPECT_EQ(1, static_cast<int32_t>(Destination_e::ToFile));
    static_assert(sizeof(TimeAnimationOperation_e) == 4, "32-bit enumeration");
    static_assert(sizeof(Destination_e) == 4, "32-bit enumeration");
}

TEST(RecordsTest, EnumerationPrintersShowNames) {
    EXPECT_EQ("Forward", printed(TimeAnimationOperation_e::Forward));
    EXPECT_EQ("Loop", printed(TimeAnimationOperation_e::Loop));
    EXPECT_EQ("Bounce", printed(TimeAnimationOperation_e::Bounce));
    EXPECT_EQ("AsCaptured", printed(TimeAnimationOperation_e::AsCaptured));
    EXPECT_EQ("TimeAnimationOperation_e(7)", printed(static_cast<TimeAnimationOperation_e>(7)));
    EXPECT_EQ("OnScreen", printed(Destination_e::OnScreen));
    EXPECT_EQ("ToFile", printed(Destination_e::ToFile));
    EXPECT_EQ("Destination_e(-1)", printed(static_cast<Destination_e>(-1)));
}

TEST(RecordsTest, SettingsPrinterNamesEveryField) {
    AnimationSettings_s settings;
    settings.TimeAnimationOperation = TimeAnimationOperation_e::Bounce;
    settings.NumCycles = 3;
    settings.FadeOut = true;
    EXPECT_EQ(
        "{AnimateTime false, TimeAnimationOperation Bounce, NumCycles 3, Destination OnScreen, "
        "AnimateStreamtraces false, FadeIn false, FadeOut true}",
        printed(settings));
}

TEST(RecordsTest, KeyFramesAreEqualWhenEveryFieldIsEqual) {
    EXPECT_EQ(sampleKeyFrame(), sampleKeyFrame());

    KeyFrame_s other = sampleKeyFrame();
    other.view.Width = 10.000001;
    EXPECT_NE(sampleKeyFrame(), other);

    other = sampleKeyFrame();
    other.name = "Front view ";
    EXPECT_NE(sampleKeyFrame(), other) << "names compare by length and bytes";

    other = sampleKeyFrame();
    other.frameCount = 21;
    EXPECT_NE(sampleKeyFrame(), other);

    other = sampleKeyFrame();
    other.solutionTime = 0.25;
    EXPECT_NE(sampleKeyFrame(), other);
}

TEST(RecordsTest, ANaNMakesKeyFramesUnequalEvenToThemselves) {
    KeyFrame_s keyFrame = sampleKeyFrame();
    keyFrame.view.Psi = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(keyFrame == keyFrame);

    keyFrame = sampleKeyFrame();
    keyFrame.solutionTime = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(keyFrame == keyFrame);
}

TEST(RecordsTest, NegativeZeroEqualsZeroAsDoublesDo) {
    KeyFrame_s a = sampleKeyFrame();
    KeyFrame_s b = sampleKeyFrame();
    a.view.Alpha = 0.0;
    b.view.Alpha = -0.0;
    EXPECT_EQ(a, b);
}

TEST(RecordsTest, KeyFramePrinterShowsTheViewAtFullPrecision) {
    KeyFrame_s keyFrame = sampleKeyFrame();
    keyFrame.view.X = 0.1;
    EXPECT_EQ(
        "{{X 0.10000000000000001, Y 2, Z 3, Psi 30, Theta 45, Alpha 0, Width 10}, name \"Front "
        "view\", frameCount 20, solutionTime 0.5}",
        printed(keyFrame));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
