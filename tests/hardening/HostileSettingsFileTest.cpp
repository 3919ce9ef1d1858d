// Settings files a user should never have to meet, opened and saved as the user does (the add-on's
// macro commands, the dialog's File menu): each gets a clear error and changes nothing, or works.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "HardeningScene.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "ui/DialogMain.h"
#include "vexhost/Drawing.h"
#include "vexhost/Host.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using namespace vexplot::vexutiltools;

const std::string ErrorHeading = "Key Frame Animation error:\n";

class HostileSettingsFileTest : public AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        scene::transientScene();
        scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::OnScreen));
        keyFramesBefore = dialog().getKeyFrameModel().getItems();
        settingsBefore = dialog().getSettings();
    }

    static DialogMain& dialog() { return DialogMain::instance(); }

    std::string writeText(const std::string& name, const std::string& text) const {
        const std::string fileName = directory.file(name);
        std::ofstream(fileName, std::ios::binary) << text;
        return fileName;
    }

    // Opens the file by macro command; expects the failure's message and the dialog untouched.
    // (A message of megabytes is not printed whole when it differs.)
    void expectOpenRefused(const std::string& fileName, const std::string& message) {
        const auto result = scene::runCommand("OpenSettingsFile FileName=\"" + fileName + "\"");
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.error == ErrorHeading + message)
            << "the message of " << result.error.size() << " bytes starts "
            << result.error.substr(0, 300);
        EXPECT_EQ(keyFramesBefore, dialog().getKeyFrameModel().getItems());
        EXPECT_EQ(settingsBefore, dialog().getSettings());
    }

    std::vector<KeyFrame_s> keyFramesBefore;
    AnimationSettings_s settingsBefore;
    TemporaryDirectory directory;
};

TEST_F(HostileSettingsFileTest, AFileOfAHundredThousandKeyFramesOpensWhole) {
    std::vector<KeyFrame_s> many;
    many.reserve(100000);
    for (int i = 0; i < 100000; ++i) {
        KeyFrame_s keyFrame = scene::smallFlight()[static_cast<std::size_t>(i % 3)];
        keyFrame.name = "View " + std::to_string(i + 1);
        keyFrame.frameCount = 1 + static_cast<uint64_t>(i % 7);
        many.push_back(keyFrame);
    }
    const std::string fileName = directory.file("many.keyframe");
    scene::writeSettingsFile(fileName, many, AnimationSettings_s());

    const auto result = scene::runCommand("OpenSettingsFile FileName=" + fileName);
    ASSERT_TRUE(result.ok) << result.error;
    const std::vector<KeyFrame_s>& read = dialog().getKeyFrameModel().getItems();
    ASSERT_EQ(100000u, read.size());
    EXPECT_EQ("View 1", read.front().name);
    EXPECT_EQ("View 100000", read.back().name);
    EXPECT_EQ(many[99999].frameCount, read.back().frameCount);
}

TEST_F(HostileSettingsFileTest, ALineOfMegabytesIsRefusedWithItsLineNumber) {
    const std::string digits(4 * 1024 * 1024, '7');
    expectOpenRefused(
        writeText("long.keyframe", "#!KeyFrame 1\n%KeyFrameView\n Name \"A\"\n Position 1 2 " +
                                       digits + "9 4\n Angle 1 2 3\n%KeyFrameView\n"),
        "Error reading key frame settings file.\n\nError reading item from file.\nUnable to "
        "convert input to appropriate value: " +
            digits + "9\n\nError occurred on line number 4.");
}

TEST_F(HostileSettingsFileTest, BinaryGarbageIsRefusedAsNoSettingsFile) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string garbage;
    for (int i = 0; i < 64 * 1024; ++i)
        garbage += static_cast<char>(byte(random));
    garbage[0] = '\x7f';  // not a blank, so the first line is no header
    expectOpenRefused(writeText("garbage.keyframe", garbage), "Invalid file header.");
}

TEST_F(HostileSettingsFileTest, ADirectoryIsNoFileToOpenOrSaveTo) {
    expectOpenRefused(directory.path().string(), "Unable to open file for reading.");
    const auto saved =
        scene::runCommand("SaveSettingsFile FileName=\"" + directory.path().string() + "\"");
    EXPECT_FALSE(saved.ok);
    EXPECT_EQ(ErrorHeading + "Unable to open file for writing.", saved.error);
    EXPECT_TRUE(std::filesystem::is_directory(directory.path()));
}

TEST_F(HostileSettingsFileTest, ADirectoryChosenInTheFileMenuIsRefusedWithAMessage) {
    // Named like a settings file, so the dialog takes it as it is.
    const std::string folder = directory.file("folder.keyframe");
    std::filesystem::create_directory(folder);
    scene::openMainDialog();
    vexhost::Host::instance().userDialogs().queueFileName(folder);
    scene::chooseMenu({"&File", "&Open Animation File..."});
    const std::vector<std::string>& errors =
        vexhost::Host::instance().userDialogs().errorMessages();
    ASSERT_FALSE(errors.empty());
    EXPECT_EQ("Unable to open file for reading.", errors.back());
    EXPECT_EQ(keyFramesBefore, dialog().getKeyFrameModel().getItems());
    EXPECT_EQ(settingsBefore, dialog().getSettings());
}

