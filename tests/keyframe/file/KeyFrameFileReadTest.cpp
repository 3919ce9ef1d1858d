#include "file/KeyFrameFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "KeyFrameFileFixture.h"
#include "addon/KeyFrameError.h"
#include "support/KeyFrameData.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using KeyFrameFileReadTest = KeyFrameFileFixture;

const std::string Header = "#!KeyFrame 1\n";

// A key frame section with every item.
std::string section(const std::string& name, const std::string& position = "1 2 3") {
    return "%KeyFrameView\n Name \"" + name + "\"\n Position " + position +
           "\n Angle 10 20 30\n Width 5\n FrameCount 3\n SolutionTime 0.25\n%KeyFrameView\n";
}

KeyFrame_s sectionKeyFrame(const std::string& name, const KeyFrameView_s& view) {
    return vextest::keyFrame(name, view, 3, 0.25);
}

TEST_F(KeyFrameFileReadTest, ReadsTheExampleFile) {
    KeyFrameFile file;
    file.read(createFile(ExampleFileText), settings_, model_);

    AnimationSettings_s expected = exampleSettings();
    expected.Destination = Destination_e::ToFile;  // not in the file: the caller's is kept
    EXPECT_EQ(settings_, expected);
    std::vector<KeyFrame_s> keyFrames = exampleKeyFrames();
    keyFrames[0].view.Width = 12.3457;  // as written, six significant digits
    EXPECT_EQ(model_.getItems(), keyFrames);
    // One reset, nothing positional.
    EXPECT_EQ(observer_.changes, std::vector<ListModelChange>{ListModelChange{}});
    EXPECT_EQ(file.getLineNumber(), 28u);
}

TEST_F(KeyFrameFileReadTest, ASavedListReadsBackRoundedToSixSignificantDigits) {
    KeyFrame_s first = vextest::keyFrame(
        "  blanks  inside  ", {0.1234567, -98765.4321, 1e-7, 179.999999, -45.000001, 1e12, 3.3},
        1234567, 2.718281828);
    const KeyFrame_s second = vextest::keyFrame("second", {1, 2, 3, 4, 5, 6, 7}, 1, -0.5);
    ListModelKeyFrame saved;
    saved.setItems({first, second});
    using namespace vextest::option;
    AnimationSettings_s settings = vextest::animationSettings(
        AnimateTime | FadeIn | FadeOut, TimeAnimationOperation_e::Loop, 2147483647);

    const std::string fileName = directory_.file("round-trip.keyframe");
    KeyFrameFile().write(fileName, settings, saved);
    KeyFrameFile().read(fileName, settings_, model_);

    first.view = KeyFrameView_s{0.123457, -98765.4, 1e-7, 180, -45, 1e12, 3.3};
    first.solutionTime = 2.71828;
    EXPECT_EQ(model_.getItems(), (std::vector<KeyFrame_s>{first, second}));
    settings.Destination = Destination_e::ToFile;
    EXPECT_EQ(settings_, settings);
}

TEST_F(KeyFrameFileReadTest, AViewCoordinateComesBackWithSixSignificantDigits) {
    KeyFrame_s keyFrame = exampleKeyFrames()[0];
    keyFrame.view.X = 0.1234567;
    ListModelKeyFrame saved;
    saved.setItems({keyFrame});
    const std::string fileName = directory_.file("x.keyframe");
    KeyFrameFile().write(fileName, exampleSettings(), saved);
    KeyFrameFile().read(fileName, settings_, model_);
    ASSERT_EQ(model_.getItemCount(), 1u);
    EXPECT_EQ(model_.getItem(0).view.X, 0.123457);
}

