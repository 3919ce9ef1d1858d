// Opening and saving settings files, by macro command and from the main dialog's File menu, while
// the host records a macro, run once for every place where the host can fail them.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "FaultInjectionFixture.h"
#include "HardeningScene.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using namespace vexplot::vexutiltools;

// One key frame (so Animate All is insensitive once the file is read) and settings unlike the
// dialog's.
std::vector<KeyFrame_s> fileFlight() {
    std::vector<KeyFrame_s> keyFrames = scene::smallFlight();
    keyFrames.resize(1);
    keyFrames[0].name = "From the file";
    keyFrames[0].frameCount = 9;
    return keyFrames;
}

AnimationSettings_s fileSettings() {
    return animationSettings(option::AnimateTime | option::FadeOut,
                             TimeAnimationOperation_e::Bounce, 3);
}

// The list and settings a read of the file gives.
struct FileContent {
    std::vector<KeyFrame_s> keyFrames;
    AnimationSettings_s settings;
};

FileContent readBack(const std::string& fileName, const AnimationSettings_s& startingSettings) {
    FileContent content{{}, startingSettings};
    ListModelKeyFrame model;
    KeyFrameFile().read(fileName, content.settings, model);
    content.keyFrames = model.getItems();
    return content;
}

// Whether the failed site was a host string: in these scenarios only the name a file dialog hands
// out, which then answers as if cancelled.
bool nameNotHandedOut(const FaultOutcome& outcome) {
    return outcome.fault &&
           outcome.fault->fault == vexhost::FaultPlan::Fault::StringAllocationFails;
}

class FaultInjectionSettingsFileTest : public FaultInjectionFixture {
protected:
    void SetUp() override {
        FaultInjectionFixture::SetUp();
        inputFile = directory.file("input.keyframe");
        outputFile = directory.file("output.keyframe");
        scene::writeSettingsFile(inputFile, fileFlight(), fileSettings());
    }

    // The dialog before the action: a 3D frame, the dialog's list and settings, the macro recorder
    // on (opening and saving then also record).
    static void dialogState(bool withHostDialog) {
        scene::transientScene();
        if (withHostDialog)
            scene::openMainDialog();
        scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::OnScreen));
        vexhost::Host::instance().macro().setRecording(true);
    }

    // After an open: the file's list and settings when it worked; when it failed, the dialog's
    // as before, or the file's when the failure came from an observer told of the completed
    // change; never one without the other.
    std::function<std::string(const FaultOutcome&, const FaultOutcome&)> openedAllOrNothing() {
        const std::string file = inputFile;
        return [file](const FaultOutcome& outcome, const FaultOutcome&) -> std::string {
            const FileContent content = readBack(file, outcome.settingsBefore);
            const bool fileRead = outcome.keyFramesAfter == content.keyFrames &&
                                  outcome.settingsAfter == content.settings;
            const bool asBefore = outcome.keyFramesAfter == outcome.keyFramesBefore &&
                                  outcome.settingsAfter == outcome.settingsBefore;
            // A file dialog whose name the host cannot hand out answers as cancelled.
            if (nameNotHandedOut(outcome))
                return asBefore ? "" : "a cancelled file dialog changed the list or settings";
            if (!outcome.failed())
                return fileRead ? "" : "an open that worked did not read the file in";
            if (asBefore)
                return {};
            // An observer or listener that fails when told of the change fails after it happened.
            const bool failedWhenTold =
                outcome.fault &&
                (outcome.fault->fault == vexhost::FaultPlan::Fault::ListModelObserverThrows ||
                 outcome.fault->fault == vexhost::FaultPlan::Fault::StateChangeListenerThrows);
            if (fileRead && failedWhenTold)
                return {};
            return fileRead ? "a failed open read the file in"
                            : "a failed open left the list and settings half changed";
        };
    }

    // After a save: the dialog's state untouched; a save that worked wrote the dialog's list.
    std::function<std::string(const FaultOutcome&, const FaultOutcome&)> savedTheList() {
        const std::string file = outputFile;
        return [file](const FaultOutcome& outcome, const FaultOutcome&) -> std::string {
            if (outcome.settingsAfter != outcome.settingsBefore)
                return "saving changed the settings";
            if (outcome.keyFramesAfter.size() != outcome.keyFramesBefore.size())
                return "saving changed the list";
            if (outcome.failed())
                return {};
            if (nameNotHandedOut(outcome))
                return std::filesystem::exists(file) ? "a cancelled file dialog saved" : "";
            if (!std::filesystem::exists(file))
                return "a save that worked wrote no file";
            const FileContent content = readBack(file, outcome.settingsBefore);
            if (content.keyFrames.size() != outcome.keyFramesBefore.size() ||
                content.keyFrames.front().name != outcome.keyFramesBefore.front().name)
                return "the file does not hold the dialog's list";
            return {};
        };
    }

    TemporaryDirectory directory;
    std::string inputFile;
    std::string outputFile;
};