TEST_F(HostileSettingsFileTest, SavingOverADirectoryFromTheFileMenuIsRefusedWithAMessage) {
    const std::string folder = directory.file("folder.keyframe");
    std::filesystem::create_directory(folder);
    scene::openMainDialog();
    vexhost::Host& host = vexhost::Host::instance();
    host.userDialogs().queueFileName(folder);
    host.userDialogs().queueAnswer(true);  // "The file: ... exists." Overwrite it: yes.
    scene::chooseMenu({"&File", "Save Animation File &As..."});
    ASSERT_FALSE(host.userDialogs().errorMessages().empty());
    EXPECT_EQ("Unable to open file for writing.", host.userDialogs().errorMessages().back());
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    EXPECT_EQ(keyFramesBefore, dialog().getKeyFrameModel().getItems());
}

TEST_F(HostileSettingsFileTest, NamesThatAreNotUtf8SaveAndOpenAlike) {
    // Latin-1 bytes: the host turns each invalid sequence into U+FFFD, the same way for saving and
    // for opening, so the file is found again under the name it was saved with.
    const std::string fileName = directory.file("caf\xE9 \xFF\xFE.keyframe");
    ASSERT_TRUE(scene::runCommand("SaveSettingsFile FileName=\"" + fileName + "\"").ok);
    dialog().getKeyFrameModel().setItems({});
    const auto opened = scene::runCommand("OpenSettingsFile FileName=\"" + fileName + "\"");
    ASSERT_TRUE(opened.ok) << opened.error;
    EXPECT_EQ(keyFramesBefore.size(), dialog().getKeyFrameModel().getItemCount());
}

TEST_F(HostileSettingsFileTest, NamesOutsideAsciiSaveAndOpenUnderThatName) {
    const std::string name = "\xE8\xA6\x96\xE7\x82\xB9 \xF0\x9F\x8E\xA5 \xC3\xBC.keyframe";
    const std::string fileName = directory.file(name);
    ASSERT_TRUE(scene::runCommand("SaveSettingsFile FileName=\"" + fileName + "\"").ok);
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::u8path(fileName)));
    dialog().getKeyFrameModel().setItems({});
    ASSERT_TRUE(scene::runCommand("OpenSettingsFile FileName=\"" + fileName + "\"").ok);
    EXPECT_EQ(keyFramesBefore.size(), dialog().getKeyFrameModel().getItemCount());
}

TEST_F(HostileSettingsFileTest, AKeyFrameWithoutAFrameCountAnimatesAsOneFrame) {
    // A section may leave its FrameCount out; the key frame then has the smallest frame count
    // there is, so the list animates, and saves to a file that opens again.
    const std::string fileName = writeText(
        "uncounted.keyframe",
        "#!KeyFrame 1\n%KeyFrameView\n Name \"A\"\n Position 8.66 -15 10\n Angle 60 30 0\n"
        " Width 10\n%KeyFrameView\n%KeyFrameView\n Name \"B\"\n Position 15 8.66 10\n"
        " Angle 60 120 0\n Width 10\n%KeyFrameView\n");
    ASSERT_TRUE(scene::runCommand("OpenSettingsFile FileName=" + fileName).ok);
    EXPECT_EQ(1u, dialog().getKeyFrameModel().getFrameCount(0));
    dialog().getSettings() = AnimationSettings_s();
    const auto animated = scene::runCommand("Animate AnimationDestination=OnScreen");
    ASSERT_TRUE(animated.ok) << animated.error;
    EXPECT_EQ(2u, vexhost::Host::instance().drawing().drawnFrames());
    const std::string again = directory.file("again.keyframe");
    ASSERT_TRUE(scene::runCommand("SaveSettingsFile FileName=" + again).ok);
    EXPECT_TRUE(scene::runCommand("OpenSettingsFile FileName=" + again).ok);
}

TEST_F(HostileSettingsFileTest, FrameCountsBeyondAnyMemoryAreRefusedWhenAnimating) {
    // Each count on its own is a valid unsigned 64-bit number; the animation they ask for is not.
    // (The last needs more views than a vector can hold at all; one that merely needs more memory
    // than the machine has ends the same way, but the sanitizer build's allocator ends the process
    // on such an allocation instead of failing it, so no test asks for one.)
    for (const char* counts : {"18446744073709551615 1", "9223372036854775808 9223372036854775808",
                               "2000000000000000000 1"}) {
        std::istringstream words(counts);
        std::string first, second;
        words >> first >> second;
        const std::string fileName = writeText(
            "huge.keyframe",
            "#!KeyFrame 1\n%KeyFrameView\n Name \"A\"\n Position 8.66 -15 10\n Angle 60 30 0\n"
            " Width 10\n FrameCount " +
                first +
                "\n%KeyFrameView\n%KeyFrameView\n Name \"B\"\n"
                " Position 15 8.66 10\n Angle 60 120 0\n Width 10\n FrameCount " +
                second +
                "\n%KeyFrameView\n%KeyFrameView\n Name \"C\"\n Position 0 0 20\n Angle 0 0 0\n"
                " Width 8\n FrameCount 1\n%KeyFrameView\n");
        ASSERT_TRUE(scene::runCommand("OpenSettingsFile FileName=" + fileName).ok) << counts;
        const auto animated = scene::runCommand("Animate AnimationDestination=OnScreen");
        EXPECT_FALSE(animated.ok) << counts;
        EXPECT_EQ(0u, animated.error.find(ErrorHeading + "Unable to animate ")) << animated.error;
        EXPECT_NE(std::string::npos, animated.error.find("frames: there is not enough memory."))
            << animated.error;
        EXPECT_EQ(0u, vexhost::Host::instance().drawing().drawnFrames());
    }
}

}  // namespace
}  // namespace vextest
