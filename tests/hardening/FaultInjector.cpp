#include "FaultInjector.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "addon/InitVexAddOn113.h"
#include "addon/ResetAddOnState.h"
#include "addon/StateChangeListener.h"
#include "model/ListModelObserverInterface.h"
#include "ui/DialogMain.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiModel.h"
#include "vexhost/GuiUser.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"

namespace vextest {

using vexhost::FaultPlan;
using vexhost::Host;
using Fault = FaultPlan::Fault;

namespace {

const std::string MacroErrorHeading = "Key Frame Animation error:\n";
const char* const Canceled = "Animation canceled.";
const char* const StartRefused = "Unable to start animation export.";
const char* const NotAnAnimationFormat =
    "The export file format must be set to an animation format \nbefore animating to file.";

// The host values that a run changes and must put back.
struct Watched {
    const char* name;
    std::vector<std::string> path;
    bool isBool;
};

const std::vector<Watched>& watchedValues() {
    static const std::vector<Watched> values = {
        {"UseDisplayLists", {"Interface", "UseDisplayLists"}, true},
        {"Intensity", {"GlobalThreeD", "LightSource", "Intensity"}, false},
        {"BackgroundLight", {"GlobalThreeD", "LightSource", "BackgroundLight"}, false},
        {"Show", {"ThreeDAxis", "FrameAxis", "Show"}, true},
        {"TimeAnchor", {"StreamAttributes", "StreamTiming", "TimeAnchor"}, false},
    };
    return values;
}

std::vector<double> readWatched() {
    std::vector<double> values;
    for (const Watched& watched : watchedValues()) {
        values.push_back(watched.isBool ? (Host::instance().style().getBool(watched.path) ? 1 : 0)
                                        : Host::instance().style().getDouble(watched.path));
    }
    return values;
}

// Whether a site is a set of the watched value (its description names the leaf in quotes).
bool setsValue(const FaultPlan::Site& site, const Watched& watched) {
    return site.fault == Fault::StyleSetRefused &&
           site.description.find('"' + watched.path.back() + '"') != std::string::npos;
}

std::string describe(const FaultPlan::Site& site) {
    return std::string(toString(site.fault)) + " at " + site.description;
}

std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '\n')
            out += "\\n";
        else
            out += c;
    }
    return out + '"';
}

// The message a fault brings before the user: none, one the user may be told, or one the user
// must be told.
struct FaultMessage {
    const char* text;
    bool required;
};

FaultMessage messageOf(const FaultPlan::Site& site) {
    switch (site.fault) {
        case Fault::StopPressed:
            return {Canceled, true};
        case Fault::ExportStartRefused:
            return {StartRefused, true};
        case Fault::StyleGetRefused:
            // An export format that cannot be read is no animation format. Only the export stage
            // says so: the export options dialog reads it too, to show it.
            if (site.description.find("\"ExportFormat\"") != std::string::npos)
                return {NotAnAnimationFormat, false};
            return {nullptr, false};
        case Fault::ListModelObserverThrows:
            return {FaultInjector::ObserverFailure, true};
        case Fault::StateChangeListenerThrows:
            return {FaultInjector::ListenerFailure, true};
        case Fault::StyleSetRefused:
        case Fault::StringAllocationFails:
            return {nullptr, false};
    }
    return {nullptr, false};
}

}  // namespace

bool FaultOutcome::failed() const {
    return (commandSucceeded && !*commandSucceeded) || !errorDialogs.empty();
}

// Told of every change of the dialog's key frame list; throws when the plan picks it.
class FaultInjector::ThrowingObserver : public vexplot::vexutiltools::ListModelObserverInterface {
public:
    void listModelChanged(const vexplot::vexutiltools::ListModelChange& change) override {
        FaultPlan& plan = Host::instance().faults();
        if (!plan.isActive())
            return;
        std::ostringstream description;
        description << "listModelChanged(" << change << ")";
        if (plan.strike(Fault::ListModelObserverThrows, description.str()))
            throw std::runtime_error(ObserverFailure);
    }
};

