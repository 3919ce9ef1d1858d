#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/HostFixture.h"
#include "support/SdkPrinters.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace {

using vexhost::UserDialogs;

class UserDialogsTest : public vextest::HostFixture {};

TEST_F(UserDialogsTest, ErrorDialogIsRecordedAndShownThroughTheSink) {
    std::vector<std::pair<UserDialogs::Kind, std::string>> shown;
    host().userDialogs().setSink(
        [&](UserDialogs::Kind kind, const std::string& text) { shown.emplace_back(kind, text); });
    VexUtilDialogErrMsg("Keyframe animation is only allowed with 3D plots.");
    EXPECT_TRUE(VexUtilDialogMessageBox("Saved.\n", VexMessageBox_Information));
    EXPECT_EQ(host().userDialogs().errorMessages(),
              std::vector<std::string>{"Keyframe animation is only allowed with 3D plots."});
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].first, UserDialogs::Kind::ErrorDialog);
    EXPECT_EQ(shown[1].first, UserDialogs::Kind::InformationBox);
    EXPECT_EQ(shown[1].second, "Saved.\n");
}

TEST_F(UserDialogsTest, YesNoQuestionsTakeTheQueuedAnswersInOrder) {
    host().userDialogs().queueAnswer(true);
    host().userDialogs().queueAnswer(false);
    EXPECT_TRUE(VexUtilDialogMessageBox("Overwrite?", VexMessageBox_YesNo));
    EXPECT_FALSE(VexUtilDialogMessageBox("Really?", VexMessageBox_Question));
    EXPECT_EQ(host().userDialogs().pendingAnswers(), 0u);
    ASSERT_EQ(host().userDialogs().messageBoxes().size(), 2u);
    EXPECT_EQ(host().userDialogs().messageBoxes()[0].type, VexMessageBox_YesNo);
    EXPECT_TRUE(host().userDialogs().messageBoxes()[0].answer);
    EXPECT_FALSE(host().userDialogs().messageBoxes()[1].answer);
}

TEST_F(UserDialogsTest, WarningsAndErrorBoxesTakeNoAnswer) {
    host().userDialogs().queueAnswer(false);
    EXPECT_TRUE(VexUtilDialogMessageBox("Careful.", VexMessageBox_Warning));
    EXPECT_TRUE(VexUtilDialogMessageBox("Broken.", VexMessageBox_Error));
    EXPECT_EQ(host().userDialogs().pendingAnswers(), 1u);
}

TEST_F(UserDialogsTest, QuestionWithoutAQueuedAnswerIsAHostErrorNamingIt) {
    EXPECT_FALSE(VexUtilDialogMessageBox("The file: a.keyframe exists.\nAre you sure?",
                                         VexMessageBox_YesNo));
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilDialogMessageBox: no answer was queued for the "
                                       "question \"The file: a.keyframe exists.\\nAre you "
                                       "sure?\"; answered No"});
}

TEST_F(UserDialogsTest, FileDialogTakesTheQueuedNamesAndRecordsItsArguments) {
    host().userDialogs().queueFileName("/tmp/anim ü.keyframe");
    host().userDialogs().queueFileCancel();
    char* name = nullptr;
    ASSERT_TRUE(VexUtilDialogGetFileName(VexSelectFile_WriteFile, &name, "Key Frame Animation",
                                         "animation.keyframe", "*.keyframe"));
    EXPECT_STREQ(name, "/tmp/anim ü.keyframe");
    VexUtilStringDealloc(&name);
    EXPECT_FALSE(VexUtilDialogGetFileName(VexSelectFile_ReadSingleFile, &name, "A", "b", "*.c"));
    EXPECT_EQ(name, nullptr);
    EXPECT_FALSE(VexUtilDialogGetFileName(VexSelectFile_ReadSingleFile, &name, "A", "b", "*.c"))
        << "an empty queue is Cancel";
    const std::vector<UserDialogs::FileDialog>& dialogs = host().userDialogs().fileDialogs();
    ASSERT_EQ(dialogs.size(), 3u);
    EXPECT_EQ(dialogs[0].mode, VexSelectFile_WriteFile);
    EXPECT_EQ(dialogs[0].fileTypeName, "Key Frame Animation");
    EXPECT_EQ(dialogs[0].defaultFileName, "animation.keyframe");
    EXPECT_EQ(dialogs[0].filter, "*.keyframe");
    EXPECT_EQ(dialogs[0].answer, std::optional<std::string>("/tmp/anim ü.keyframe"));
    EXPECT_EQ(dialogs[1].answer, std::nullopt);
}

TEST_F(UserDialogsTest, HelpPagesAreRecorded) {
    EXPECT_TRUE(VexUtilHelp("addons.html#addons/working-with/keyframe"));
    EXPECT_EQ(host().userDialogs().helpPages(),
              std::vector<std::string>{"addons.html#addons/working-with/keyframe"});
}

// A person at the screen: what the responder is shown and what it answers.
class PersonAtTheScreen : public UserDialogs::Responder {
public:
    void acknowledge(UserDialogs::Kind kind, const std::string& text) override {
        seen.push_back(std::to_string(static_cast<int>(kind)) + " " + text);
    }
    bool answer(VexMessageBoxType_e, const std::string& text) override {
        seen.push_back("asked " + text);
        return true;
    }
    std::optional<std::string> chooseFile(const UserDialogs::FileDialog& request) override {
        seen.push_back("file " + request.defaultFileName);
        return std::string("chosen.keyframe");
    }
    std::vector<std::string> seen;
};

TEST_F(UserDialogsTest, AResponderIsShownEveryMessageAndAnswersWhatNothingQueuedAnswers) {
    PersonAtTheScreen person;
    UserDialogs& dialogs = host().userDialogs();
    dialogs.setResponder(&person);
    dialogs.queueAnswer(false);
    VexUtilDialogErrMsg("Bad.");
    EXPECT_TRUE(VexUtilDialogMessageBox("Note.", VexMessageBox_Warning));
    EXPECT_FALSE(VexUtilDialogMessageBox("Queued?", VexMessageBox_YesNo));  // the queue first
    EXPECT_TRUE(VexUtilDialogMessageBox("Person?", VexMessageBox_Question));
    char* name = nullptr;
    ASSERT_TRUE(VexUtilDialogGetFileName(VexSelectFile_WriteFile, &name, "Key Frame", "a.keyframe",
                                         "*.keyframe"));
    EXPECT_STREQ("chosen.keyframe", name);
    VexUtilStringDealloc(&name);
    EXPECT_EQ((std::vector<std::string>{"0 Bad.", "2 Note.", "asked Person?", "file a.keyframe"}),
              person.seen);
    ASSERT_EQ(1u, dialogs.fileDialogs().size());
    EXPECT_EQ(std::optional<std::string>("chosen.keyframe"), dialogs.fileDialogs()[0].answer);
    // Reset forgets the responder: questions are host errors again.
    host().reset();
    EXPECT_FALSE(VexUtilDialogMessageBox("Alone?", VexMessageBox_YesNo));
    EXPECT_EQ(1u, takeHostErrors().size());
    EXPECT_EQ(4u, person.seen.size());
}

}  // namespace
