// The studio's user-interface side without a browser: messages as the network delivers them,
// acting on the host and the add-on as a person does, and hostile input that changes nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "host/studio/StudioLoopFixture.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/UserDialogs.h"

namespace {

using vexhost::GuiUser;
using vexhost::studio::NetworkEvent;

using StudioLoopTest = vextest::StudioLoopFixture;

TEST_F(StudioLoopTest, TheAnimateMenuItemOpensTheAddOnsDialog) {
    openMainDialog();
}

TEST_F(StudioLoopTest, ViewsAppendedBetweenDragsAreNamedInOrder) {
    openMainDialog();
    const int32_t append = controlId("Append");
    for (int i = 0; i < 3; ++i) {
        send(R"({"type":"drag","seq":1,"mode":"rotate","dx":40,"dy":5,"active":true})");
        send(R"({"type":"drag","seq":2,"mode":"rotate","dx":0,"dy":0,"active":false})");
        send(R"({"type":"gui","action":"press","id":)" + std::to_string(append) + "}");
    }
    EXPECT_EQ((std::vector<std::string>{"View 1", "View 2", "View 3"}), keyFrameNames());
}

TEST_F(StudioLoopTest, SaveAsThroughTheFileChooserWritesTheFileChosen) {
    openMainDialog();
    send(R"({"type":"gui","action":"press","id":)" + std::to_string(controlId("Append")) + "}");
    answerNext(R"("file":{"root":0,"path":"flight.keyframe"})");
    const int32_t saveAs =
        GuiUser(host()).findMenuEntry(mainDialog(), {"&File", "Save Animation File &As..."}).id;
    send(R"({"type":"gui","action":"menuEntry","id":)" + std::to_string(saveAs) + "}");
    std::ifstream file(scratch_.path() / "flight.keyframe");
    std::string first;
    std::getline(file, first);
    EXPECT_EQ("#!KeyFrame", first.substr(0, 10));
}

TEST_F(StudioLoopTest, TheFileMenuSavesTheRecordedMacroWhereThePersonChose) {
    send(R"({"type":"record","on":true})");
    send(R"({"type":"drag","seq":1,"mode":"zoom","dx":0,"dy":10,"active":false})");
    answerNext(R"("file":{"root":0,"path":"session.mcr"})");
    send(R"({"type":"menu","id":"file.saveMacro"})");
    std::ifstream file(scratch_.path() / "session.mcr");
    std::string line;
    std::vector<std::string> lines;
    while (std::getline(file, line))
        lines.push_back(line);
    EXPECT_EQ(host().macro().lines(), lines);
    EXPECT_EQ(2u, lines.size());
}

TEST_F(StudioLoopTest, SavingTheRecordedMacroOverAFileAsksFirst) {
    std::ofstream(scratch_.path() / "kept.mcr") << "#!MC 1410\n";
    send(R"({"type":"record","on":true})");
    answerNext(R"("file":{"root":0,"path":"kept.mcr"})");
    answerNext(R"("yes":false)");
    send(R"({"type":"menu","id":"file.saveMacro"})");
    std::ifstream kept(scratch_.path() / "kept.mcr");
    std::string first;
    std::getline(kept, first);
    EXPECT_EQ("#!MC 1410", first);
    ASSERT_EQ(1u, host().userDialogs().messageBoxes().size());
    EXPECT_EQ("\"kept.mcr\" exists. Replace it?", host().userDialogs().messageBoxes()[0].text);

    answerNext(R"("file":{"root":0,"path":"kept.mcr"})");
    answerNext(R"("yes":true)");
    send(R"({"type":"menu","id":"file.saveMacro"})");
    std::ifstream replaced(scratch_.path() / "kept.mcr");
    std::getline(replaced, first);
    EXPECT_EQ("$!VIEW ", first.substr(0, 7));
}

TEST_F(StudioLoopTest, TheFileMenuRunsAMacroFileAndShowsItsFailure) {
    std::vector<std::string> ran;
    vexhost::StudioOptions options = this->options();
    options.runMacroFile = [&ran](const std::string& path) {
        ran.push_back(path);
        throw std::runtime_error("setup.mcr:3: $!VIEW needs 7 numbers");
    };
    options.openDataFile = [&ran](const std::string& path) { ran.push_back("data " + path); };
    startLoop(options);
    std::ofstream(scratch_.path() / "setup.mcr") << "#!MC 1410\n";
    answerNext(R"("file":{"root":0,"path":"setup.mcr"})");
    answerNext("\"ok\":true");  // the message with the failure, dismissed
    send(R"({"type":"menu","id":"file.openMacro"})");
    answerNext(R"("file":{"root":0,"path":"hill.pvd"})");
    send(R"({"type":"menu","id":"file.openData"})");
    const std::string root = std::filesystem::canonical(scratch_.path()).string();
    EXPECT_EQ((std::vector<std::string>{root + "/setup.mcr", "data " + root + "/hill.pvd"}), ran);
    ASSERT_FALSE(host().userDialogs().errorMessages().empty());
    EXPECT_EQ("setup.mcr:3: $!VIEW needs 7 numbers", host().userDialogs().errorMessages().back());
}

TEST_F(StudioLoopTest, AQuestionGetsThePersonsAnswer) {
    answerNext(R"("yes":true)");
    EXPECT_TRUE(host().userDialogs().showMessageBox("Go on?", VexMessageBox_YesNo));
    answerNext(R"("yes":false)");
    EXPECT_FALSE(host().userDialogs().showMessageBox("Go on?", VexMessageBox_Question));
}

TEST_F(StudioLoopTest, WhenTheStudioEndsQuestionsAreAnsweredNoAndFileDialogsCanceled) {
    loop_->deliver({NetworkEvent::Kind::Quit, 0, {}});
    EXPECT_FALSE(host().userDialogs().showMessageBox("Overwrite?", VexMessageBox_YesNo));
    EXPECT_EQ(std::nullopt,
              host().userDialogs().askFileName(VexSelectFile_WriteFile, "Movie", "a.mp4", "*.mp4"));
}

TEST_F(StudioLoopTest, RecordingStartsWithTheViewShownAndRecordsEachFinishedDrag) {
    send(R"({"type":"record","on":true})");
    ASSERT_TRUE(host().macro().isRecording());
    send(R"({"type":"drag","seq":1,"mode":"rotate","dx":40,"dy":0,"active":true})");
    send(R"({"type":"drag","seq":2,"mode":"pan","dx":3,"dy":4,"active":true})");
    send(R"({"type":"drag","seq":3,"mode":"zoom","dx":0,"dy":20,"active":false})");
    send(R"({"type":"wheel","seq":4,"delta":1})");
    send(R"({"type":"record","on":false})");
    EXPECT_FALSE(host().macro().isRecording());
    const std::vector<std::string>& lines = host().macro().lines();
    ASSERT_EQ(3u, lines.size());
    for (const std::string& line : lines)
        EXPECT_EQ("$!VIEW ", line.substr(0, 7));
}

TEST_F(StudioLoopTest, HostileMessagesChangeNothing) {
    openMainDialog();
    const vexhost::View3D viewBefore = host().frames().active()->view();
    const double widthBefore = host().frames().active()->width();
    const std::vector<std::string> namesBefore = keyFrameNames();
    const std::string list = std::to_string(
        GuiUser(host()).findControlOfKind(mainDialog(), vexhost::GuiControl::Kind::List, 1).id);
    const std::string nested = std::string(100000, '[') + std::string(100000, ']');
    const std::vector<std::string> messages = {
        "",
        "garbage",
        "\xff\xfe{}",
        "[]",
        "{}",
        "null",
        R"({"type":1})",
        R"({"type":"nope"})",
        R"({"type":"gui"})",
        R"({"type":"gui","action":"press","id":"7"})",
        R"({"type":"gui","action":"press","id":99999})",
        R"({"type":"gui","action":"press","id":-1})",
        R"({"type":"gui","action":"explode","id":1})",
        R"({"type":"gui","action":"select","id":)" + list + R"(,"lines":[0]})",
        R"({"type":"gui","action":"select","id":)" + list + R"(,"lines":"all"})",
        R"({"type":"gui","action":"dialogButton","id":1,"button":"maybe"})",
        R"({"type":"drag","seq":1,"mode":"spin","dx":1,"dy":1,"active":true})",
        R"({"type":"drag","seq":1,"mode":"rotate","dx":1e308,"dy":1,"active":true})",
        R"({"type":"drag","seq":-4,"mode":"rotate","dx":1,"dy":1,"active":true})",
        R"({"type":"drag","seq":1,"mode":"rotate","dx":"1","dy":1,"active":true})",
        R"({"type":"wheel","seq":1,"delta":1e9})",
        R"({"type":"viewport","width":1e20,"height":5})",
        R"({"type":"frameSize","width":-1,"height":600})",
        R"({"type":"frameSize","width":99999999999999999999999,"height":600})",
        R"({"type":"answer","id":1,"yes":true})",
        R"({"type":"list","root":7,"path":""})",
        R"({"type":"list","root":0,"path":"../.."})",
        R"({"type":"list","root":0,"path":"/etc"})",
        R"({"type":"menu","id":"file.nothing"})",
        R"({"type":"record","on":"yes"})",
        nested,
    };
    for (const std::string& message : messages)
        send(message);
    EXPECT_EQ(viewBefore, host().frames().active()->view());
    EXPECT_EQ(widthBefore, host().frames().active()->width());
    EXPECT_EQ(namesBefore, keyFrameNames());
    EXPECT_TRUE(mainDialog().up);
    EXPECT_FALSE(host().macro().isRecording());
    EXPECT_FALSE(host().guiModel().isModalDialogUp());
}

}  // namespace
