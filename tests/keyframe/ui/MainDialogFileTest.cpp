// The main dialog's File menu: opening and saving settings files through the file chooser and the
// same operations as the replayed macro commands, with the same recorded lines.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "MainDialogFixture.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using Lines = std::vector<std::string>;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

class MainDialogFileTest : public MainDialogFixture {
protected:
    void SetUp() override {
        MainDialogFixture::SetUp();
        openMainDialog();
    }
    void saveAs(const std::string& name) {
        host().userDialogs().queueFileName(name);
        chooseMenu(Title, {"File", "Save Animation File As..."});
    }

    TemporaryDirectory directory;
};

TEST_F(MainDialogFileTest, SaveAsWritesTheListAndTheChooserKeepsTheName) {
    appendKeyFrames(2);
    const std::string file = directory.file("flight");
    saveAs(file);
    EXPECT_EQ(readFile(file + ".keyframe").rfind("#!KeyFrame", 0), 0u);
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), file + ".keyframe");
    const auto& fileDialogs = host().userDialogs().fileDialogs();
    ASSERT_EQ(fileDialogs.size(), 1u);
    EXPECT_EQ(fileDialogs[0].mode, VexSelectFile_WriteFile);
    EXPECT_EQ(fileDialogs[0].defaultFileName, "animation.keyframe");
    EXPECT_EQ(fileDialogs[0].filter, "*.keyframe");
}

TEST_F(MainDialogFileTest, SaveBeforeAnyChosenNameAsksLikeSaveAs) {
    appendKeyFrames(1);
    host().userDialogs().queueFileName(directory.file("first.keyframe"));
    chooseMenu(Title, {"File", "Save Animation File"});
    EXPECT_EQ(host().userDialogs().fileDialogs().size(), 1u);
    EXPECT_FALSE(readFile(directory.file("first.keyframe")).empty());
}

TEST_F(MainDialogFileTest, SaveWithAChosenNameSavesWithoutAsking) {
    appendKeyFrames(1);
    const std::string file = directory.file("flight.keyframe");
    saveAs(file);
    pressMain("Append");
    // The file exists now; Save writes it again without the file dialog or the overwrite question.
    chooseMenu(Title, {"File", "Save Animation File"});
    EXPECT_EQ(host().userDialogs().fileDialogs().size(), 1u);
    EXPECT_TRUE(host().userDialogs().messageBoxes().empty());
    EXPECT_NE(readFile(file).find("View 2"), std::string::npos);
}

TEST_F(MainDialogFileTest, SavingAnEmptyListShowsTheErrorAndRecordsNothing) {
    host().macro().setRecording(true);
    saveAs(directory.file("empty.keyframe"));
    EXPECT_EQ(errorMessages(), Lines{"No Key Frames established."});
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(MainDialogFileTest, OpenReadsTheFileIntoTheListAndTheOptions) {
    appendKeyFrames(3);
    selectMain({2});
    type(Title, "View Name:", "Middle");
    chooseMenu(Title, {"Options", "Fade In"});
    const std::string file = directory.file("flight.keyframe");
    saveAs(file);
    pressMain("Clear");
    chooseMenu(Title, {"Options", "Fade In"});
    EXPECT_FALSE(dialog().getSettings().FadeIn);

    host().userDialogs().queueFileName(file);
    chooseMenu(Title, {"File", "Open Animation File..."});
    EXPECT_EQ(host().userDialogs().fileDialogs().back().mode, VexSelectFile_ReadSingleFile);
    EXPECT_EQ(listLines(), (Lines{"View 1", "Middle", "View 3"}));
    EXPECT_TRUE(dialog().getSettings().FadeIn);
    EXPECT_TRUE(user().findMenuEntry(dialogNamed(Title), {"Options", "Fade In"}).isOn);
    EXPECT_TRUE(isSensitive("Animate All"));
}

TEST_F(MainDialogFileTest, OpeningABadFileShowsTheErrorAndKeepsTheList) {
    appendKeyFrames(2);
    const std::string file = directory.file("bad.keyframe");
    std::ofstream(file) << "not a key frame file\n";
    host().userDialogs().queueFileName(file);
    chooseMenu(Title, {"File", "Open Animation File..."});
    ASSERT_EQ(errorMessages().size(), 1u);
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 2"}));
}

TEST_F(MainDialogFileTest, CancelingTheFileDialogDoesNothing) {
    appendKeyFrames(1);
    host().userDialogs().queueFileCancel();
    chooseMenu(Title, {"File", "Open Animation File..."});
    host().userDialogs().queueFileCancel();
    chooseMenu(Title, {"File", "Save Animation File As..."});
    EXPECT_EQ(dialog().getSettingsFileChooser().getFileName(), "animation.keyframe");
    EXPECT_TRUE(errorMessages().empty());
}

TEST_F(MainDialogFileTest, OpenAndSaveRecordTheirCommandsAndASaveIsReadBackOnReplay) {
    appendKeyFrames(2);
    host().macro().setRecording(true);
    const std::string file = directory.file("flight.keyframe");
    saveAs(file);
    host().userDialogs().queueFileName(file);
    chooseMenu(Title, {"File", "Open Animation File..."});
    const std::string name = "FileName=" + file;
    EXPECT_EQ(host().macro().lines(),
              (Lines{"$!ADDON \"Key Frame Animation\" OpenSettingsFile " + name,
                     "$!ADDON \"Key Frame Animation\" SaveSettingsFile " + name,
                     "$!ADDON \"Key Frame Animation\" OpenSettingsFile " + name}));
}

TEST_F(MainDialogFileTest, AMacroCommandRefreshesTheOpenDialog) {
    appendKeyFrames(2);
    const std::string file = directory.file("two.keyframe");
    saveAs(file);
    pressMain("Clear");
    ASSERT_TRUE(
        host()
            .addOns()
            .runMacroCommand("Key Frame Animation", "OpenSettingsFile FileName=\"" + file + "\"")
            .ok);
    runIdle();
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 2"}));
    EXPECT_TRUE(isSensitive("Animate All"));
    EXPECT_EQ(lockDepth(), 0);
}

TEST_F(MainDialogTest, AListReplacedBeforeTheDialogExistedStillFollowsLaterChanges) {
    // As a replayed OpenSettingsFile does before the user first opens the dialog.
    vexplot::vexutiltools::KeyFrame_s keyFrame;
    keyFrame.name = "Opened";
    keyFrame.frameCount = 10;
    dialog().getKeyFrameModel().setItems({keyFrame, keyFrame});
    openMainDialog();
    EXPECT_EQ(listLines(), (Lines{"Opened", "Opened"}));
    pressMain("Append");
    EXPECT_EQ(listLines(), (Lines{"Opened", "Opened", "View 3"}));
}

}  // namespace
}  // namespace vextest
