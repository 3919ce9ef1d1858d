// The path check beside the key frame list: the list as the add-on saves it, checked by the built
// vexpath in a child process whenever it changed, its warnings published with their exact
// messages; and nothing of the session touched by it: the recorder records nothing, the add-on's
// Save still writes the person's file, and no scratch file stays behind.
#include <stdlib.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "host/studio/StudioLoopFixture.h"
#include "support/RecordingRenderer.h"
#include "vexhost/Drawing.h"
#include "vexhost/MacroRecorder.h"

namespace {

using vextest::RecordingRenderer;

std::string keyFrame(const char* name, double theta, int frameCount) {
    return std::string("%KeyFrameView\n Name \"") + name + "\"\n Position 0 -20 10\n Angle 60 " +
           std::to_string(theta) + " 0\n Width 10\n FrameCount " + std::to_string(frameCount) +
           "\n SolutionTime 0\n%KeyFrameView\n\n";
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t n = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++n;
    return n;
}

class StudioPathCheckTest : public vextest::StudioLoopFixture {
protected:
    void SetUp() override {
        StudioLoopFixture::SetUp();
        // The check's scratch files go where the test can see that none stays.
        const char* before = ::getenv("TMPDIR");
        tmpBefore_ = before != nullptr ? std::optional<std::string>(before) : std::nullopt;
        ::setenv("TMPDIR", temporary_.path().c_str(), 1);
        // vexpath, through a script that counts its runs.
        const std::string script = scratch_.file("vexpath.sh");
        std::ofstream(script) << "#!/bin/sh\necho run >> '" << temporary_.file("runs")
                              << "'\nexec '" << VEXPATH_PATH << "' \"$@\"\n";
        ::chmod(script.c_str(), 0755);
        startChecking(script);
        openMainDialog();
    }
    void TearDown() override {
        StudioLoopFixture::TearDown();
        if (tmpBefore_)
            ::setenv("TMPDIR", tmpBefore_->c_str(), 1);
        else
            ::unsetenv("TMPDIR");
    }

    void startChecking(const std::string& vexpath) {
        vexhost::StudioOptions options = this->options();
        options.vexpathProgram = vexpath;
        options.sceneArguments = [] { return std::vector<std::string>{"--data", "none"}; };
        startLoop(options);
    }
    // Opens a list through the dialog's File menu and the file chooser.
    void openList(const std::string& name, const std::string& keyFrames) {
        std::ofstream(scratch_.file(name)) << "#!KeyFrame 1\n\n" << keyFrames;
        answerNext(R"("file":{"root":0,"path":")" + name + "\"}");
        chooseFileMenu("&Open Animation File...");
    }
    // The next check, from its start to its end.
    Json nextCheck() {
        const auto checking = [&] {
            const Json check = stateOf("flight/check");
            return check.is_object() && check["checking"] == true;
        };
        EXPECT_TRUE(stepUntil(checking));
        EXPECT_TRUE(stepUntil([&] { return !checking(); }));
        return stateOf("flight/check");
    }
    std::size_t vexpathRuns() const { return count(readFile(temporary_.file("runs")), "run\n"); }
    std::vector<std::string> leftInTemporary() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(temporary_.path()))
            if (entry.path().filename() != "runs")
                names.push_back(entry.path().filename().string());
        return names;
    }

    vextest::TemporaryDirectory temporary_{"studio-check-tmp"};
    std::optional<std::string> tmpBefore_;
};

TEST_F(StudioPathCheckTest, AHalfTurnIsWarnedOfBesideTheListAndNothingIsRecorded) {
    send(R"({"type":"record","on":true})");
    openList("half.keyframe", keyFrame("A", 0, 40) + keyFrame("B", 179.5, 1));
    const std::vector<std::string> recorded = host().macro().lines();

    const Json check = nextCheck();
    EXPECT_EQ(mainDialog().id, check["dialogId"]);
    EXPECT_EQ(nullptr, check["error"]);
    EXPECT_EQ(2, check["keyFrames"]);
    EXPECT_EQ(41, check["frames"]);
    ASSERT_EQ(1u, check["legs"].size());
    EXPECT_EQ("A", check["legs"][0]["from"]);
    ASSERT_EQ(1u, check["warnings"].size());
    EXPECT_EQ("half-turn", check["warnings"][0]["kind"]);
    EXPECT_EQ(1, check["warnings"][0]["leg"]);
    EXPECT_EQ(
        "leg 1 (\"A\" -> \"B\"): theta turns +179.50 degrees, within 1 degree of a half turn: "
        "which way it turns depends on rounding",
        check["warnings"][0]["message"]);
    EXPECT_EQ(recorded, host().macro().lines()) << "the save for the check is not recorded";
    EXPECT_EQ(std::vector<std::string>{}, leftInTemporary());
}

