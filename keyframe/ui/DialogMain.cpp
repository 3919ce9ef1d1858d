#include "ui/DialogMain.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <stdexcept>

#include <boost/bind/bind.hpp>

#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "animation/AnimationHostQueries.h"
#include "animation/AnimationManager.h"
#include "file/KeyFrameFile.h"
#include "macro/CommandExecuterAbstractFactory.h"
#include "macro/SettingsFileCommands.h"
#include "model/ViewOperations.h"
#include "ui/DialogCallback.h"
#include "vxsdkbase.h"

using namespace vexplot::vexutiltools;

namespace {

// Held by a pointer so that resetInstance can start afresh; created on first use.
std::unique_ptr<DialogMain>& instancePointer() {
    static std::unique_ptr<DialogMain> instance;
    return instance;
}

const char* const NotTransient =
    "The current data set is not transient.\nConcurrent time animation will be disabled.";
const char* const NoStreamtraceMotion =
    "Neither streamtrace markers nor dashes are enabled.\nConcurrent streamtrace animation will "
    "be disabled.";

}  // namespace

DialogMain& DialogMain::instance() {
    std::unique_ptr<DialogMain>& instance = instancePointer();
    if (!instance)
        instance.reset(new DialogMain());
    return *instance;
}

void DialogMain::resetInstance() {
    instancePointer().reset();
}

DialogMain::DialogMain()
    : settingsFileChooser_("animation", "keyframe", "Key Frame Animation"),
      destinationMenu_(
          {{"On Screen", Destination_e::OnScreen}, {"To File", Destination_e::ToFile}}),
      frameCountValidator_(VEXGUI_BAD_ID, static_cast<int>(DefaultFrameCount), true, 1, true,
                           2147483647) {}

DialogMain::~DialogMain() = default;

// ---- The host dialog ---------------------------------------------------------------------------

void DialogMain::create() {
    if (isCreated())
        throw std::logic_error("DialogMain::create(): the dialog exists already");
    LockScope lock;
    Controls& c = controls_;
    c.dialog = VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 4870, 2620,
                                          "Key Frame Animation", &dialogCallback<&DialogMain::init>,
                                          &dialogCallback<&DialogMain::close>,
                                          &dialogHelp<DialogMain>, this);
    // Controls in the order the user tabs through them.
    c.append = VexGUIButtonAdd(c.dialog, 3160, 65, 1433, 145, "&Append     ",
                               &dialogCallback<&DialogMain::append>, this);
    VexGUISetToolTip(c.append,
                     "Append the current Vexplot view as a key frame to the end of the list");
    c.destination = VexGUIOptionMenuAdd(c.dialog, 1847, 2066, 2711, 145,
                                        &dialogCallback<&DialogMain::destinationChosen>, this);
    c.destinationLabel = VexGUILabelAdd(c.dialog, 207, 2016, "Destination:");
    c.animateAll = VexGUIButtonAdd(c.dialog, 518, 2299, 1208, 232, "A&nimate\nAll",
                                   &dialogCallback<&DialogMain::animateAll>, this);
    VexGUISetToolTip(c.animateAll, "Animate through the list of all key frames");
    c.clear = VexGUIButtonAdd(c.dialog, 3160, 1341, 1433, 145, "&Clear         ",
                              &dialogCallback<&DialogMain::clear>, this);
    VexGUISetToolTip(c.clear, "Delete all key frame views from the list");
    c.apply = VexGUIButtonAdd(c.dialog, 3160, 783, 1416, 145, "A&pply        ",
                              &dialogCallback<&DialogMain::applyKeyFrame>, this);
    VexGUISetToolTip(c.apply, "Apply the selected key frame as the view in Vexplot");
    c.keyFrameList = VexGUIListAdd(c.dialog, 224, 65, 2745, 1414, true,
                                   &dialogCallback<&DialogMain::requestRefresh>, this);
    c.deleteKeyFrames = VexGUIButtonAdd(c.dialog, 3160, 1138, 1416, 145, "&Delete       ",
                                        &dialogCallback<&DialogMain::deleteKeyFrames>, this);
    VexGUISetToolTip(c.deleteKeyFrames, "Delete the selected key frame");
    c.animateSelected = VexGUIButtonAdd(c.dialog, 2884, 2299, 1243, 232, "  Animate \n&Selected",
                                        &dialogCallback<&DialogMain::animateSelected>, this);
    VexGUISetToolTip(c.animateSelected, "Animate between the selected and next key frames");
    c.update = VexGUIButtonAdd(c.dialog, 3160, 580, 1433, 145, "&Update      ",
                               &dialogCallback<&DialogMain::updateKeyFrame>, this);
    VexGUISetToolTip(c.update, "Update the selected key frame with the current view in Vexplot");
    c.viewNameLabel = VexGUILabelAdd(c.dialog, 207, 1595, "View Name:");
    c.viewName = VexGUITextFieldAdd(c.dialog, 1847, 1645, 2711, 145,
                                    &dialogCallback<&DialogMain::viewNameEntered>, this);
    VexGUISetToolTip(c.viewName, "Enter the name of the selected view");
    c.frameCountLabel = VexGUILabelAdd(c.dialog, 189, 1806, "Frame Count:");
    c.frameCount = VexGUITextFieldAdd(c.dialog, 1847, 1856, 2711, 145,
                                      &dialogCallback<&DialogMain::frameCountEntered>, this);
    VexGUISetToolTip(c.frameCount,
                     "Enter the number of frames between the selected and next key frame views");
    c.insert = VexGUIButtonAdd(c.dialog, 3160, 261, 1467, 145, "&Insert         ",
                               &dialogCallback<&DialogMain::insert>, this);
    VexGUISetToolTip(
        c.insert,
        "Add the current Vexplot view as a key frame below the selected item(s) in the list");

    destinationMenu_.populate(c.destination);
    frameCountValidator_.setControlId(c.frameCount);
    keyFrameListView_.setControlId(c.keyFrameList);
    keyFrameListView_.setModel(&keyFrames_);
    // A reset announced while nothing observed the list (a settings file opened by a macro
    // before the dialog existed) is still pending in the model, which would drop every later
    // change; announcing it again now, with the view attached, delivers it.
    keyFrames_.notifyReset();

    dropper_ = std::make_unique<DialogDropper<DialogMain>>(*this);
    dropper_->startListening();
}

