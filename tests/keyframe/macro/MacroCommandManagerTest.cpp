#include "macro/MacroCommandManager.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "addon/HostString.h"
#include "addon/KeyFrameError.h"
#include "macro/AddOnMacroCommandManager.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using Manager = AddOnMacroCommandManager;
using Parameters = Manager::Parameters;

const Manager& manager() {
    return Manager::instance();
}

TEST(MacroCommandManagerTest, IsOneProcessWideManagerWithABlankSeparator) {
    EXPECT_EQ(&Manager::instance(), &Manager::instance());
    EXPECT_EQ(" ", manager().getSeparator());
}

// ---- Parsing ----

struct ParseCase {
    const char* what;
    std::string input;
    Command_e command;
    Parameters parameters;
};

TEST(MacroCommandManagerTest, ParsesCommandStrings) {
    const ParseCase cases[] = {
        {"destination",
         "Animate AnimationDestination=ToFile",
         Command_e::Animate,
         {{Parameter_e::AnimationDestination, "ToFile"}}},
        {"all in lower case",
         "animate animationdestination=tofile",
         Command_e::Animate,
         {{Parameter_e::AnimationDestination, "tofile"}}},
        {"quoted value with a blank",
         "SaveSettingsFile FileName=\"C:/My Files/a.keyframe\"",
         Command_e::SaveSettingsFile,
         {{Parameter_e::FileName, "C:/My Files/a.keyframe"}}},
        {"quoted value without a blank",
         "OpenSettingsFile FileName=\"plain.keyframe\"",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "plain.keyframe"}}},
        {"bare value",
         "OpenSettingsFile FileName=/tmp/a.keyframe",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "/tmp/a.keyframe"}}},
        {"no parameters", "Animate", Command_e::Animate, {}},
        {"blanks around and between tokens",
         "   Animate    AnimationDestination=OnScreen   ",
         Command_e::Animate,
         {{Parameter_e::AnimationDestination, "OnScreen"}}},
        {"a tab stays part of the value",
         "Animate AnimationDestination=On\tScreen",
         Command_e::Animate,
         {{Parameter_e::AnimationDestination, "On\tScreen"}}},
        {"every quotation mark at both ends goes",
         "OpenSettingsFile FileName=\"\"x\"\"\"",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "x"}}},
        {"a quotation mark inside stays",
         "OpenSettingsFile FileName=a\"b",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "a\"b"}}},
        {"an empty value",
         "OpenSettingsFile FileName=",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, ""}}},
        {"only quotation marks",
         "OpenSettingsFile FileName=\"\"",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, ""}}},
        {"the value holds the first = only",
         "OpenSettingsFile FileName=a=b",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "a=b"}}},
        {"repeated parameters in order",
         "OpenSettingsFile FileName=x FILENAME=y",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "x"}, {Parameter_e::FileName, "y"}}},
        {"several parameters",
         "SaveSettingsFile FileName=\"a b\" AnimationDestination=ToFile",
         Command_e::SaveSettingsFile,
         {{Parameter_e::FileName, "a b"}, {Parameter_e::AnimationDestination, "ToFile"}}},
        {"text after the closing mark up to the next blank",
         "OpenSettingsFile FileName=\"a b\"c",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "a b\"c"}}},
    };
    for (const ParseCase& c : cases) {
        SCOPED_TRACE(c.what);
        const Manager::ParsedCommand parsed = manager().parseCommandString(c.input);
        EXPECT_EQ(c.command, parsed.first);
        EXPECT_EQ(c.parameters, parsed.second);
    }
}

struct ParseFailureCase {
    const char* what;
    std::string input;
    std::string message;
};

