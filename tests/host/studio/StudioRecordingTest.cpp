// A session recorded in the studio replays to the same frames: what the person did with the mouse
// (the views, as $!VIEW lines) and in the add-on's dialog (what the add-on records) draws, when
// replayed by the host's macro player, the frame trace of the session.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "studio/StudioLoop.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/GuiUser.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"

namespace {

using vexhost::GuiUser;
using vexhost::studio::NetworkEvent;

class StudioRecordingTest : public vextest::AddOnFixture {
protected:
    std::string readFile(const std::string& name) const {
        std::ifstream in(scratch_.file(name));
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    void send(const std::string& message) { loop_->handleMessage(1, message); }
    void press(const std::string& label) {
        const auto& dialog = GuiUser(host()).findDialog("Key Frame Animation");
        send(R"({"type":"gui","action":"press","id":)" +
             std::to_string(GuiUser(host()).findControl(dialog, label).id) + "}");
    }
    void drag(int dx, int dy) {
        send(R"({"type":"drag","seq":1,"mode":"rotate","dx":)" + std::to_string(dx) +
             ",\"dy\":" + std::to_string(dy) + R"(,"active":true})");
        send(R"({"type":"drag","seq":2,"mode":"rotate","dx":0,"dy":0,"active":false})");
    }

    vextest::TemporaryDirectory scratch_{"studio-recording"};
    std::unique_ptr<vexhost::Studio::Loop> loop_;
};

TEST_F(StudioRecordingTest, TheRecordedMacroReplaysToTheSameFrames) {
    createFrame3D();
    host().trace().open(scratch_.file("session.jsonl"));
    vexhost::StudioOptions options;
    options.roots = {scratch_.path().string()};
    loop_ = std::make_unique<vexhost::Studio::Loop>(host(), options);

    send(R"({"type":"record","on":true})");
    drag(30, 10);
    send(R"({"type":"menu","id":"addon.0"})");
    press("Append");
    drag(-60, 0);
    send(R"({"type":"wheel","seq":3,"delta":2})");
    press("Append");
    drag(0, 45);
    press("Append");
    // Save As through the file chooser: the add-on records the file, so the replay has the list.
    loop_->deliver({NetworkEvent::Kind::Message, 1,
                    R"({"type":"answer","id":1,"file":{"root":0,"path":"session.keyframe"}})"});
    const auto& dialog = GuiUser(host()).findDialog("Key Frame Animation");
    send(R"({"type":"gui","action":"menuEntry","id":)" +
         std::to_string(
             GuiUser(host()).findMenuEntry(dialog, {"&File", "Save Animation File &As..."}).id) +
         "}");
    press("Animate All");
    send(R"({"type":"record","on":false})");
    loop_.reset();
    host().trace().close();
    const std::vector<std::string> lines = host().macro().lines();

    // A fresh host and add-on, the same frame, and the recorded lines played.
    AddOnFixture::TearDown();
    AddOnFixture::SetUp();
    createFrame3D();
    {
        std::ofstream macro(scratch_.file("session.mcr"));
        macro << "#!MC 1410\n";
        for (const std::string& line : lines)
            macro << line << '\n';
    }
    host().trace().open(scratch_.file("replay.jsonl"));
    vexhost::MacroFileRunner runner(host());
    ASSERT_TRUE(runner.runFile(scratch_.file("session.mcr"))) << readFile("session.mcr");
    host().trace().close();

    const std::string session = readFile("session.jsonl");
    // Three key frames, 30 frames from each to the next: the whole flight was drawn.
    std::size_t redraws = 0;
    for (std::size_t at = session.find("\"redraw\""); at != std::string::npos;
         at = session.find("\"redraw\"", at + 1))
        ++redraws;
    EXPECT_GE(redraws, 61u);
    EXPECT_EQ(session, readFile("replay.jsonl")) << readFile("session.mcr");
}

}  // namespace
