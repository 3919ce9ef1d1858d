// The add-on's macro commands as the host replays them: through the macro command callback that
// the add-on registered, acting on the main dialog's state, with the host's macro recorder
// watching what the add-on records.
#include "macro/CommandExecuterAbstractFactory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "addon/AddOn.h"
#include "file/FileSystemPath.h"
#include "file/KeyFrameFile.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "ui/DialogMain.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const std::string ErrorHeading = "Key Frame Animation error:\n";

KeyFrame_s keyFrame(const std::string& name, double x, uint64_t frameCount) {
    KeyFrame_s result;
    result.view = KeyFrameView_s{x, -20, 3.25, 30, 45, 0, 10};
    result.name = name;
    result.frameCount = frameCount;
    result.solutionTime = 0.5;
    return result;
}

class CommandExecuterTest : public vextest::AddOnFixture {
protected:
    // Runs the command string as the host's macro player does.
    vexhost::AddOnRegistry::CommandResult run(const std::string& command) {
        return host().addOns().runMacroCommand(AddOn::Name, command);
    }

    DialogMain& dialog() { return DialogMain::instance(); }
    ListModelKeyFrame& dialogKeyFrames() { return dialog().getKeyFrameModel(); }
    AnimationSettings_s& dialogSettings() { return dialog().getSettings(); }

    // Two key frames of 3 and 5 frames: a run over them has 4 frames.
    void giveTheDialogKeyFrames() {
        dialogKeyFrames().setItems({keyFrame("A", 1, 3), keyFrame("B", 2, 5)});
    }

    static std::string contentOf(const std::string& fileName) {
        std::ifstream in(fileSystemPath(fileName), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    std::string writeFile(const std::string& name, const std::string& content) {
        const std::string fileName = directory_.file(name);
        std::ofstream(fileSystemPath(fileName), std::ios::binary) << content;
        return fileName;
    }

    // A file with two key frames (C and D) and settings unlike the defaults.
    std::string writeSettingsFile(const std::string& name) {
        ListModelKeyFrame keyFrames;
        keyFrames.setItems({keyFrame("C", 7, 2), keyFrame("D", 8, 9)});
        AnimationSettings_s settings;
        settings.AnimateTime = true;
        settings.TimeAnimationOperation = TimeAnimationOperation_e::Loop;
        settings.NumCycles = 3;
        settings.FadeIn = true;
        const std::string fileName = directory_.file(name);
        KeyFrameFile().write(fileName, settings, keyFrames);
        return fileName;
    }

    vextest::TemporaryDirectory directory_;
};

// ---- Animate ----

TEST_F(CommandExecuterTest, AnimateToFileInLowerCaseRunsToFile) {
    createFrame3D();
    giveTheDialogKeyFrames();
    const auto result = run("Animate AnimationDestination=tofile");
    EXPECT_TRUE(result.ok) << result.error;
    const vexhost::Exporter::Counts& counts = host().exporter().counts();
    EXPECT_EQ(counts.starts, 1u);
    EXPECT_EQ(counts.frames, 4u);
    EXPECT_EQ(counts.finishes, 1u);
    EXPECT_EQ(counts.cancels, 0u);
    EXPECT_EQ(dialogSettings().Destination, Destination_e::ToFile);
}

TEST_F(CommandExecuterTest, AnimateOnScreenDrawsEveryFrameAndExportsNothing) {
    createFrame3D();
    giveTheDialogKeyFrames();
    dialogSettings().Destination = Destination_e::ToFile;
    const uint64_t drawnBefore = host().drawing().drawnFrames();
    const auto result = run("Animate AnimationDestination=ONSCREEN");
    EXPECT_TRUE(result.ok) << result.error;
    EXPECT_EQ(host().drawing().drawnFrames() - drawnBefore, 4u);
    EXPECT_EQ(host().exporter().counts().starts, 0u);
    EXPECT_EQ(dialogSettings().Destination, Destination_e::OnScreen);
}

TEST_F(CommandExecuterTest, AnimateRunsWithTheDialogsOtherSettings) {
    createFrame3D();
    giveTheDialogKeyFrames();
    dialogSettings().FadeOut = true;
    startCallLog();
    EXPECT_TRUE(run("Animate AnimationDestination=OnScreen").ok);
    // Only the fade stage sets the light source's intensity.
    bool lightingSet = false;
    for (const std::string& call : takeCallLog())
        lightingSet =
            lightingSet || (call.rfind("VexUtilStyleSet", 0) == 0 &&
                            call.find("\"LightSource\", \"Intensity\"") != std::string::npos);
    EXPECT_TRUE(lightingSet);
    EXPECT_TRUE(dialogSettings().FadeOut);
}

TEST_F(CommandExecuterTest, AnimateWithoutParametersNamesTheMissingDestination) {
    createFrame3D();
    giveTheDialogKeyFrames();
    const auto result = run("Animate");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading +
                                "Invalid macro command: missing value for parameter "
                                "\"AnimationDestination\"");
    EXPECT_EQ(host().drawing().drawnFrames(), 0u);
}

TEST_F(CommandExecuterTest, AnimateIgnoresParametersItDoesNotUse) {
    createFrame3D();
    giveTheDialogKeyFrames();
    const auto result = run("Animate FileName=x.keyframe");
    EXPECT_EQ(result.error, ErrorHeading +
                                "Invalid macro command: missing value for parameter "
                                "\"AnimationDestination\"");
}

TEST_F(CommandExecuterTest, AnimateToAnUnknownDestinationFailsWithTheInvalidValueMessage) {
    createFrame3D();
    giveTheDialogKeyFrames();
    dialogSettings().Destination = Destination_e::ToFile;
    const auto result = run("Animate AnimationDestination=Screen");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading +
                                "Invalid macro command: invalid value for parameter "
                                "\"AnimationDestination\"");
    EXPECT_EQ(dialogSettings().Destination, Destination_e::ToFile);
    EXPECT_EQ(host().drawing().drawnFrames(), 0u);
}