TEST(MacroCommandManagerTest, RejectsBadCommandStringsWithTheirMessages) {
    const ParseFailureCase cases[] = {
        {"empty", "", "Invalid macro command string."},
        {"blanks only", "     ", "Invalid macro command string."},
        {"a parameter without = anywhere after it", "OpenSettingsFile FileName",
         "Invalid macro command string format."},
        {"splitting fails before the command is looked up", "Fly word",
         "Invalid macro command string format."},
        {"a word without = before a parameter", "OpenSettingsFile word FileName=x",
         "Invalid macro parameter string: word"},
        {"unknown parameter", "OpenSettingsFile Speed=3", "Unknown macro parameter: Speed"},
        {"empty parameter name", "OpenSettingsFile =x", "Unknown macro parameter: "},
        {"a word swallowed by a later quoted value", "OpenSettingsFile word FileName=\"a b\"",
         "Unknown macro parameter: word FileName"},
        {"unknown command", "Fly FileName=x", "Unknown macro command: Fly"},
        {"unknown command alone", "Fly", "Unknown macro command: Fly"},
        {"a tab is no delimiter", "Animate\tAnimationDestination=OnScreen",
         "Unknown macro command: Animate\tAnimationDestination=OnScreen"},
        {"unmatched quotation mark", "OpenSettingsFile FileName=\"a b",
         "Invalid macro command string format. Unmatched quotation mark."},
        {"unmatched quotation mark at the end", "OpenSettingsFile FileName=\"",
         "Invalid macro command string format. Unmatched quotation mark."},
    };
    for (const ParseFailureCase& c : cases) {
        SCOPED_TRACE(c.what);
        try {
            manager().parseCommandString(c.input);
            ADD_FAILURE() << "parsed: " << c.input;
        } catch (const KeyFrameError& error) {
            EXPECT_EQ(c.message, error.what());
        }
    }
}

// ---- Building ----

struct BuildCase {
    const char* what;
    Command_e command;
    Parameters parameters;
    std::string expected;
};

TEST(MacroCommandManagerTest, BuildsCommandStringsQuotingOnlyValuesWithBlanks) {
    const BuildCase cases[] = {
        {"destination",
         Command_e::Animate,
         {{Parameter_e::AnimationDestination, "ToFile"}},
         "Animate AnimationDestination=ToFile"},
        {"path with a blank",
         Command_e::SaveSettingsFile,
         {{Parameter_e::FileName, "C:/My Files/a.keyframe"}},
         "SaveSettingsFile FileName=\"C:/My Files/a.keyframe\""},
        {"path without a blank",
         Command_e::SaveSettingsFile,
         {{Parameter_e::FileName, "/tmp/a.keyframe"}},
         "SaveSettingsFile FileName=/tmp/a.keyframe"},
        {"no parameters", Command_e::Animate, {}, "Animate"},
        {"a quotation mark is not escaped",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "a\"b"}},
         "OpenSettingsFile FileName=a\"b"},
        {"a tab is not quoted",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, "a\tb"}},
         "OpenSettingsFile FileName=a\tb"},
        {"empty value",
         Command_e::OpenSettingsFile,
         {{Parameter_e::FileName, ""}},
         "OpenSettingsFile FileName="},
        {"parameters in the given order",
         Command_e::OpenSettingsFile,
         {{Parameter_e::AnimationDestination, "OnScreen"}, {Parameter_e::FileName, "x y"}},
         "OpenSettingsFile AnimationDestination=OnScreen FileName=\"x y\""},
    };
    for (const BuildCase& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.expected, manager().buildCommandString(c.command, c.parameters));
    }
}

TEST(MacroCommandManagerTest, BuildingUnnamedValuesIsOutOfRange) {
    EXPECT_THROW(manager().buildCommandString(static_cast<Command_e>(7), {}), std::out_of_range);
    EXPECT_THROW(
        manager().buildCommandString(Command_e::Animate, {{static_cast<Parameter_e>(5), "x"}}),
        std::out_of_range);
}

TEST(MacroCommandManagerTest, AQuotedPathWithABlankRebuildsQuoted) {
    const std::string text = "OpenSettingsFile FileName=\"/home/me/my film.keyframe\"";
    const Manager::ParsedCommand parsed = manager().parseCommandString(text);
    EXPECT_EQ("/home/me/my film.keyframe", parsed.second.at(0).second);
    EXPECT_EQ(text, manager().buildCommandString(parsed.first, parsed.second));
}

