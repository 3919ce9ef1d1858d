// Macro files with malformed lines, played by the host's macro player with vexplot's dialog lines
// ($!UI) and going on after failures (vexplot --keep-going): every bad line fails alone, naming
// its line and what was wrong in the add-on's or the player's words, and changes nothing.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "HardeningScene.h"
#include "support/AddOnFixture.h"
#include "support/TemporaryDirectory.h"
#include "ui/DialogMain.h"
#include "vexhost/Drawing.h"
#include "vexhost/GuiScript.h"
#include "vexhost/Host.h"
#include "vexhost/MacroFileRunner.h"

namespace vextest {
namespace {

using namespace vexplot::vexutiltools;

const std::string AddOnLine = "$!ADDON \"Key Frame Animation\" ";
const std::string AddOnError = "Key Frame Animation error:\n";

struct BadLine {
    const char* name;
    std::string line;
    // The start of the failure's message (messages that quote megabytes are not compared whole).
    std::string messageStart;
};

std::vector<BadLine> badLines(const std::string& directory) {
    const std::string megabytes(2 * 1024 * 1024, 'x');
    return {
        {"NoCommand", AddOnLine, AddOnError + "Invalid macro command string."},
        {"UnknownCommand", AddOnLine + "Fly AnimationDestination=OnScreen",
         AddOnError + "Unknown macro command: Fly"},
        {"UnknownParameter", AddOnLine + "Animate Speed=3",
         AddOnError + "Unknown macro parameter: Speed"},
        {"UnmatchedQuotationMark", AddOnLine + "OpenSettingsFile FileName=\"a b",
         AddOnError + "Invalid macro command string format. Unmatched quotation mark."},
        {"MissingDestination", AddOnLine + "Animate",
         AddOnError +
             "Invalid macro command: missing value for parameter \"AnimationDestination\""},
        {"UnknownDestination", AddOnLine + "Animate AnimationDestination=Printer",
         AddOnError +
             "Invalid macro command: invalid value for parameter \"AnimationDestination\""},
        {"DirectoryAsSettingsFile", AddOnLine + "OpenSettingsFile FileName=\"" + directory + "\"",
         AddOnError + "Unable to open file for reading."},
        {"MissingSettingsFile", AddOnLine + "OpenSettingsFile FileName=\"" + directory + "/none\"",
         AddOnError + "Unable to open file for reading."},
        {"SaveIntoAMissingFolder",
         AddOnLine + "SaveSettingsFile FileName=\"" + directory + "/no/such.keyframe\"",
         AddOnError + "Unable to open file for writing."},
        {"MegabytesOfCommand", AddOnLine + megabytes, AddOnError + "Unknown macro command: xxxx"},
        {"MegabytesOfFileName", AddOnLine + "OpenSettingsFile FileName=" + megabytes,
         AddOnError + "Unable to open file for reading."},
        {"AddOnNameUnclosed", "$!ADDON \"Key Frame Animation", "$!ADDON: the add-on name "},
        {"UnknownAddOn", "$!ADDON \"Key Frame\" Animate", ""},
        {"NulInTheLine", std::string("$!ADDON \"Key Frame Animation\" Animate\0x", 39),
         "The line holds a NUL character; macro files are text."},
        {"BinaryGarbage", "\x01\xff\xfe$!\x80\x81 \"\x7f", "Expected a command starting with"},
        {"DialogThatIsNotThere", "$!UI PRESS \"Key Frame Animation\" \"Append\"", ""},
        {"MenuItemMisspelt", "$!UI MENU \"Animate\" \"Key Frame Animations\"", ""},
    };
}

class HostileMacroFileTest : public AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        scene::transientScene();
        scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::OnScreen));
    }

    TemporaryDirectory directory;
};

TEST_F(HostileMacroFileTest, EveryMalformedLineFailsAloneWithItsMessageAndChangesNothing) {
    const std::vector<BadLine> rows = badLines(directory.path().string());
    std::string file;
    for (const BadLine& row : rows)
        file += row.line + "\n";
    // A good line at the end still runs.
    file += AddOnLine + "SaveSettingsFile FileName=\"" + directory.file("kept.keyframe") + "\"\n";

    vexhost::Host& host = vexhost::Host::instance();
    const std::vector<KeyFrame_s> keyFramesBefore =
        DialogMain::instance().getKeyFrameModel().getItems();
    const AnimationSettings_s settingsBefore = DialogMain::instance().getSettings();
    std::ostringstream dumps;
    vexhost::GuiUser user(host);
    vexhost::MacroFileRunner runner(host);
    vexhost::GuiScript::install(runner, user, host.guiModel(), dumps);
    runner.setKeepGoing(true);
    std::vector<vexhost::MacroFileRunner::Failure> failures;
    runner.setFailureSink([&failures](const vexhost::MacroFileRunner::Failure& failure) {
        failures.push_back(failure);
    });
    std::istringstream in(file);
    EXPECT_FALSE(runner.runStream(in, "hostile.mcr"));

    ASSERT_EQ(rows.size(), failures.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(rows[i].name);
        EXPECT_EQ(i + 1, failures[i].lineNumber);
        EXPECT_FALSE(failures[i].message.empty());
        EXPECT_EQ(0u, failures[i].message.find(rows[i].messageStart))
            << failures[i].message.substr(0, 300);
    }
    EXPECT_EQ(keyFramesBefore, DialogMain::instance().getKeyFrameModel().getItems());
    EXPECT_EQ(settingsBefore, DialogMain::instance().getSettings());
    EXPECT_TRUE(std::filesystem::exists(directory.file("kept.keyframe")));
    EXPECT_EQ(0u, host.drawing().drawnFrames());
}

}  // namespace
}  // namespace vextest