TEST_F(CommandExecuterTest, AnimateTakesTheFirstDestinationGiven) {
    createFrame3D();
    giveTheDialogKeyFrames();
    EXPECT_TRUE(run("Animate AnimationDestination=OnScreen AnimationDestination=ToFile").ok);
    EXPECT_EQ(dialogSettings().Destination, Destination_e::OnScreen);
    EXPECT_EQ(host().exporter().counts().starts, 0u);
}

TEST_F(CommandExecuterTest, AnimateRecordsItselfWithItsDestination) {
    createFrame3D();
    giveTheDialogKeyFrames();
    host().macro().setRecording(true);
    EXPECT_TRUE(run("Animate AnimationDestination=tofile").ok);
    EXPECT_EQ(host().macro().lines(),
              std::vector<std::string>{
                  "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile"});
}

TEST_F(CommandExecuterTest, AnimateKeepsTheNewDestinationWhenTheRunFails) {
    createFrame3D();
    dialogKeyFrames().setItems({keyFrame("only", 1, 3)});
    host().macro().setRecording(true);
    const auto result = run("Animate AnimationDestination=ToFile");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading +
                                "At least two keyFrame views must be established to perform an "
                                "animation.");
    EXPECT_EQ(dialogSettings().Destination, Destination_e::ToFile);
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(CommandExecuterTest, AnimateKeepsTheNewDestinationWhenTheFrameIsNot3D) {
    createFrame(VexPlotType_XYLine);
    giveTheDialogKeyFrames();
    const auto result = run("Animate AnimationDestination=ToFile");
    EXPECT_EQ(result.error, ErrorHeading + "The current frame must be in 3D Cartesian mode.");
    EXPECT_EQ(dialogSettings().Destination, Destination_e::ToFile);
}

TEST_F(CommandExecuterTest, AnimateKeepsTheNewDestinationWhenTheRunIsCanceled) {
    createFrame3D();
    giveTheDialogKeyFrames();
    dialogSettings().Destination = Destination_e::ToFile;
    host().macro().setRecording(true);
    host().progress().pressStopAt(1);  // Stop at the first progress check
    const auto result = run("Animate AnimationDestination=OnScreen");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading + "Animation canceled.");
    EXPECT_EQ(dialogSettings().Destination, Destination_e::OnScreen);
    EXPECT_TRUE(host().macro().lines().empty());
}

// ---- OpenSettingsFile ----

TEST_F(CommandExecuterTest, OpenSettingsFileReplacesTheDialogsListAndSettings) {
    const std::string fileName = writeSettingsFile("open.keyframe");
    giveTheDialogKeyFrames();
    dialogSettings().Destination = Destination_e::ToFile;
    const auto result = run("OpenSettingsFile FileName=" + fileName);
    EXPECT_TRUE(result.ok) << result.error;

    EXPECT_EQ(dialogKeyFrames().getItems(),
              (std::vector<KeyFrame_s>{keyFrame("C", 7, 2), keyFrame("D", 8, 9)}));
    AnimationSettings_s expected;
    expected.AnimateTime = true;
    expected.TimeAnimationOperation = TimeAnimationOperation_e::Loop;
    expected.NumCycles = 3;
    expected.FadeIn = true;
    expected.Destination = Destination_e::ToFile;  // not in the file: the dialog's stays
    EXPECT_EQ(dialogSettings(), expected);
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), fileName);
}