TEST_F(KeyFrameFileReadTest, EveryOperationNameSurvivesTheRoundTrip) {
    ListModelKeyFrame saved;
    saved.setItems(exampleKeyFrames());
    for (const TimeAnimationOperation_e operation :
         {TimeAnimationOperation_e::Forward, TimeAnimationOperation_e::Loop,
          TimeAnimationOperation_e::Bounce, TimeAnimationOperation_e::AsCaptured}) {
        AnimationSettings_s settings;
        settings.TimeAnimationOperation = operation;
        const std::string fileName = directory_.file("operation.keyframe");
        KeyFrameFile().write(fileName, settings, saved);
        KeyFrameFile().read(fileName, settings_, model_);
        EXPECT_EQ(settings_.TimeAnimationOperation, operation);
    }
}

TEST_F(KeyFrameFileReadTest, AHeaderAloneEmptiesTheListAndKeepsTheSettings) {
    KeyFrameFile().read(createFile("\n  \n#!KeyFrame 1\n\n\t\n"), settings_, model_);
    EXPECT_EQ(settings_, vextest::settingsUnlikeAnyDefault());
    EXPECT_EQ(model_.getItemCount(), 0u);
    EXPECT_EQ(observer_.changes, std::vector<ListModelChange>{ListModelChange{}});
}

TEST_F(KeyFrameFileReadTest, TheHeaderIsReadInAnyCaseWithAnyVersionUpToOne) {
    for (const char* header : {"#!keyframe 1", "#!KEYFRAME 1", "#!KeyFrame 0", "#!KeyFrame -5",
                               "  #!KeyFrame 1 anything after the version  ", "#!KeyFrame 1x"}) {
        model_.setItems(vextest::keyFramesUnlikeAnyDefault());
        KeyFrameFile().read(createFile(std::string(header) + "\n" + section("A")), settings_,
                            model_);
        EXPECT_EQ(model_.getItemCount(), 1u) << header;
    }
}

TEST_F(KeyFrameFileReadTest, NamesOfSectionsItemsAndOperationsAreReadInAnyCase) {
    const std::string text = Header +
                             "%SETTINGS\n animatetime true\n TIMEANIMATIONOPERATION asCAPTURED\n"
                             " numCycles 3\n ANIMATESTREAMTRACES false\n fadein false\n"
                             " FADEOUT true\n%settings\n"
                             "%keyframeview\n NAME \"Mixed\"\n position 1 2 3\n ANGLE 4 5 6\n"
                             " wIdTh 7\n framecount 8\n SOLUTIONTIME 9\n%KEYFRAMEVIEW\n";
    KeyFrameFile().read(createFile(text), settings_, model_);
    AnimationSettings_s expected;
    expected.AnimateTime = true;
    expected.TimeAnimationOperation = TimeAnimationOperation_e::AsCaptured;
    expected.NumCycles = 3;
    expected.Destination = Destination_e::ToFile;
    expected.FadeOut = true;
    EXPECT_EQ(settings_, expected);
    KeyFrame_s keyFrame;
    keyFrame.view = KeyFrameView_s{1, 2, 3, 4, 5, 6, 7};
    keyFrame.name = "Mixed";
    keyFrame.frameCount = 8;
    keyFrame.solutionTime = 9;
    EXPECT_EQ(model_.getItems(), std::vector<KeyFrame_s>{keyFrame});
}

TEST_F(KeyFrameFileReadTest,
       SettingsItemsComeInAnyOrderTheLastOneWinsAndMissingOnesKeepTheirValue) {
    const std::string text = Header +
                             "%Settings\n FadeOut true\n NumCycles 4\n NumCycles 9\n%Settings\n"
                             "%Settings\n AnimateTime false\n%Settings\n";
    KeyFrameFile().read(createFile(text), settings_, model_);
    AnimationSettings_s expected = vextest::settingsUnlikeAnyDefault();
    expected.FadeOut = true;
    expected.NumCycles = 9;
    expected.AnimateTime = false;
    EXPECT_EQ(settings_, expected);
    EXPECT_EQ(model_.getItemCount(), 0u);
}

