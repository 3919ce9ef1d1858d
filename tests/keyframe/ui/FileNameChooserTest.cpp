#include "ui/FileNameChooser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const char* const ExtensionQuestion =
    "You have specified an extension other than the default file extension\n"
    "Are you sure you want to save the file as %s\n"
    "Click \"No\" to restore the default file extension.";

std::string extensionQuestion(const std::string& fileName) {
    std::string text = ExtensionQuestion;
    return text.replace(text.find("%s"), 2, fileName);
}

std::string overwriteQuestion(const std::string& fileName) {
    return "The file: " + fileName + " exists.\nAre you sure you want to overwrite it?";
}

class FileNameChooserTest : public vextest::AddOnFixture {
protected:
    // The chooser of the main dialog's settings files.
    FileNameChooser chooser_{"animation", "keyframe", "Key Frame Animation"};
    vextest::TemporaryDirectory directory_;

    std::string existingFile(const std::string& name) {
        const std::string path = directory_.file(name);
        std::ofstream(path) << "content";
        return path;
    }

    std::vector<std::string> questions() const {
        std::vector<std::string> texts;
        for (const auto& box : host().userDialogs().messageBoxes()) {
            EXPECT_EQ(box.type, VexMessageBox_YesNo);
            texts.push_back(box.text);
        }
        return texts;
    }
};

TEST_F(FileNameChooserTest, CreationAppliesTheDefaultExtension) {
    EXPECT_EQ(chooser_.getFileName(), "animation.keyframe");
    EXPECT_FALSE(chooser_.isChosen());
    EXPECT_EQ(FileNameChooser("film.avi", "mp4", "Movie").getFileName(), "film.mp4");
}

TEST_F(FileNameChooserTest, ApplyingTheDefaultExtensionReplacesTheTextAfterTheLastDot) {
    EXPECT_EQ(FileNameChooser::applyDefaultExtension("a", "keyframe"), "a.keyframe");
    EXPECT_EQ(FileNameChooser::applyDefaultExtension("a.b.c", "keyframe"), "a.b.keyframe");
    EXPECT_EQ(FileNameChooser::applyDefaultExtension("a.", "keyframe"), "a.keyframe");
    EXPECT_EQ(FileNameChooser::applyDefaultExtension("dir.d/name", "keyframe"), "dir.keyframe");
    EXPECT_EQ(FileNameChooser::applyDefaultExtension("", "keyframe"), ".keyframe");
}

TEST_F(FileNameChooserTest, TheHostDialogGetsModeTypeNameCurrentNameAndFilter) {
    host().userDialogs().queueFileName("first");
    startCallLog();
    ASSERT_TRUE(chooser_.chooseFileName(VexSelectFile_ReadSingleFile));

    EXPECT_EQ(takeCallLog(),
              (std::vector<std::string>{
                  vextest::addOnLockStart(),
                  "VexUtilDialogGetFileName(0, \"Key Frame Animation\", \"animation.keyframe\", "
                  "\"*.keyframe\")",
                  vextest::callLine("VexUtilStringDealloc", {"first"}),
                  vextest::addOnLockFinish(),
              }));
    EXPECT_EQ(chooser_.getFileName(), "first.keyframe");
    EXPECT_TRUE(chooser_.isChosen());

    // The next dialog starts from the accepted name.
    host().userDialogs().queueFileName("second.keyframe");
    ASSERT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    const auto& dialogs = host().userDialogs().fileDialogs();
    ASSERT_EQ(dialogs.size(), 2u);
    EXPECT_EQ(dialogs[1].mode, VexSelectFile_WriteFile);
    EXPECT_EQ(dialogs[1].defaultFileName, "first.keyframe");
    EXPECT_EQ(chooser_.getFileName(), "second.keyframe");
}

TEST_F(FileNameChooserTest, ANameWithoutExtensionGetsTheDefaultOneAndNoQuestion) {
    host().userDialogs().queueFileName(directory_.file("new"));
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(chooser_.getFileName(), directory_.file("new.keyframe"));
    EXPECT_TRUE(questions().empty());
}

TEST_F(FileNameChooserTest, ANameWithoutExtensionIsCheckedForOverwriteUnderItsNewName) {
    const std::string existing = existingFile("old.keyframe");
    host().userDialogs().queueFileName(directory_.file("old"));
    host().userDialogs().queueAnswer(true);
    startCallLog();
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(chooser_.getFileName(), existing);
    EXPECT_EQ(questions(), std::vector<std::string>{overwriteQuestion(existing)});

    // The question is asked under a lock of its own, inside the lock of the whole dialog.
    const std::vector<std::string> log = takeCallLog();
    ASSERT_EQ(log.size(), 8u);
    EXPECT_EQ(log[0], vextest::addOnLockStart());
    EXPECT_EQ(log[4], vextest::addOnLockStart());
    EXPECT_EQ(log[5].rfind("VexUtilDialogMessageBox(\"The file: ", 0), 0u) << log[5];
    EXPECT_EQ(log[6], vextest::addOnLockFinish());
    EXPECT_EQ(log[7], vextest::addOnLockFinish());
}