TEST_F(FaultInjectionSettingsFileTest, OpeningASettingsFileByMacroSurvivesEveryHostFault) {
    const std::string command = "OpenSettingsFile FileName=" + inputFile;
    expectSurvivesEveryFault({"OpenSettingsFile (macro)", [] { dialogState(true); },
                              [command](FaultOutcome& outcome) {
                                  const auto result = scene::runCommand(command);
                                  outcome.commandSucceeded = result.ok;
                                  outcome.commandError = result.error;
                              },
                              openedAllOrNothing()});
}

TEST_F(FaultInjectionSettingsFileTest, AFailingOpenByMacroSurvivesEveryHostFault) {
    // The file is missing: the command fails, and its message needs a host string.
    const std::string command = "OpenSettingsFile FileName=" + directory.file("missing.keyframe");
    expectSurvivesEveryFault(
        {"OpenSettingsFile of a missing file (macro)", [] { dialogState(true); },
         [command](FaultOutcome& outcome) {
             const auto result = scene::runCommand(command);
             outcome.commandSucceeded = result.ok;
             outcome.commandError = result.error;
         },
         [](const FaultOutcome& outcome, const FaultOutcome&) -> std::string {
             if (outcome.commandSucceeded.value_or(true))
                 return "opening a missing file worked";
             if (outcome.keyFramesAfter != outcome.keyFramesBefore ||
                 outcome.settingsAfter != outcome.settingsBefore)
                 return "a failed open changed the list or settings";
             const bool messageLost =
                 outcome.fault &&
                 outcome.fault->fault == vexhost::FaultPlan::Fault::StringAllocationFails;
             const std::string expected =
                 "Key Frame Animation error:\nUnable to open file for reading.";
             if (outcome.commandError != (messageLost ? std::string() : expected))
                 return "the command said \"" + outcome.commandError + "\"";
             return {};
         }});
}

TEST_F(FaultInjectionSettingsFileTest, SavingASettingsFileByMacroSurvivesEveryHostFault) {
    const std::string command = "SaveSettingsFile FileName=" + outputFile;
    const std::string output = outputFile;
    expectSurvivesEveryFault({"SaveSettingsFile (macro)",
                              [output] {
                                  std::filesystem::remove(output);
                                  dialogState(true);
                              },
                              [command](FaultOutcome& outcome) {
                                  const auto result = scene::runCommand(command);
                                  outcome.commandSucceeded = result.ok;
                                  outcome.commandError = result.error;
                              },
                              savedTheList()});
}

TEST_F(FaultInjectionSettingsFileTest, OpeningFromTheFileMenuSurvivesEveryHostFault) {
    const std::string input = inputFile;
    expectSurvivesEveryFault({"File > Open (dialog)",
                              [input] {
                                  dialogState(true);
                                  vexhost::Host::instance().userDialogs().queueFileName(input);
                              },
                              [](FaultOutcome&) {
                                  scene::chooseMenu({"&File", "&Open Animation File..."});
                              },
                              openedAllOrNothing()});
}

TEST_F(FaultInjectionSettingsFileTest, SavingFromTheFileMenuSurvivesEveryHostFault) {
    const std::string output = outputFile;
    expectSurvivesEveryFault({"File > Save As (dialog)",
                              [output] {
                                  std::filesystem::remove(output);
                                  dialogState(true);
                                  vexhost::Host::instance().userDialogs().queueFileName(output);
                              },
                              [](FaultOutcome&) {
                                  scene::chooseMenu({"&File", "Save Animation File &As..."});
                              },
                              savedTheList()});
}

}  // namespace
}  // namespace vextest