TEST_F(KeyFrameFileReadTest, NumCyclesAcceptsOneAndReadsTheWholePartOfAFraction) {
    KeyFrameFile().read(createFile(Header + "%Settings\n NumCycles 1\n%Settings\n"), settings_,
                        model_);
    EXPECT_EQ(settings_.NumCycles, 1u);
    KeyFrameFile().read(createFile(Header + "%Settings\n NumCycles 2.5\n%Settings\n"), settings_,
                        model_);
    EXPECT_EQ(settings_.NumCycles, 2u);
}

TEST_F(KeyFrameFileReadTest, TextAfterAValueOrAnEndMarkerIsIgnored) {
    const std::string text = Header +
                             "%Settings\n FadeIn false and more\n"
                             " TimeAnimationOperation Loop please\n%Settings trailing words\n"
                             "%KeyFrameView\n Name \"Kept name\" ignored \"words\"\n"
                             " Position 1 2 3\n Angle 4 5 6\n Width 7 8\n FrameCount 9 10\n"
                             " SolutionTime 11 12\n%KeyFrameView end\n";
    KeyFrameFile().read(createFile(text), settings_, model_);
    EXPECT_FALSE(settings_.FadeIn);
    EXPECT_EQ(settings_.TimeAnimationOperation, TimeAnimationOperation_e::Loop);
    KeyFrame_s keyFrame;
    keyFrame.view = KeyFrameView_s{1, 2, 3, 4, 5, 6, 7};
    keyFrame.name = "Kept name";
    keyFrame.frameCount = 9;
    keyFrame.solutionTime = 11;
    EXPECT_EQ(model_.getItems(), std::vector<KeyFrame_s>{keyFrame});
}

TEST_F(KeyFrameFileReadTest, KeyFrameItemsLeftOutAreEmptyOrZeroButTheFrameCountIsOne) {
    // A frame count of 0 is never taken this way: such a key frame could not be animated.
    const std::string text =
        Header + "%KeyFrameView\n Angle 4 5 6\n Position 1 2 3\n%KeyFrameView\n";
    KeyFrameFile().read(createFile(text), settings_, model_);
    KeyFrame_s keyFrame{};
    keyFrame.view = KeyFrameView_s{1, 2, 3, 4, 5, 6, 0};
    keyFrame.frameCount = 1;
    EXPECT_EQ(model_.getItems(), std::vector<KeyFrame_s>{keyFrame});
}

TEST_F(KeyFrameFileReadTest, KeyFramesKeepTheirFileOrderAndRepeatedItemsTakeTheLastValue) {
    const std::string text = Header + section("One", "1 1 1") + "\n\n" + section("Two", "2 2 2") +
                             "%KeyFrameView\n Name \"first\"\n Name \"Three\"\n Position 0 0 0\n"
                             " Position 3 3 3\n Angle 10 20 30\n Width 5\n FrameCount 3\n"
                             " SolutionTime 0.25\n%KeyFrameView";
    KeyFrameFile().read(createFile(text), settings_, model_);
    EXPECT_EQ(model_.getItems(),
              (std::vector<KeyFrame_s>{sectionKeyFrame("One", {1, 1, 1, 10, 20, 30, 5}),
                                       sectionKeyFrame("Two", {2, 2, 2, 10, 20, 30, 5}),
                                       sectionKeyFrame("Three", {3, 3, 3, 10, 20, 30, 5})}));
}

TEST_F(KeyFrameFileReadTest, WidthsUpToTheLimitsAreAccepted) {
    for (const char* width : {"1e150", "-1e150"}) {
        const std::string text = Header + "%KeyFrameView\n Position 1 2 3\n Angle 4 5 6\n Width " +
                                 width + "\n%KeyFrameView\n";
        KeyFrameFile().read(createFile(text), settings_, model_);
        ASSERT_EQ(model_.getItemCount(), 1u);
        EXPECT_EQ(model_.getItem(0).view.Width, std::stod(width));
    }
}