// The add-on's own state change listener, with work that throws when the plan picks it.
class FaultInjector::ThrowingListener {
public:
    ThrowingListener() : listener_(&ThrowingListener::heard) { listener_.startListening(); }
    ~ThrowingListener() {
        if (listener_.isListening())
            listener_.stopListening();
    }

private:
    static void heard(const vexplot::toolbox::StateChangeEventInterface& event) {
        FaultPlan& plan = Host::instance().faults();
        if (plan.isActive() &&
            plan.strike(Fault::StateChangeListenerThrows,
                        "stateChanged(" + std::to_string(event.getStateChange()) + ")"))
            throw std::runtime_error(ListenerFailure);
    }

    vexplot::vexutiltools::StateChangeListener listener_;
};

FaultInjector::FaultInjector() = default;

FaultInjector::~FaultInjector() {
    tearDown();
}

void FaultInjector::tearDown() {
    // Gone while the host still knows them: their withdrawal is an SDK call.
    listener_.reset();
    vexplot::vexutiltools::resetAddOnState();
    observer_.reset();
    Host::instance().faults().reset();
}

void FaultInjector::prepare(const FaultScenario& scenario) {
    tearDown();
    Host& host = Host::instance();
    host.reset();
    InitVexAddOn113();
    observer_ = std::make_unique<ThrowingObserver>();
    DialogMain::instance().getKeyFrameModel().addObserver(observer_.get());
    listener_ = std::make_unique<ThrowingListener>();
    if (scenario.setUp)
        scenario.setUp();
    host.idleQueue().runUntilEmpty();
}

FaultOutcome FaultInjector::runOnce(const FaultScenario& scenario, uint64_t failSite) {
    prepare(scenario);
    Host& host = Host::instance();
    FaultOutcome outcome;
    DialogMain& dialog = DialogMain::instance();
    outcome.keyFramesBefore = dialog.getKeyFrameModel().getItems();
    outcome.settingsBefore = dialog.getSettings();
    const std::size_t errorsBefore = host.userDialogs().errorMessages().size();
    const uint64_t drawnBefore = host.drawing().drawnFrames();
    const vexhost::Exporter::Counts exportsBefore = host.exporter().counts();

    FaultPlan& plan = host.faults();
    if (failSite == 0)
        plan.record();
    else
        plan.failSite(failSite);
    try {
        scenario.act(outcome);
        host.idleQueue().runUntilEmpty();
    } catch (const vexhost::GuiError& error) {
        outcome.userCouldNot = error.what();
    }
    plan.stop();
    if (plan.struck())
        outcome.fault = plan.struckSite();

    // A modal dialog the action left up is cancelled, front one first, as the user would.
    vexhost::GuiUser user(host);
    std::vector<int32_t> modal = host.guiModel().modalDialogsUp();
    for (auto it = modal.rbegin(); it != modal.rend(); ++it) {
        try {
            user.pressDialogButton(*it, vexhost::GuiUser::DialogButton::Cancel);
        } catch (const vexhost::GuiError& error) {
            outcome.userCouldNot += std::string(" / cancelling: ") + error.what();
        }
    }
    host.idleQueue().runUntilEmpty();

    const std::vector<std::string>& errors = host.userDialogs().errorMessages();
    outcome.errorDialogs.assign(errors.begin() + static_cast<std::ptrdiff_t>(errorsBefore),
                                errors.end());
    outcome.keyFramesAfter = dialog.getKeyFrameModel().getItems();
    outcome.settingsAfter = dialog.getSettings();
    outcome.drawnFrames = host.drawing().drawnFrames() - drawnBefore;
    outcome.exportedFrames = host.exporter().counts().frames - exportsBefore.frames;
    outcome.finishedExports = host.exporter().counts().finishes - exportsBefore.finishes;
    return outcome;
}

