// Whole animations with every stage (views, fade in and out, streamtraces, time) to the screen and
// to a movie file, run once for every place where the host can fail them.
#include <gtest/gtest.h>

#include "FaultInjectionFixture.h"
#include "HardeningScene.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using vexplot::vexutiltools::Destination_e;

class FaultInjectionAnimationTest : public FaultInjectionFixture {};

// An animation that reports success has drawn or exported every frame. A file dialog whose name
// the host cannot hand out answers as cancelled: then nothing at all is animated.
std::string everyFrameShown(const FaultOutcome& outcome, const FaultOutcome& recorded) {
    if (outcome.failed())
        return {};
    if (outcome.fault && outcome.fault->fault == vexhost::FaultPlan::Fault::StringAllocationFails &&
        outcome.drawnFrames == 0 && outcome.exportedFrames == 0)
        return {};
    if (outcome.drawnFrames != recorded.drawnFrames)
        return "drew " + std::to_string(outcome.drawnFrames) + " frames, not " +
               std::to_string(recorded.drawnFrames);
    if (outcome.exportedFrames != recorded.exportedFrames ||
        outcome.finishedExports != recorded.finishedExports)
        return "exported " + std::to_string(outcome.exportedFrames) + " frames in " +
               std::to_string(outcome.finishedExports) + " movies, not " +
               std::to_string(recorded.exportedFrames) + " in " +
               std::to_string(recorded.finishedExports);
    return {};
}

FaultScenario macroAnimation(const std::string& name, Destination_e destination,
                             const std::string& command) {
    return {name,
            [destination] {
                scene::transientScene();
                scene::giveDialog(scene::smallFlight(), scene::everyStage(destination));
            },
            [command](FaultOutcome& outcome) {
                const auto result = scene::runCommand(command);
                outcome.commandSucceeded = result.ok;
                outcome.commandError = result.error;
            },
            everyFrameShown};
}

TEST_F(FaultInjectionAnimationTest, AnimatingOnScreenWithEveryStageSurvivesEveryHostFault) {
    expectSurvivesEveryFault(macroAnimation("Animate OnScreen (macro)", Destination_e::OnScreen,
                                            "Animate AnimationDestination=OnScreen"));
}

TEST_F(FaultInjectionAnimationTest, AnimatingToFileWithEveryStageSurvivesEveryHostFault) {
    expectSurvivesEveryFault(macroAnimation("Animate ToFile (macro)", Destination_e::ToFile,
                                            "Animate AnimationDestination=ToFile"));
}

TEST_F(FaultInjectionAnimationTest, AnAnimationThatCannotStartItsExportSurvivesEveryHostFault) {
    // A still image format: the run fails at its first frame, after the stages above the export
    // have set up the first view, lighting and time, and its message needs a host string.
    FaultScenario scenario = macroAnimation("Animate ToFile as PNG (macro)", Destination_e::ToFile,
                                            "Animate AnimationDestination=ToFile");
    const auto setUp = scenario.setUp;
    scenario.setUp = [setUp] {
        setUp();
        vexhost::Host::instance().style().setInt({"ExportSetup", "ExportFormat"},
                                                 VexExportFormat_PNG);
    };
    scenario.check = [](const FaultOutcome& outcome, const FaultOutcome&) -> std::string {
        if (outcome.commandSucceeded.value_or(true))
            return "the run worked";
        if (outcome.exportedFrames != 0)
            return "frames were exported";
        return {};
    };
    expectSurvivesEveryFault(scenario);
}

TEST_F(FaultInjectionAnimationTest, AnimateAllOnScreenFromTheDialogSurvivesEveryHostFault) {
    expectSurvivesEveryFault({"Animate All on screen (dialog)",
                              [] {
                                  scene::transientScene();
                                  scene::openMainDialog();
                                  scene::giveDialog(scene::smallFlight(),
                                                    scene::everyStage(Destination_e::OnScreen));
                              },
                              [](FaultOutcome&) { scene::press("Animate All"); }, everyFrameShown});
}

TEST_F(FaultInjectionAnimationTest, AnimateAllToFileFromTheDialogSurvivesEveryHostFault) {
    // No extension: the export options dialog gives it the one of the format it shows.
    static const std::string movie = "/tmp/vextest-fault-injection-movie";
    expectSurvivesEveryFault(
        {"Animate All to file (dialog)",
         [] {
             scene::transientScene();
             scene::openMainDialog();
             scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::ToFile));
             vexhost::Host::instance().userDialogs().queueFileName(movie);
             // The export options and the run are recorded too.
             vexhost::Host::instance().macro().setRecording(true);
         },
         [](FaultOutcome&) {
             scene::press("Animate All");
             scene::dialogButton("Export Options", vexhost::GuiUser::DialogButton::Ok);
         },
         everyFrameShown});
}

TEST_F(FaultInjectionAnimationTest, AnimateSelectedFromTheDialogSurvivesEveryHostFault) {
    expectSurvivesEveryFault(
        {"Animate Selected (dialog)",
         [] {
             scene::transientScene();
             scene::openMainDialog();
             scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::OnScreen));
             scene::selectLines({1, 2});
         },
         [](FaultOutcome&) { scene::press("Animate Selected"); }, everyFrameShown});
}

}  // namespace
}  // namespace vextest