void DialogMain::addMenuBar() {
    if (!isCreated())
        throw std::logic_error("DialogMain::addMenuBar(): the dialog does not exist");
    if (hasMenuBar())
        throw std::logic_error("DialogMain::addMenuBar(): the menu bar exists already");
    LockScope lock;
    Controls& c = controls_;
    c.menuBar = VexGUIMenuBarAdd(c.dialog);
    c.fileMenu = VexGUIMenuAdd(c.menuBar, "&File");
    c.openFile = VexGUIMenuAddItem(c.fileMenu, "&Open Animation File...",
                                   &dialogCallback<&DialogMain::openFile>, this);
    c.saveFile = VexGUIMenuAddItem(c.fileMenu, "&Save Animation File",
                                   &dialogCallback<&DialogMain::saveFile>, this);
    c.saveFileAs = VexGUIMenuAddItem(c.fileMenu, "Save Animation File &As...",
                                     &dialogCallback<&DialogMain::saveFileAs>, this);
    c.optionsMenu = VexGUIMenuAdd(c.menuBar, "&Options");
    c.animateTime = VexGUIMenuAddToggle(
        c.optionsMenu, "Animate &Time Concurrently",
        &dialogCallback<&DialogMain::optionToggled<&AnimationSettings_s::AnimateTime>>, this);
    c.animateStreamtraces = VexGUIMenuAddToggle(
        c.optionsMenu, "Animate &Streamtraces Concurrently",
        &dialogCallback<&DialogMain::optionToggled<&AnimationSettings_s::AnimateStreamtraces>>,
        this);
    c.fadeIn = VexGUIMenuAddToggle(
        c.optionsMenu, "Fade &In",
        &dialogCallback<&DialogMain::optionToggled<&AnimationSettings_s::FadeIn>>, this);
    c.fadeOut = VexGUIMenuAddToggle(
        c.optionsMenu, "Fade &Out",
        &dialogCallback<&DialogMain::optionToggled<&AnimationSettings_s::FadeOut>>, this);
    c.timeAnimationOptions =
        VexGUIMenuAddItem(c.optionsMenu, "Time &Animation Options...",
                          &dialogCallback<&DialogMain::launchTimeAnimationOptions>, this);
    refreshOptions();
}

void DialogMain::launch() {
    if (!isCreated())
        throw std::logic_error("DialogMain::launch(): the dialog does not exist");
    LockScope lock;
    VexGUIDialogLaunch(controls_.dialog);
}