TEST(MacroCommandManagerTest, AQuotedValueWithoutABlankRebuildsBare) {
    const Manager::ParsedCommand parsed =
        manager().parseCommandString("OpenSettingsFile FileName=\"film.keyframe\"");
    EXPECT_EQ("film.keyframe", parsed.second.at(0).second);
    EXPECT_EQ("OpenSettingsFile FileName=film.keyframe",
              manager().buildCommandString(parsed.first, parsed.second));
}

// ---- Recording ----

class MacroCommandRecordingTest : public vextest::AddOnFixture {};

TEST_F(MacroCommandRecordingTest, RecordsNothingWhileTheRecorderIsOff) {
    startCallLog();
    manager().recordCommand(Command_e::Animate, {{Parameter_e::AnimationDestination, "OnScreen"}});
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_EQ((std::vector<std::string>{vextest::addOnLockStart(),
                                        vextest::callLine("VexUtilMacroIsRecordingActive"),
                                        vextest::addOnLockFinish()}),
              takeCallLog());
}

TEST_F(MacroCommandRecordingTest, RecordsTheCommandStringUnderTheAddOnNameWhileRecording) {
    host().macro().setRecording(true);
    startCallLog();
    manager().recordCommand(Command_e::SaveSettingsFile,
                            {{Parameter_e::FileName, "/tmp/my film.keyframe"}});
    EXPECT_EQ(std::vector<std::string>{"$!ADDON \"Key Frame Animation\" SaveSettingsFile "
                                       "FileName=\"/tmp/my film.keyframe\""},
              host().macro().lines());
    EXPECT_EQ((std::vector<std::string>{
                  vextest::addOnLockStart(), vextest::callLine("VexUtilMacroIsRecordingActive"),
                  "VexUtilMacroRecordExtCommand(\"Key Frame Animation\", \"SaveSettingsFile "
                  "FileName=\\\"/tmp/my film.keyframe\\\"\")",
                  vextest::addOnLockFinish()}),
              takeCallLog());
}

TEST_F(MacroCommandRecordingTest, AnUnnamedValueFailsOnlyWhileRecordingAndReleasesTheLock) {
    EXPECT_NO_THROW(manager().recordCommand(static_cast<Command_e>(9), {}));
    host().macro().setRecording(true);
    EXPECT_THROW(manager().recordCommand(static_cast<Command_e>(9), {}), std::out_of_range);
    EXPECT_TRUE(host().macro().lines().empty());
}

// ---- The add-on's callback ----

class AddOnMacroCallbackTest : public vextest::AddOnFixture {
protected:
    std::string failureOf(const std::string& command) {
        const vexhost::AddOnRegistry::CommandResult result =
            host().addOns().runMacroCommand("Key Frame Animation", command);
        EXPECT_FALSE(result.ok) << command;
        return result.error;
    }
};

TEST_F(AddOnMacroCallbackTest, ParserFailuresComeBackUnderTheAddOnName) {
    EXPECT_EQ("Key Frame Animation error:\nInvalid macro command string.", failureOf("  "));
    EXPECT_EQ("Key Frame Animation error:\nUnknown macro command: Fly", failureOf("Fly"));
    EXPECT_EQ("Key Frame Animation error:\nInvalid macro command string format.",
              failureOf("OpenSettingsFile FileName"));
    EXPECT_EQ(
        "Key Frame Animation error:\nInvalid macro command string format. Unmatched quotation "
        "mark.",
        failureOf("OpenSettingsFile FileName=\"a b"));
    EXPECT_EQ("Key Frame Animation error:\nInvalid macro parameter string: word",
              failureOf("OpenSettingsFile word FileName=x"));
    EXPECT_EQ("Key Frame Animation error:\nUnknown macro parameter: Speed",
              failureOf("Animate Speed=3"));
}

TEST_F(AddOnMacroCallbackTest, ANullCommandStringIsAnEmptyOne) {
    HostString errorText;
    EXPECT_FALSE(Manager::macroCommandCallback(nullptr, errorText.receive()));
    EXPECT_EQ("Key Frame Animation error:\nInvalid macro command string.", errorText.str());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