TEST_F(StudioPathCheckTest, TheAddOnsSaveStillWritesThePersonsFile) {
    openList("start.keyframe", keyFrame("A", 0, 20) + keyFrame("B", 60, 1));
    answerNext(R"("file":{"root":0,"path":"mine.keyframe"})");
    chooseFileMenu("Save Animation File &As...");
    EXPECT_EQ(nullptr, nextCheck()["error"]);
    press("Append");
    EXPECT_EQ(3, nextCheck()["keyFrames"]);
    // Save writes where the person saved before, without asking: the list the check saved is
    // not where it goes.
    chooseFileMenu("&Save Animation File");
    EXPECT_EQ(3u, count(readFile(scratch_.path() / "mine.keyframe"), "%KeyFrameView") / 2)
        << readFile(scratch_.path() / "mine.keyframe");
    EXPECT_EQ(std::vector<std::string>{}, leftInTemporary());
}

TEST_F(StudioPathCheckTest, AListThatDidNotChangeIsNotCheckedAgain) {
    openList("list.keyframe", keyFrame("A", 0, 20) + keyFrame("B", 60, 1));
    nextCheck();
    EXPECT_EQ(1u, vexpathRuns());
    const std::string list =
        std::to_string(vexhost::GuiUser(host())
                           .findControlOfKind(mainDialog(), vexhost::GuiControl::Kind::List, 1)
                           .id);
    send(R"({"type":"gui","action":"select","id":)" + list + R"(,"lines":[2]})");
    nextCheck();
    EXPECT_EQ(1u, vexpathRuns()) << "a selection changes nothing of the flight";
    const int32_t frameCount =
        vexhost::GuiUser(host())
            .findControl(mainDialog(), "Frame Count:", {vexhost::GuiControl::Kind::TextField})
            .id;
    send(R"({"type":"gui","action":"select","id":)" + list + R"(,"lines":[1]})");
    send(R"({"type":"gui","action":"text","id":)" + std::to_string(frameCount) +
         R"(,"text":"30"})");
    EXPECT_EQ(31, nextCheck()["frames"]);
    EXPECT_EQ(2u, vexpathRuns());
}

TEST_F(StudioPathCheckTest, AListOfFewerThanTwoKeyFramesIsNotChecked) {
    openList("list.keyframe", keyFrame("A", 0, 20) + keyFrame("B", 60, 1));
    nextCheck();
    press("Clear");
    EXPECT_TRUE(stepUntil([&] { return stateOf("flight/check").is_null(); }))
        << "the warnings of the list that was go with it";
    press("Append");
    stepUntil([] { return false; }, std::chrono::seconds(1));
    EXPECT_TRUE(stateOf("flight/check").is_null());
    EXPECT_EQ(1u, vexpathRuns());
}

TEST_F(StudioPathCheckTest, ACheckThatFailsSaysWhy) {
    const std::string failing = scratch_.file("failing.sh");
    std::ofstream(failing) << "#!/bin/sh\nprintf 'vexpath: %s: Key Frame Animation error:\\n"
                              "The flight cannot be flown.\\n' \"$3\" >&2\nexit 2\n";
    ::chmod(failing.c_str(), 0755);
    startChecking(failing);
    openMainDialog();
    openList("list.keyframe", keyFrame("A", 0, 20) + keyFrame("B", 60, 1));
    const Json check = nextCheck();
    EXPECT_EQ("Key Frame Animation error:\nThe flight cannot be flown.", check["error"]);
    EXPECT_EQ(0u, check["warnings"].size());
}

TEST_F(StudioPathCheckTest, ThePathsKeyFramesAreTheChecksWhenItFitsTheRun) {
    std::vector<RecordingRenderer::Call> pictures;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&pictures));
    openList("list.keyframe", keyFrame("A", 0, 20) + keyFrame("B", 60, 1));
    nextCheck();
    press("Animate All");
    deliver(R"({"type":"path","show":true})");
    deliver(R"({"type":"viewport","width":400,"height":300})");
    ASSERT_TRUE(stepUntil([&] { return !pictures.empty(); }));
    const std::shared_ptr<const vexhost::CameraPath>& path = pictures.back().scene.cameraPath;
    ASSERT_NE(nullptr, path);
    ASSERT_EQ(2u, path->keyFrames.size());
    EXPECT_EQ(0u, path->keyFrames[0].frame);
    EXPECT_EQ("A", path->keyFrames[0].name);
    EXPECT_EQ(20u, path->keyFrames[1].frame);
    EXPECT_EQ("B", path->keyFrames[1].name);
}

}  // namespace
