// Each action of the Key Frame Animation dialog and of its options dialogs, run once for every
// place where the host can fail it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FaultInjectionFixture.h"
#include "HardeningScene.h"
#include "vexhost/GuiUser.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"

namespace vextest {
namespace {

using vexhost::GuiUser;
using namespace vexplot::vexutiltools;

class FaultInjectionDialogTest : public FaultInjectionFixture {
protected:
    // The main dialog open on the small flight, with every concurrent option on, while the host
    // records a macro.
    static void openDialog() {
        scene::transientScene();
        scene::openMainDialog();
        scene::giveDialog(scene::smallFlight(), scene::everyStage(Destination_e::OnScreen));
        vexhost::Host::instance().macro().setRecording(true);
    }

    void expectActionSurvives(const std::string& name, std::function<void()> setUp,
                              std::function<void()> act, FaultScenario::Check check = nullptr) {
        expectSurvivesEveryFault({name,
                                  [setUp] {
                                      openDialog();
                                      if (setUp)
                                          setUp();
                                  },
                                  [act](FaultOutcome&) { act(); }, check});
    }
};

// A change of the list stands when an observer fails being told of it; any other failure leaves
// the list as it was.
FaultScenario::Check listChangedOrAsBefore(std::size_t expectedCount) {
    return [expectedCount](const FaultOutcome& outcome, const FaultOutcome&) -> std::string {
        const std::size_t count = outcome.keyFramesAfter.size();
        if (!outcome.failed())
            return count == expectedCount ? ""
                                          : "the list has " + std::to_string(count) + " key frames";
        if (count == expectedCount || outcome.keyFramesAfter == outcome.keyFramesBefore)
            return {};
        return "a failed action left " + std::to_string(count) + " key frames";
    };
}

TEST_F(FaultInjectionDialogTest, AppendSurvivesEveryHostFault) {
    expectActionSurvives(
        "Append", nullptr, [] { scene::press("Append"); }, listChangedOrAsBefore(4));
}

TEST_F(FaultInjectionDialogTest, InsertSurvivesEveryHostFault) {
    expectActionSurvives(
        "Insert", [] { scene::selectLines({2}); }, [] { scene::press("Insert"); },
        listChangedOrAsBefore(4));
}

TEST_F(FaultInjectionDialogTest, UpdateSurvivesEveryHostFault) {
    expectActionSurvives(
        "Update", [] { scene::selectLines({2}); }, [] { scene::press("Update"); },
        listChangedOrAsBefore(3));
}

TEST_F(FaultInjectionDialogTest, ApplySurvivesEveryHostFault) {
    expectActionSurvives(
        "Apply", [] { scene::selectLines({2}); }, [] { scene::press("Apply"); },
        listChangedOrAsBefore(3));
}

TEST_F(FaultInjectionDialogTest, DeleteSurvivesEveryHostFault) {
    expectActionSurvives(
        "Delete",
        [] {
            scene::selectLines({1, 3});
        },
        [] { scene::press("Delete"); }, listChangedOrAsBefore(1));
}

TEST_F(FaultInjectionDialogTest, ClearSurvivesEveryHostFault) {
    expectActionSurvives(
        "Clear", nullptr, [] { scene::press("Clear"); }, listChangedOrAsBefore(0));
}

TEST_F(FaultInjectionDialogTest, RenamingAKeyFrameSurvivesEveryHostFault) {
    expectActionSurvives(
        "View Name", [] { scene::selectLines({1}); }, [] { scene::type("View Name:", "Renamed"); },
        listChangedOrAsBefore(3));
}

TEST_F(FaultInjectionDialogTest, EnteringAFrameCountSurvivesEveryHostFault) {
    expectActionSurvives(
        "Frame Count",
        [] {
            scene::selectLines({1, 2});
        },
        [] { scene::type("Frame Count:", "7"); }, listChangedOrAsBefore(3));
}

TEST_F(FaultInjectionDialogTest, ChoosingADestinationSurvivesEveryHostFault) {
    expectActionSurvives("Destination", nullptr,
                         [] { scene::chooseOption("Destination:", "To File"); });
}

TEST_F(FaultInjectionDialogTest, TogglingAConcurrentOptionSurvivesEveryHostFault) {
    expectActionSurvives("Options > Fade In", nullptr, [] {
        scene::chooseMenu({"&Options", "Fade &In"});
    });
}

TEST_F(FaultInjectionDialogTest, TheTimeAnimationOptionsSurviveEveryHostFault) {
    expectActionSurvives("Time Animation Options, OK", nullptr, [] {
        scene::chooseMenu({"&Options", "Time &Animation Options..."});
        GuiUser user(vexhost::Host::instance());
        const vexhost::GuiDialog& options = user.findDialog("Time Animation Options");
        const auto bounce = user.findRadioButton(options, "Bounce");
        user.chooseRadioButton(bounce.first->id, bounce.second);
        scene::dialogButton("Time Animation Options", GuiUser::DialogButton::Ok);
    });
}

TEST_F(FaultInjectionDialogTest, CancellingTheExportOptionsSurvivesEveryHostFault) {
    expectActionSurvives(
        "Export Options, Cancel", [] { scene::chooseOption("Destination:", "To File"); },
        [] {
            scene::press("Animate All");
            scene::dialogButton("Export Options", GuiUser::DialogButton::Cancel);
        });
}

}  // namespace
}  // namespace vextest