FaultReport FaultInjector::run(const FaultScenario& scenario) {
    FaultReport report;
    Host& host = Host::instance();

    // The run as it goes without faults: its sites, and the values it must leave as it found.
    std::vector<double> before;
    const FaultScenario recordingScenario{scenario.name,
                                          [&] {
                                              if (scenario.setUp)
                                                  scenario.setUp();
                                              before = readWatched();
                                          },
                                          scenario.act, scenario.check};
    const FaultOutcome recorded = runOnce(recordingScenario, 0);
    const std::vector<FaultPlan::Site> sites = host.faults().sites();
    for (const std::string& rule : brokenRules(scenario, recorded, recorded, sites, 0))
        report.failures.push_back(scenario.name + ", without a fault: " + rule);
    if (before != readWatched())
        report.failures.push_back(scenario.name +
                                  ", without a fault: the watched values are not as before");
    report.sites = sites.size();

    for (uint64_t k = 1; k <= sites.size(); ++k) {
        const Fault fault = sites[k - 1].fault;
        auto tally = std::find_if(report.perFault.begin(), report.perFault.end(),
                                  [fault](const auto& entry) { return entry.first == fault; });
        if (tally == report.perFault.end())
            report.perFault.emplace_back(fault, 1);
        else
            ++tally->second;

        const FaultScenario replay{scenario.name,
                                   [&] {
                                       if (scenario.setUp)
                                           scenario.setUp();
                                       before = readWatched();
                                   },
                                   scenario.act, scenario.check};
        const FaultOutcome outcome = runOnce(replay, k);
        std::vector<std::string> rules = brokenRules(scenario, outcome, recorded, sites, k);

        // The watched values, but the one whose restoring write was refused.
        const std::vector<double> after = readWatched();
        for (std::size_t v = 0; v < watchedValues().size(); ++v) {
            const Watched& watched = watchedValues()[v];
            const bool restoreRefused =
                setsValue(sites[k - 1], watched) &&
                std::none_of(
                    sites.begin() + static_cast<std::ptrdiff_t>(k), sites.end(),
                    [&](const FaultPlan::Site& later) { return setsValue(later, watched); });
            if (!restoreRefused && !(after[v] == before[v]))
                rules.push_back(std::string(watched.name) + " is " + std::to_string(after[v]) +
                                ", was " + std::to_string(before[v]));
        }
        for (const std::string& rule : rules)
            report.failures.push_back(scenario.name + ", site " + std::to_string(k) + " (" +
                                      describe(sites[k - 1]) + "): " + rule);
    }
    tearDown();
    return report;
}