void DialogMain::drop() {
    if (!isCreated())
        return;
    LockScope lock;
    VexGUIDialogDrop(controls_.dialog);
}

// ---- Refreshing --------------------------------------------------------------------------------

void DialogMain::refreshList() {
    if (controls_.keyFrameList == VEXGUI_BAD_ID)
        return;
    keyFrames_.notifyReset();
    requestRefresh();
}

void DialogMain::refreshOptions() {
    const Controls& c = controls_;
    if (!isCreated())
        return;
    LockScope lock;
    destinationMenu_.setSelectedValue(settings_.Destination);
    const std::pair<int32_t, bool> toggles[] = {
        {c.animateTime, settings_.AnimateTime},
        {c.animateStreamtraces, settings_.AnimateStreamtraces},
        {c.fadeIn, settings_.FadeIn},
        {c.fadeOut, settings_.FadeOut}};
    for (const auto& toggle : toggles) {
        if (toggle.first != VEXGUI_BAD_ID)
            VexGUIMenuSetToggle(toggle.first, toggle.second);
    }
}

void DialogMain::requestRefresh() {
    if (!isCreated())
        return;
    LockScope lock;
    if (!VexGUIDialogIsUp(controls_.dialog))
        return;
    // One refresh after a burst of changes is all the dialog needs: a request made while one is
    // pending is dropped by the manager.
    refreshOnIdle_.queueCallback([this] { runDialogCallback([this] { refresh(); }); });
}

void DialogMain::refresh() {
    if (!isCreated())
        return;
    LockScope lock;
    const Controls& c = controls_;
    const uint64_t n = keyFrames_.getItemCount();
    const std::vector<int64_t> selected = selectedPositions();
    const std::size_t k = selected.size();

    const bool one = n > 0 && k == 1;
    const bool some = n > 0 && k >= 1;
    for (int32_t id : {c.apply, c.update, c.viewNameLabel, c.viewName})
        VexGUISetSensitivity(id, one);
    for (int32_t id : {c.deleteKeyFrames, c.insert, c.frameCountLabel, c.frameCount})
        VexGUISetSensitivity(id, some);
    VexGUISetSensitivity(c.animateSelected, n > 0 && k >= 2);
    VexGUISetSensitivity(c.clear, n > 0);
    VexGUISetSensitivity(c.animateAll, n > 1);
    VexGUISetSensitivity(c.append, true);
    VexGUISetSensitivity(c.destination, true);

    if (one)
        VexGUITextFieldSetString(
            c.viewName, keyFrames_.getName(static_cast<uint64_t>(selected.front())).c_str());
    if (some) {
        const uint64_t frameCount =
            keyFrames_.getFrameCount(static_cast<uint64_t>(selected.front()));
        const int maximum = frameCountValidator_.getMaximum();
        frameCountValidator_.setValue(frameCountValidator_.clamp(
            frameCount > static_cast<uint64_t>(maximum) ? maximum : static_cast<int>(frameCount)));
        frameCountValidator_.showValue();
    }
    destinationMenu_.setSelectedValue(settings_.Destination);
}

std::vector<int64_t> DialogMain::selectedPositions() const {
    std::vector<int64_t> selected;
    // The placeholder line of an empty list is no key frame.
    if (keyFrames_.getItemCount() > 0)
        keyFrameListView_.getSelectionModel().getSelectedItems(selected);
    return selected;
}

// ---- Editing the list --------------------------------------------------------------------------

void DialogMain::addKeyFrame(uint64_t position) {
    KeyFrame_s keyFrame;
    keyFrame.view = captureCurrentView();
    keyFrame.name = "View " + std::to_string(keyFrames_.getInvalidIndex());
    const uint64_t count = keyFrames_.getItemCount();
    keyFrame.frameCount = count > 0 ? keyFrames_.getFrameCount(count - 1) : DefaultFrameCount;
    {
        LockScope lock;
        keyFrame.solutionTime = VexUtilSolutionTimeGetCurrent();
    }
    editList([&] { keyFrames_.insertItem(position, keyFrame); });
}

void DialogMain::append() {
    // The invalid index (count + 1) appends: the model reports the new key frame at the count.
    addKeyFrame(keyFrames_.getInvalidIndex());
}

void DialogMain::insert() {
    const std::vector<int64_t> selected = selectedPositions();
    // Before the first selected line, on purpose (see the class comment).
    addKeyFrame(selected.empty() ? keyFrames_.getInvalidIndex()
                                 : static_cast<uint64_t>(selected.front()));
}