TEST_F(CommandExecuterTest, OpenSettingsFileRecordsItselfWhileTheHostRecords) {
    const std::string fileName = writeSettingsFile("with blank.keyframe");
    host().macro().setRecording(true);
    EXPECT_TRUE(run("OpenSettingsFile FileName=\"" + fileName + "\"").ok);
    EXPECT_EQ(host().macro().lines(),
              std::vector<std::string>{"$!ADDON \"Key Frame Animation\" OpenSettingsFile "
                                       "FileName=\"" +
                                       fileName + "\""});
}

TEST_F(CommandExecuterTest, OpenSettingsFileRecordsNothingWhileTheHostDoesNotRecord) {
    const std::string fileName = writeSettingsFile("quiet.keyframe");
    EXPECT_TRUE(run("OpenSettingsFile FileName=" + fileName).ok);
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_EQ(dialogKeyFrames().getItemCount(), 2u);
}

TEST_F(CommandExecuterTest, OpenSettingsFileOfABrokenFileChangesNothingAndRecordsNothing) {
    const std::string fileName =
        writeFile("broken.keyframe",
                  "#!KeyFrame 1\n%Settings\n FadeIn true\n%Settings\n%KeyFrameView\n"
                  " Name \"x\"\n Position 1 2\n%KeyFrameView\n");
    giveTheDialogKeyFrames();
    dialogSettings().NumCycles = 5;
    const AnimationSettings_s settingsBefore = dialogSettings();
    const std::vector<KeyFrame_s> keyFramesBefore = dialogKeyFrames().getItems();
    host().macro().setRecording(true);

    const auto result = run("OpenSettingsFile FileName=" + fileName);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading +
                                "Error reading key frame settings file.\n\nMismatch between number "
                                "of expected values and number of values that could be read.\n"
                                "Number of expected values: 3\nNumber of values read: 2\n\nError "
                                "occurred on line number 7.");
    EXPECT_EQ(dialogSettings(), settingsBefore);
    EXPECT_EQ(dialogKeyFrames().getItems(), keyFramesBefore);
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), "animation.keyframe");
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(CommandExecuterTest, OpenSettingsFileWithAnUnknownOperationChangesNothing) {
    const std::string fileName = writeFile(
        "operation.keyframe",
        "#!KeyFrame 1\n%Settings\n FadeIn true\n TimeAnimationOperation Jump\n%Settings\n");
    giveTheDialogKeyFrames();
    host().macro().setRecording(true);
    const auto result = run("OpenSettingsFile FileName=" + fileName);
    EXPECT_EQ(result.error, ErrorHeading + "Enumeration out of range.");
    EXPECT_FALSE(dialogSettings().FadeIn);
    EXPECT_EQ(dialogKeyFrames().getItemCount(), 2u);
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(CommandExecuterTest, OpenSettingsFileOfAMissingFileCannotOpenIt) {
    giveTheDialogKeyFrames();
    const auto result = run("OpenSettingsFile FileName=" + directory_.file("absent.keyframe"));
    EXPECT_EQ(result.error, ErrorHeading + "Unable to open file for reading.");
    EXPECT_EQ(dialogKeyFrames().getItemCount(), 2u);
}

TEST_F(CommandExecuterTest, OpenSettingsFileTakesAnEmptyFileNameAsItStands) {
    const auto result = run("OpenSettingsFile FileName=");
    EXPECT_EQ(result.error, ErrorHeading + "Unable to open file for reading.");
}

TEST_F(CommandExecuterTest, OpenSettingsFileWithoutAFileNameNamesTheMissingParameter) {
    const auto result = run("OpenSettingsFile AnimationDestination=ToFile");
    EXPECT_EQ(result.error,
              ErrorHeading + "Invalid macro command: missing value for parameter \"FileName\"");
}

TEST_F(CommandExecuterTest, OpenSettingsFileOfANameBeyondAscii) {
    const std::string fileName =
        writeSettingsFile("r\xC3\xA9glages \xE8\xA8\xAD\xE5\xAE\x9A.keyframe");
    EXPECT_TRUE(run("OpenSettingsFile FileName=\"" + fileName + "\"").ok);
    EXPECT_EQ(dialogKeyFrames().getItemCount(), 2u);
}

// ---- SaveSettingsFile ----

TEST_F(CommandExecuterTest, SaveSettingsFileWritesTheDialogsStateAndRecordsItself) {
    giveTheDialogKeyFrames();
    dialogSettings().FadeOut = true;
    const std::string fileName = directory_.file("saved.keyframe");
    host().macro().setRecording(true);
    const auto result = run("SaveSettingsFile FileName=" + fileName);
    EXPECT_TRUE(result.ok) << result.error;
    EXPECT_EQ(host().macro().lines(),
              std::vector<std::string>{
                  "$!ADDON \"Key Frame Animation\" SaveSettingsFile FileName=" + fileName});
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), fileName);

    ListModelKeyFrame keyFrames;
    AnimationSettings_s settings;
    KeyFrameFile().read(fileName, settings, keyFrames);
    EXPECT_EQ(keyFrames.getItems(), dialogKeyFrames().getItems());
    EXPECT_TRUE(settings.FadeOut);
}