TEST_F(FileNameChooserTest, NoToTheOverwriteQuestionRefusesTheName) {
    const std::string existing = existingFile("old.keyframe");
    host().userDialogs().queueFileName(existing);
    host().userDialogs().queueAnswer(false);
    EXPECT_FALSE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(chooser_.getFileName(), "animation.keyframe");
    EXPECT_FALSE(chooser_.isChosen());
    EXPECT_EQ(questions(), std::vector<std::string>{overwriteQuestion(existing)});
}

TEST_F(FileNameChooserTest, OpenDialogsDoNotAskAboutOverwriting) {
    const std::string existing = existingFile("old.keyframe");
    host().userDialogs().queueFileName(existing);
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_ReadSingleFile));
    EXPECT_EQ(chooser_.getFileName(), existing);
    EXPECT_TRUE(questions().empty());
}

TEST_F(FileNameChooserTest, TheDefaultExtensionInUpperCaseIsAnotherExtension) {
    const std::string typed = directory_.file("upper.KEYFRAME");
    host().userDialogs().queueFileName(typed);
    host().userDialogs().queueAnswer(false);  // No: restore the default extension
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(questions(), std::vector<std::string>{extensionQuestion(typed)});
    EXPECT_EQ(chooser_.getFileName(), directory_.file("upper.keyframe"));
}

TEST_F(FileNameChooserTest, NoToTheExtensionQuestionStillAsksAboutOverwriting) {
    const std::string existing = existingFile("taken.keyframe");
    const std::string typed = directory_.file("taken.txt");
    host().userDialogs().queueFileName(typed);
    host().userDialogs().queueAnswer(false);  // No: restore the default extension
    host().userDialogs().queueAnswer(false);  // No: do not overwrite
    EXPECT_FALSE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(questions(),
              (std::vector<std::string>{extensionQuestion(typed), overwriteQuestion(existing)}));
    EXPECT_EQ(chooser_.getFileName(), "animation.keyframe");
}

TEST_F(FileNameChooserTest, YesToTheExtensionQuestionSkipsTheOverwriteQuestionOnPurpose) {
    const std::string existing = existingFile("keep.txt");
    host().userDialogs().queueFileName(existing);
    host().userDialogs().queueAnswer(true);  // Yes: keep the typed extension
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    // The file exists, yet only the extension question was asked.
    EXPECT_EQ(questions(), std::vector<std::string>{extensionQuestion(existing)});
    EXPECT_EQ(chooser_.getFileName(), existing);
    EXPECT_TRUE(chooser_.isChosen());
    EXPECT_EQ(host().userDialogs().pendingAnswers(), 0u);
}

TEST_F(FileNameChooserTest, OpenDialogsAskTheExtensionQuestionWithTheSameWords) {
    host().userDialogs().queueFileName("settings.txt");
    host().userDialogs().queueAnswer(true);
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_ReadSingleFile));
    EXPECT_EQ(questions(), std::vector<std::string>{extensionQuestion("settings.txt")});
    EXPECT_EQ(chooser_.getFileName(), "settings.txt");
}

TEST_F(FileNameChooserTest, ADotInAFolderNameCountsAsTheExtension) {
    const std::string typed = "/data/run.2/settings";
    host().userDialogs().queueFileName(typed);
    host().userDialogs().queueAnswer(false);  // No: everything after that dot is replaced
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_ReadSingleFile));
    EXPECT_EQ(questions(), std::vector<std::string>{extensionQuestion(typed)});
    EXPECT_EQ(chooser_.getFileName(), "/data/run.keyframe");
}

TEST_F(FileNameChooserTest, CancelingTheHostDialogLeavesTheNameUnchanged) {
    chooser_.setFileName("mine.keyframe");
    host().userDialogs().queueFileCancel();
    EXPECT_FALSE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(chooser_.getFileName(), "mine.keyframe");
    EXPECT_FALSE(chooser_.isChosen());
    EXPECT_TRUE(questions().empty());
}

TEST_F(FileNameChooserTest, AnEmptyNameFromTheHostIsTreatedAsAnyOtherName) {
    host().userDialogs().queueFileName("");
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_ReadSingleFile));
    EXPECT_EQ(chooser_.getFileName(), ".keyframe");
}

TEST_F(FileNameChooserTest, SetFileNameTakesTheNameAsItStands) {
    chooser_.setFileName("/some/where/file.other");
    EXPECT_EQ(chooser_.getFileName(), "/some/where/file.other");
    EXPECT_FALSE(chooser_.isChosen());
}

TEST_F(FileNameChooserTest, ANonAsciiNameIsFoundForTheOverwriteQuestion) {
    const std::string existing = existingFile("\xC3\xA9t\xC3\xA9.keyframe");  // "été"
    host().userDialogs().queueFileName(existing);
    host().userDialogs().queueAnswer(true);
    EXPECT_TRUE(chooser_.chooseFileName(VexSelectFile_WriteFile));
    EXPECT_EQ(questions(), std::vector<std::string>{overwriteQuestion(existing)});
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