void DialogMain::updateKeyFrame() {
    const int32_t position = keyFrameListView_.getSelectionModel().getSelectedItem();
    if (position < 0)
        return;
    LockScope lock;
    keyFrames_.setView(static_cast<uint64_t>(position), captureCurrentView());
}

void DialogMain::applyKeyFrame() {
    const int32_t position = keyFrameListView_.getSelectionModel().getSelectedItem();
    if (position < 0)
        return;
    const KeyFrame_s& keyFrame = keyFrames_.getItem(static_cast<uint64_t>(position));
    LockScope lock;
    applyView(keyFrame.view);
    VexUtilSolutionTimeSetCurrent(keyFrame.solutionTime);
}

void DialogMain::deleteKeyFrames() {
    std::vector<int64_t> selected = selectedPositions();
    std::sort(selected.begin(), selected.end());
    editList([&] {
        // From the last one up, so each position still names the key frame it named. Every
        // selected key frame goes, also when an observer fails being told of one removal: the
        // first failure is reported once all are gone, so a Delete never stops half way.
        std::exception_ptr firstFailure;
        for (auto it = selected.rbegin(); it != selected.rend(); ++it) {
            try {
                keyFrames_.removeItem(static_cast<uint64_t>(*it));
            } catch (...) {
                if (!firstFailure)
                    firstFailure = std::current_exception();
            }
        }
        if (firstFailure)
            std::rethrow_exception(firstFailure);
    });
}

void DialogMain::clear() {
    const uint64_t count = keyFrames_.getItemCount();
    editList([&] {
        if (count > 0)
            keyFrames_.removeItems(0, count);
    });
}

template <typename Edit>
void DialogMain::editList(Edit&& edit) {
    // A failure of an observer told of the change comes after the change: the list has changed
    // all the same, so the fields and sensitivities must follow it before the failure is shown.
    try {
        edit();
    } catch (...) {
        requestRefresh();
        throw;
    }
    requestRefresh();
}

void DialogMain::viewNameEntered(const std::string& text) {
    const int32_t position = keyFrameListView_.getSelectionModel().getSelectedItem();
    if (position < 0)
        return;
    if (text.empty()) {
        VexUtilDialogErrMsg("The view name must be at least one character.");
        VexGUITextFieldSetString(controls_.viewName,
                                 keyFrames_.getName(static_cast<uint64_t>(position)).c_str());
        return;
    }
    keyFrames_.setName(static_cast<uint64_t>(position), text);
}

void DialogMain::frameCountEntered(const std::string& text) {
    if (frameCountValidator_.validate(text)) {
        const uint64_t frameCount = static_cast<uint64_t>(frameCountValidator_.getValue());
        for (int64_t position : selectedPositions())
            keyFrames_.setFrameCount(static_cast<uint64_t>(position), frameCount);
    }
    // Also after a rejected entry: the field shows the frame count in force again.
    requestRefresh();
}

// ---- Animating ---------------------------------------------------------------------------------

void DialogMain::checkConcurrency() {
    // The options are switched off in the settings, not only for this run: the menu then shows
    // what runs, and a saved settings file or a recorded Animate does not ask for a concurrent
    // animation the data cannot show.
    bool changed = false;
    if (settings_.AnimateTime && !isDataSetTransient()) {
        VexUtilDialogMessageBox(NotTransient, VexMessageBox_Warning);
        settings_.AnimateTime = false;
        changed = true;
    }
    if (settings_.AnimateStreamtraces && !canAnimateStreamtraces()) {
        VexUtilDialogMessageBox(NoStreamtraceMotion, VexMessageBox_Warning);
        settings_.AnimateStreamtraces = false;
        changed = true;
    }
    if (changed)
        refreshOptions();
}