TEST_F(CommandExecuterTest, SaveSettingsFileOfAnEmptyListFailsCreatesNoFileAndRecordsNothing) {
    const std::string fileName = directory_.file("empty.keyframe");
    host().macro().setRecording(true);
    const auto result = run("SaveSettingsFile FileName=" + fileName);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, ErrorHeading + "No Key Frames established.");
    EXPECT_FALSE(std::filesystem::exists(directory_.path() / "empty.keyframe"));
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), "animation.keyframe");
}

TEST_F(CommandExecuterTest, SaveSettingsFileThatCannotBeWrittenRecordsNothing) {
    giveTheDialogKeyFrames();
    host().macro().setRecording(true);
    const auto result = run("SaveSettingsFile FileName=" + directory_.file("no/such/dir.keyframe"));
    EXPECT_EQ(result.error, ErrorHeading + "Unable to open file for writing.");
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(CommandExecuterTest, SaveSettingsFileWithoutAFileNameNamesTheMissingParameter) {
    giveTheDialogKeyFrames();
    const auto result = run("SaveSettingsFile");
    EXPECT_EQ(result.error,
              ErrorHeading + "Invalid macro command: missing value for parameter \"FileName\"");
}

// ---- Replaying what was recorded ----

TEST_F(CommandExecuterTest, ARecordedOpenReplaysToTheSameState) {
    giveTheDialogKeyFrames();
    dialogSettings().AnimateStreamtraces = true;
    const std::string fileName = directory_.file("a file with blanks.keyframe");
    ASSERT_TRUE(run("SaveSettingsFile FileName=\"" + fileName + "\"").ok);
    host().macro().setRecording(true);
    ASSERT_TRUE(run("OpenSettingsFile FileName=\"" + fileName + "\"").ok);
    const std::vector<std::string> recorded = host().macro().take();
    ASSERT_EQ(recorded.size(), 1u);
    host().macro().setRecording(false);

    const std::vector<KeyFrame_s> keyFrames = dialogKeyFrames().getItems();
    const AnimationSettings_s settings = dialogSettings();
    DialogMain::resetInstance();
    const std::string prefix = "$!ADDON \"Key Frame Animation\" ";
    ASSERT_EQ(recorded[0].rfind(prefix, 0), 0u) << recorded[0];
    const auto result = run(recorded[0].substr(prefix.size()));
    EXPECT_TRUE(result.ok) << recorded[0] << ": " << result.error;
    EXPECT_EQ(dialogKeyFrames().getItems(), keyFrames);
    EXPECT_EQ(dialogSettings(), settings);
}

// ---- The factory ----

TEST(CommandExecuterAbstractFactoryTest, CreatesTheExecuterOfEachCommand) {
    const CommandExecuterAbstractFactory factory;
    using Factory = CommandExecuterAbstractFactory;
    EXPECT_NE(dynamic_cast<Factory::CommandExecuterOpenSettings*>(
                  factory.createCommandExecuter(Command_e::OpenSettingsFile).get()),
              nullptr);
    EXPECT_NE(dynamic_cast<Factory::CommandExecuterSaveSettings*>(
                  factory.createCommandExecuter(Command_e::SaveSettingsFile).get()),
              nullptr);
    EXPECT_NE(dynamic_cast<Factory::CommandExecuterAnimate*>(
                  factory.createCommandExecuter(Command_e::Animate).get()),
              nullptr);
    EXPECT_EQ(factory.createCommandExecuter(static_cast<Command_e>(3)), nullptr);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
