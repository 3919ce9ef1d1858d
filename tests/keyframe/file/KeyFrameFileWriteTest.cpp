#include "file/KeyFrameFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "KeyFrameFileFixture.h"
#include "addon/KeyFrameError.h"
#include "support/KeyFrameData.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using KeyFrameFileWriteTest = KeyFrameFileFixture;

std::string writeMessage(const std::string& fileName, const AnimationSettings_s& settings,
                         const ListModelKeyFrame& keyFrames) {
    try {
        KeyFrameFile().write(fileName, settings, keyFrames);
    } catch (const KeyFrameError& error) {
        return error.what();
    }
    return "(no failure)";
}

TEST_F(KeyFrameFileWriteTest, WritesTheExampleFileByteForByte) {
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(exampleKeyFrames());
    const std::string fileName = directory_.file("example.keyframe");
    KeyFrameFile().write(fileName, exampleSettings(), keyFrames);
    EXPECT_EQ(contentOf(fileName), ExampleFileText);
}

TEST_F(KeyFrameFileWriteTest, WritesEverySettingAndLeavesTheDestinationOut) {
    using namespace vextest::option;
    const AnimationSettings_s settings =
        vextest::animationSettings(AnimateTime | AnimateStreamtraces | FadeIn,
                                   TimeAnimationOperation_e::AsCaptured, 12, Destination_e::ToFile);
    ListModelKeyFrame keyFrames;
    keyFrames.setItems({exampleKeyFrames()[1]});
    const std::string fileName = directory_.file("settings.keyframe");
    KeyFrameFile().write(fileName, settings, keyFrames);
    EXPECT_EQ(contentOf(fileName),
              "#!KeyFrame 1\n\n%Settings\n AnimateTime true\n TimeAnimationOperation AsCaptured\n"
              " NumCycles 12\n AnimateStreamtraces true\n FadeIn true\n FadeOut false\n%Settings\n"
              "\n%KeyFrameView\n Name \"Top\"\n Position 0 0 50\n Angle 0 0 0\n Width 10\n"
              " FrameCount 1\n SolutionTime 0.5\n%KeyFrameView");
}

TEST_F(KeyFrameFileWriteTest, NumbersHaveSixSignificantDigitsInGeneralNotation) {
    KeyFrame_s keyFrame;
    keyFrame.view = KeyFrameView_s{12.345678, 1e-07, 2500000, -0.000123456789, 359.99999, 1, 2};
    keyFrame.name = "n";
    keyFrame.frameCount = 18446744073709551615u;
    keyFrame.solutionTime = 1.0 / 3.0;
    ListModelKeyFrame keyFrames;
    keyFrames.setItems({keyFrame});
    const std::string fileName = directory_.file("digits.keyframe");
    KeyFrameFile().write(fileName, AnimationSettings_s(), keyFrames);
    const std::string text = contentOf(fileName);
    EXPECT_NE(text.find("\n Position 12.3457 1e-07 2.5e+06\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n Angle -0.000123457 360 1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n FrameCount 18446744073709551615\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n SolutionTime 0.333333\n"), std::string::npos) << text;
}

TEST_F(KeyFrameFileWriteTest, AnEmptyListIsRefusedAndNoFileIsCreated) {
    ListModelKeyFrame empty;
    const std::string fileName = directory_.file("never.keyframe");
    EXPECT_EQ(writeMessage(fileName, exampleSettings(), empty), "No Key Frames established.");
    EXPECT_FALSE(std::filesystem::exists(directory_.path() / "never.keyframe"));
}

TEST_F(KeyFrameFileWriteTest, AnEmptyListLeavesAnExistingFileUntouched) {
    const std::string fileName = createFile("precious content\n");
    ListModelKeyFrame empty;
    EXPECT_EQ(writeMessage(fileName, exampleSettings(), empty), "No Key Frames established.");
    EXPECT_EQ(contentOf(fileName), "precious content\n");
}

TEST_F(KeyFrameFileWriteTest, AFileThatCannotBeOpenedIsReported) {
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(exampleKeyFrames());
    EXPECT_EQ(
        writeMessage(directory_.file("missing/folder.keyframe"), exampleSettings(), keyFrames),
        "Unable to open file for writing.");
    EXPECT_EQ(writeMessage(directory_.path().string(), exampleSettings(), keyFrames),
              "Unable to open file for writing.");
    EXPECT_EQ(writeMessage("", exampleSettings(), keyFrames), "Unable to open file for writing.");
}

TEST_F(KeyFrameFileWriteTest, AWriteThatTheSystemRefusesAfterOpeningIsReported) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full on this system";
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(exampleKeyFrames());
    EXPECT_EQ(writeMessage("/dev/full", exampleSettings(), keyFrames),
              "Error writing key frame settings file.");
}

TEST_F(KeyFrameFileWriteTest, WritingReplacesAnExistingFile) {
    const std::string fileName = createFile(std::string(5000, 'x'));
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(exampleKeyFrames());
    KeyFrameFile().write(fileName, exampleSettings(), keyFrames);
    EXPECT_EQ(contentOf(fileName), ExampleFileText);
}

TEST_F(KeyFrameFileWriteTest, ANameBeyondAsciiIsWrittenUnderThatName) {
    // "Schlüssel-ビュー.keyframe": Latin and Japanese characters in UTF-8.
    const std::string name = "Schl\xC3\xBCssel-\xE3\x83\x93\xE3\x83\xA5\xE3\x83\xBC.keyframe";
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(exampleKeyFrames());
    KeyFrameFile().write(directory_.file(name), exampleSettings(), keyFrames);
    // The directory entry carries exactly the UTF-8 bytes of the name.
    std::vector<std::string> entries;
    for (const auto& entry : std::filesystem::directory_iterator(directory_.path()))
        entries.push_back(entry.path().filename().string());
    EXPECT_EQ(entries, std::vector<std::string>{name});
    EXPECT_EQ(contentOf(directory_.file(name)), ExampleFileText);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