void DialogMain::animateSelected() {
    std::vector<int64_t> selected = selectedPositions();
    if (selected.size() < 2)
        return;
    std::sort(selected.begin(), selected.end());
    for (std::size_t i = 1; i < selected.size(); ++i) {
        if (selected[i] - selected[i - 1] != 1)
            throw KeyFrameError("Selected items must be a continuous range.");
    }

    if (destinationMenu_.getSelectedValue() == Destination_e::ToFile) {
        destinationMenu_.setSelectedValue(Destination_e::OnScreen);
        settings_.Destination = Destination_e::OnScreen;
        const std::string message =
            std::string("\"Animate Selected\" does not support output to file.\n") +
            "The destination has been reset to \"" +
            destinationMenu_.getDisplayString(Destination_e::OnScreen) + "\".";
        VexUtilDialogMessageBox(message.c_str(), VexMessageBox_Information);
    }
    checkConcurrency();

    AnimationSettings_s settings = settings_;
    settings.Destination = Destination_e::OnScreen;
    const std::vector<KeyFrame_s>& keyFrames = keyFrames_.getItems();
    const uint64_t first = static_cast<uint64_t>(selected.front());
    const uint64_t last = static_cast<uint64_t>(selected.back());
    // The run ends on the frame of the last selected key frame: the count is last - first, as
    // the animation manager takes a partial range. Not recorded: the macro command "Animate"
    // always runs the whole list, so it would replay a different animation.
    AnimationManager::animate(keyFrames, first, last - first, settings,
                              AnimationManager::SuppressMacroRecording);
}

void DialogMain::animateAll() {
    checkConcurrency();
    const Destination_e destination = destinationMenu_.getSelectedValue();
    if (destination == Destination_e::OnScreen)
        animate(destination, AnimationManager::RecordMacro);
    else
        exportOptions_.launch(
            boost::bind(&DialogMain::animate, this, destination, AnimationManager::RecordMacro));
}

void DialogMain::animate(Destination_e destination, int32_t suppressRecording) {
    LockScope lock;
    settings_.Destination = destination;
    const std::vector<KeyFrame_s>& keyFrames = keyFrames_.getItems();
    AnimationManager::animate(keyFrames, 0, keyFrames.size(), settings_, suppressRecording);
}

// ---- File menu ---------------------------------------------------------------------------------

void DialogMain::openFile() {
    if (!settingsFileChooser_.chooseFileName(VexSelectFile_ReadSingleFile))
        return;
    // Exactly what the replayed command does: all-or-nothing into copies, then the dialog's
    // state, and the same recorded line.
    CommandExecuterAbstractFactory::CommandExecuterOpenSettings().execute(
        {{Parameter_e::FileName, settingsFileChooser_.getFileName()}});
}

void DialogMain::saveFile() {
    // Save writes to the file the user chose in this dialog before (through Open, Save or Save
    // As) without asking again. Until then it is Save As: the starting name, or a file a
    // replayed macro named, is not the user's choice, and writing there unasked could overwrite
    // a file the user never picked.
    if (settingsFileChooser_.isChosen())
        saveSettingsFileAs(settingsFileChooser_.getFileName());
    else
        saveFileAs();
}

void DialogMain::saveFileAs() {
    if (settingsFileChooser_.chooseFileName(VexSelectFile_WriteFile))
        saveSettingsFileAs(settingsFileChooser_.getFileName());
}

void DialogMain::saveSettingsFileAs(const std::string& fileName) {
    LockScope lock;
    if (VexUtilMacroIsRecordingActive()) {
        // The list is built with the dialog, whose edits have no macro commands, so a recorded
        // macro takes the list from the file. The file is written first (a failure records
        // nothing), then read back into the dialog as OpenSettingsFile does, recording it: from
        // here on the session works on exactly the list (rounded as the file writes numbers)
        // that the replayed macro reads, and both go on alike. Then the save is recorded.
        KeyFrameFile().write(fileName, settings_, keyFrames_);
        CommandExecuterAbstractFactory::CommandExecuterOpenSettings().execute(
            {{Parameter_e::FileName, fileName}});
    }
    saveSettingsFile(fileName, keyFrames_, settings_);
}

// ---- Options menu ------------------------------------------------------------------------------

void DialogMain::launchTimeAnimationOptions() {
    timeAnimationOptions_.launch(settings_, boost::bind(&DialogMain::timeAnimationOptionsDone, this,
                                                        boost::placeholders::_1));
}

void DialogMain::timeAnimationOptionsDone(bool accepted) {
    // OK turns concurrent time animation on: the menu toggle shows it.
    if (accepted)
        refreshOptions();
}

// ---- Host callbacks ----------------------------------------------------------------------------

void DialogMain::init() {
    refreshOptions();
    refresh();
}

void DialogMain::close() {
    VexGUIDialogDrop(controls_.dialog);
}

void DialogMain::destinationChosen() {
    settings_.Destination = destinationMenu_.getSelectedValue();
}

template <bool AnimationSettings_s::*Option>
void DialogMain::optionToggled(int32_t isOn) {
    settings_.*Option = isOn != 0;
}
