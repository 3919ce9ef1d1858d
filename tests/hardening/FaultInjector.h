// vextest::FaultInjector: runs one scenario of the add-on (a macro command, a dialog action) once
// with the host's fault plan recording, then once more for every fault site of that run with the
// site failing, and checks after each run what the add-on must leave behind whatever failed.
//
// A run starts from nothing: the main dialog's state dropped, the host reset, the add-on loaded
// (InitVexAddOn113), a list model observer on the dialog's key frame list and a state change
// listener (the add-on's own StateChangeListener class) that throw when the plan picks them, then
// the scenario's set-up. The plan is armed for the scenario's action only; the action runs, the
// host's idle queue runs as after every user action, and a modal dialog still up is cancelled as
// a user would. Then, after every run:
//   - the add-on's lock is released, drawing is on, no percent-done status is open and every one
//     opened was finished; no export is recording; a run that failed finished no movie (a started
//     export was cancelled, so no partial movie is left);
//   - ("Interface", "UseDisplayLists"), the light source intensity and background light, the 3D
//     frame axis visibility and the streamtrace time anchor are as before the action. One
//     exception: when the failed site is the last write of that value in the run (the write that
//     restores it), the host refused it and the add-on cannot put the value back; that value alone
//     is not compared;
//   - the texts shown in error dialogs and the text the macro command returned are those the
//     add-on words for the fault (checkErrors), and a run whose fault needs no message shows none;
//   - the scenario's own check (lists, settings, files);
//   - no host errors, no host memory outstanding.
// Every run that breaks a rule adds one failure naming the scenario, the failed site and the rule.
#ifndef VEXTEST_HARDENING_FAULTINJECTOR_H
#define VEXTEST_HARDENING_FAULTINJECTOR_H

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "vexhost/FaultPlan.h"

namespace vextest {

// What one run of an action did, as the checks see it.
struct FaultOutcome {
    // The fault that was injected (nullopt in the recording run).
    std::optional<vexhost::FaultPlan::Site> fault;
    // Texts shown in error dialogs while the action ran.
    std::vector<std::string> errorDialogs;
    // The macro command's result, for actions that run one.
    std::optional<bool> commandSucceeded;
    std::string commandError;
    // A step of the action the user could not take (a GuiError), e.g. a dialog that did not open.
    std::string userCouldNot;
    // The dialog's list and settings before and after the action.
    std::vector<vexplot::vexutiltools::KeyFrame_s> keyFramesBefore, keyFramesAfter;
    vexplot::vexutiltools::AnimationSettings_s settingsBefore, settingsAfter;
    // Frames drawn on screen and pictures exported by the action.
    uint64_t drawnFrames = 0;
    uint64_t exportedFrames = 0;
    uint64_t finishedExports = 0;

    // Whether the action reported a failure (a failed command or an error dialog).
    bool failed() const;
};

struct FaultScenario {
    std::string name;
    // Builds the host state the action needs, after the add-on is loaded. Not under fault.
    std::function<void()> setUp;
    // The action; fills what it knows (commandSucceeded and commandError) into the outcome.
    std::function<void(FaultOutcome&)> act;
    // The scenario's own rules: a non-empty text is a broken rule. Runs for every run, the
    // recording one included (with the outcome's fault empty).
    using Check =
        std::function<std::string(const FaultOutcome& outcome, const FaultOutcome& recorded)>;
    Check check;
};

// Tallies of one scenario, for docs/hardening.md: the sites found and the runs made per fault.
struct FaultReport {
    std::size_t sites = 0;
    std::vector<std::pair<vexhost::FaultPlan::Fault, std::size_t>> perFault;
    std::vector<std::string> failures;
};

class FaultInjector {
public:
    // The texts the injected observer and listener throw.
    static constexpr const char* ObserverFailure = "A list observer failed.";
    static constexpr const char* ListenerFailure = "A state change listener failed.";

    FaultInjector();
    ~FaultInjector();
    FaultInjector(const FaultInjector&) = delete;
    FaultInjector& operator=(const FaultInjector&) = delete;

    // Records the scenario's sites, then runs it once per site with that site failing. Returns the
    // tallies and every broken rule.
    FaultReport run(const FaultScenario& scenario);

    // Leaves the host as a test's TearDown expects to find it: the dialog's state dropped, the
    // throwing listener gone.
    void tearDown();

private:
    class ThrowingObserver;
    class ThrowingListener;

    void prepare(const FaultScenario& scenario);
    FaultOutcome runOnce(const FaultScenario& scenario, uint64_t failSite);
    std::vector<std::string> brokenRules(const FaultScenario& scenario, const FaultOutcome& outcome,
                                         const FaultOutcome& recorded,
                                         const std::vector<vexhost::FaultPlan::Site>& sites,
                                         uint64_t failSite);

    std::unique_ptr<ThrowingObserver> observer_;
    std::unique_ptr<ThrowingListener> listener_;
};

}  // namespace vextest

#endif