std::vector<std::string> FaultInjector::brokenRules(const FaultScenario& scenario,
                                                    const FaultOutcome& outcome,
                                                    const FaultOutcome& recorded,
                                                    const std::vector<FaultPlan::Site>& sites,
                                                    uint64_t failSite) {
    std::vector<std::string> rules;
    Host& host = Host::instance();

    if (failSite != 0) {
        if (!outcome.fault)
            rules.push_back("the planned fault never struck (the run is not repeatable)");
        else if (outcome.fault->fault != sites[failSite - 1].fault ||
                 outcome.fault->description != sites[failSite - 1].description)
            rules.push_back("a different site failed: " + describe(*outcome.fault));
    }
    if (!outcome.userCouldNot.empty())
        rules.push_back("the user could not go on: " + outcome.userCouldNot);

    // What the host is left with.
    for (const std::string& error : host.errors().take())
        rules.push_back("host error: " + error);
    if (host.lock().depth() != 0)
        rules.push_back("the lock is held (depth " + std::to_string(host.lock().depth()) + ")");
    if (host.drawing().isSuspended())
        rules.push_back("drawing is suspended");
    if (host.progress().isOpen())
        rules.push_back("the percent-done status " + quoted(host.progress().text()) + " is open");
    if (host.progress().startCount() != host.progress().finishCount())
        rules.push_back("percent-done statuses started " +
                        std::to_string(host.progress().startCount()) + ", finished " +
                        std::to_string(host.progress().finishCount()));
    if (host.exporter().isRecording())
        rules.push_back("an export is still recording");
    const vexhost::Exporter::Counts& counts = host.exporter().counts();
    if (counts.starts != counts.finishes + counts.cancels)
        rules.push_back("exports started " + std::to_string(counts.starts) + ", finished " +
                        std::to_string(counts.finishes) + ", cancelled " +
                        std::to_string(counts.cancels));
    if (outcome.finishedExports > 0 && outcome.exportedFrames != recorded.exportedFrames)
        rules.push_back("a partial movie was finished: " + std::to_string(outcome.exportedFrames) +
                        " of " + std::to_string(recorded.exportedFrames) + " frames");
    if (host.bookkeeping().outstandingTotal() != 0)
        rules.push_back(std::to_string(host.bookkeeping().outstandingTotal()) +
                        " host strings, arrays, sets or lists leaked");

    // What the user is told: the fault's own message, in the add-on's words, and nothing else
    // beyond what the run says without a fault.
    std::vector<std::string> allowed = recorded.errorDialogs;
    if (!recorded.commandError.empty())
        allowed.push_back(recorded.commandError);
    const FaultMessage message = outcome.fault ? messageOf(*outcome.fault) : FaultMessage{};
    std::vector<std::string> told = outcome.errorDialogs;
    if (outcome.commandSucceeded && !*outcome.commandSucceeded) {
        if (outcome.commandError.empty()) {
            // Only a host that cannot hand out the string for the message leaves it unsaid.
            if (!outcome.fault || outcome.fault->fault != Fault::StringAllocationFails)
                rules.push_back("the command failed without a message");
        } else if (outcome.commandError.compare(0, MacroErrorHeading.size(), MacroErrorHeading) !=
                   0) {
            rules.push_back("the command's message lacks the add-on's heading: " +
                            quoted(outcome.commandError));
        } else {
            told.push_back(outcome.commandError);
        }
    }
    bool messageTold = false;
    for (const std::string& text : told) {
        const std::string bare = text.compare(0, MacroErrorHeading.size(), MacroErrorHeading) == 0
                                     ? text.substr(MacroErrorHeading.size())
                                     : text;
        if (message.text != nullptr && bare == message.text) {
            messageTold = true;
            continue;
        }
        if (std::find(allowed.begin(), allowed.end(), text) == allowed.end())
            rules.push_back("the user was told " + quoted(text));
    }
    if (message.required && !messageTold)
        rules.push_back(std::string("the user was not told ") + quoted(message.text));

    // What the main dialog shows, once the host is idle again: the list control holds the key
    // frames of the list (or the line that says there are none), and the buttons that need key
    // frames are sensitive exactly when there are enough of them.
    const DialogMain& dialog = DialogMain::instance();
    if (dialog.isCreated()) {
        DialogMain& mutableDialog = const_cast<DialogMain&>(dialog);
        const vexhost::GuiControl* list =
            host.guiModel().control(mutableDialog.getControls().keyFrameList);
        const auto& keyFrames = outcome.keyFramesAfter;
        std::vector<std::string> lines;
        for (const auto& keyFrame : keyFrames)
            lines.push_back(keyFrame.name);
        if (keyFrames.empty())
            lines.push_back(mutableDialog.getKeyFrameModel().getEmptyListText());
        if (list == nullptr || list->items != lines)
            rules.push_back("the list control does not show the list");
        const vexhost::GuiControl* clear =
            host.guiModel().control(mutableDialog.getControls().clear);
        const vexhost::GuiControl* animateAll =
            host.guiModel().control(mutableDialog.getControls().animateAll);
        if (clear == nullptr || clear->sensitive != !keyFrames.empty() || animateAll == nullptr ||
            animateAll->sensitive != (keyFrames.size() > 1))
            rules.push_back("Clear and Animate All are not sensitive as the list says");
    }

    if (scenario.check) {
        const std::string rule = scenario.check(outcome, recorded);
        if (!rule.empty())
            rules.push_back(rule);
    }
    return rules;
}

}  // namespace vextest