TEST_F(KeyFrameFileReadTest, WindowsLineEndsAndIndentationAreReadAlike) {
    std::string text;
    for (const char c : std::string(ExampleFileText)) {
        if (c == '\n')
            text += "\r\n";
        else
            text += c;
    }
    text.insert(text.find(" Name"), "\t\t   ");
    KeyFrameFile().read(createFile(text), settings_, model_);
    EXPECT_EQ(model_.getItemCount(), 2u);
    EXPECT_EQ(model_.getItem(1).name, "Top");
}

TEST_F(KeyFrameFileReadTest, TheLineCounterCountsPhysicalLinesFromOneForEachRead) {
    KeyFrameFile file;
    EXPECT_EQ(file.getLineNumber(), 0u);
    file.read(createFile("\n\n#!KeyFrame 1\n\n"), settings_, model_);
    EXPECT_EQ(file.getLineNumber(), 4u);
    file.read(createFile("#!KeyFrame 1"), settings_, model_);
    EXPECT_EQ(file.getLineNumber(), 1u);
}

TEST_F(KeyFrameFileReadTest, ANameBeyondAsciiIsReadUnderThatName) {
    // "Ansicht-ü-視点.keyframe"
    const std::string name = "Ansicht-\xC3\xBC-\xE8\xA6\x96\xE7\x82\xB9.keyframe";
    KeyFrameFile().read(createFile(ExampleFileText, name), settings_, model_);
    EXPECT_EQ(model_.getItemCount(), 2u);
}

// Every prefix of a valid file either reads or fails with a message, and a failure changes
// nothing.
TEST_F(KeyFrameFileReadTest, EveryTruncationOfAFileReadsOrFailsCleanly) {
    const std::string text = ExampleFileText;
    std::size_t failures = 0;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE("first " + std::to_string(length) + " bytes");
        const std::string fileName = createFile(text.substr(0, length));
        resetState();
        try {
            KeyFrameFile().read(fileName, settings_, model_);
        } catch (const KeyFrameError& error) {
            ++failures;
            EXPECT_STRNE(error.what(), "");
            expectStateUntouched();
        } catch (const std::out_of_range& error) {
            // A section cut before its Angle line, or an operation name cut short.
            ++failures;
            EXPECT_TRUE(std::string(error.what()) == "invalid vector subscript" ||
                        std::string(error.what()) == "Enumeration out of range.")
                << error.what();
            expectStateUntouched();
        }
    }
    // Only the prefixes that end right after a complete section read.
    EXPECT_GT(failures, text.size() - 20);
}

TEST_F(KeyFrameFileReadTest, BinaryGarbageFailsWithAMessageAndChangesNothing) {
    std::mt19937 random(20240601);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int attempt = 0; attempt < 200; ++attempt) {
        std::string text = attempt % 2 == 0 ? Header : std::string();
        const int length = 1 + attempt * 37;
        for (int i = 0; i < length; ++i)
            text += static_cast<char>(byte(random));
        const ReadFailure failure = readTextFailing(text);
        EXPECT_NE(failure.type, "other") << failure.message;
    }
}

TEST_F(KeyFrameFileReadTest, AHugeLineFailsWithItsLineNumber) {
    const std::string huge(8 * 1024 * 1024, 'z');
    const ReadFailure failure = readTextFailing(Header + "\n" + huge + "\n");
    EXPECT_EQ(failure.message, lineError("Unknown section header: " + huge, 3));

    const ReadFailure inName =
        readTextFailing(Header + "%KeyFrameView\n Name \"" + huge + "\n%KeyFrameView\n");
    EXPECT_EQ(inName.message, lineError("View name must be surrounded in quotation marks.", 3));
}

TEST_F(KeyFrameFileReadTest, AHugeNameIsKept) {
    const std::string huge(1024 * 1024, 'n');
    KeyFrameFile().read(createFile(Header + section(huge)), settings_, model_);
    ASSERT_EQ(model_.getItemCount(), 1u);
    EXPECT_EQ(model_.getItem(0).name, huge);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
