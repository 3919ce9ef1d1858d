#ifndef DIALOGMAIN_H
#define DIALOGMAIN_H

#include <cstdint>
#include <memory>
#include <string>

#include "addon/OnIdleManager.h"
#include "model/AnimationSettings_s.h"
#include "model/Destination_e.h"
#include "model/ListModelKeyFrame.h"
#include "ui/DialogDropper.h"
#include "ui/DialogExportOptions.h"
#include "ui/DialogTimeAnimationOptions.h"
#include "ui/FileNameChooser.h"
#include "ui/ListView.h"
#include "ui/OptionMenuStaticManager.h"
#include "ui/TextFieldValidator.h"
#include "vexgui.h"

// The add-on's main dialog, the modeless "Key Frame Animation", and the state it works on: the
// key frame list, the animation settings and the chooser of settings files. One instance lives in
// the process, created on first use and kept until the add-on is unloaded; the add-on's macro
// commands act on the same state whether or not the dialog is on screen.
//
// The instance exists before (and without) any host dialog: the host control ids stay -2 until
// create, and refreshing a control that is not created does nothing. The host dialog is created
// once, its menu bar added once, and it is launched again each time the user opens it.
//
// What the dialog does (each action a host callback, under the host lock, whose KeyFrameError is
// shown in the host's error dialog; the list and settings keep the state of before the failing
// step):
// - Append and Insert capture the host's current 3D view as a key frame named "View <count + 1>"
//   with the frame count of the last key frame (30 for the first) and the host's solution time.
//   Append adds it at the end; Insert puts it in place of the first selected line, pushing that
//   line down (deliberately, whatever the button's tool tip says).
// - Update recaptures the selected key frame's view and solution time; Apply shows it in the host.
// - Delete removes the selected key frames; Clear removes all.
// - The View Name field renames the selected key frame (an empty name is refused); the Frame Count
//   field sets the frame count of every selected key frame (whole numbers 1 to 2147483647).
// - Animate All runs the whole list on screen, or after the export options' OK to a file, and is
//   recorded as the macro command "Animate". Animate Selected runs on screen from the first to the
//   last selected key frame (a continuous range) and is not recorded: the command has no range.
// - File: open and save settings files (recorded as the macro commands OpenSettingsFile and
//   SaveSettingsFile). Options: the four concurrent options, and the time animation options.
// Every change of the list or of the selection refreshes the fields and sensitivities once, from
// the host's idle queue. A DialogDropper takes the dialog off the screen when the active frame
// stops being a 3D plot.
class DialogMain {
public:
    // The host ids of the dialog and of its controls; -2 (VEXGUI_BAD_ID) while not created.
    struct Controls {
        int32_t dialog = VEXGUI_BAD_ID;
        int32_t keyFrameList = VEXGUI_BAD_ID;
        int32_t destination = VEXGUI_BAD_ID;  // option menu, one entry per destination
        int32_t animateTime = VEXGUI_BAD_ID;  // menu toggles of the Options menu
        int32_t animateStreamtraces = VEXGUI_BAD_ID;
        int32_t fadeIn = VEXGUI_BAD_ID;
        int32_t fadeOut = VEXGUI_BAD_ID;

        int32_t append = VEXGUI_BAD_ID;
        int32_t destinationLabel = VEXGUI_BAD_ID;
        int32_t animateAll = VEXGUI_BAD_ID;
        int32_t clear = VEXGUI_BAD_ID;
        int32_t apply = VEXGUI_BAD_ID;
        int32_t deleteKeyFrames = VEXGUI_BAD_ID;
        int32_t animateSelected = VEXGUI_BAD_ID;
        int32_t update = VEXGUI_BAD_ID;
        int32_t viewNameLabel = VEXGUI_BAD_ID;
        int32_t viewName = VEXGUI_BAD_ID;
        int32_t frameCountLabel = VEXGUI_BAD_ID;
        int32_t frameCount = VEXGUI_BAD_ID;
        int32_t insert = VEXGUI_BAD_ID;

        int32_t menuBar = VEXGUI_BAD_ID;
        int32_t fileMenu = VEXGUI_BAD_ID;
        int32_t openFile = VEXGUI_BAD_ID;
        int32_t saveFile = VEXGUI_BAD_ID;
        int32_t saveFileAs = VEXGUI_BAD_ID;
        int32_t optionsMenu = VEXGUI_BAD_ID;
        int32_t timeAnimationOptions = VEXGUI_BAD_ID;
    };

    static constexpr const char* HelpPage = "addons.html#addons/working-with/keyframe";
    // The frame count of the first key frame of a list.
    static constexpr uint64_t DefaultFrameCount = 30;

    // The process-wide instance, created on first use.
    static DialogMain& instance();
    // Drops the instance, so that the next instance() creates a fresh one with an empty list,
    // default settings and a new chooser. The add-on's reset (addon/ResetAddOnState.h) is the
    // caller; a test that wants a fresh dialog with the add-on still registered calls it alone.
    // References to the old instance dangle; so would an idle request it left queued, which the
    // host's reset discards.
    static void resetInstance();

    virtual ~DialogMain();

    DialogMain(const DialogMain&) = delete;
    DialogMain& operator=(const DialogMain&) = delete;

    vexplot::vexutiltools::ListModelKeyFrame& getKeyFrameModel() { return keyFrames_; }
    vexplot::vexutiltools::AnimationSettings_s& getSettings() { return settings_; }
    // Starts as "animation.keyframe" ("Key Frame Animation" files, extension "keyframe").
    vexplot::vexutiltools::FileNameChooser& getSettingsFileChooser() {
        return settingsFileChooser_;
    }
    Controls& getControls() { return controls_; }
    vexplot::vexutiltools::ListView& getKeyFrameListView() { return keyFrameListView_; }
    vexplot::vexutiltools::DialogTimeAnimationOptions& getTimeAnimationOptions() {
        return timeAnimationOptions_;
    }
    vexplot::vexutiltools::DialogExportOptions& getExportOptions() { return exportOptions_; }
    const vexplot::vexutiltools::TextFieldValidator<int>& getFrameCountValidator() const {
        return frameCountValidator_;
    }

    // Creates the host dialog and its controls (once: a second call is a programming error,
    // std::logic_error) and starts the dropper listening.
    void create();
    bool isCreated() const { return controls_.dialog != VEXGUI_BAD_ID; }
    // Adds the menu bar with the File and Options menus (once, after create).
    void addMenuBar();
    bool hasMenuBar() const { return controls_.menuBar != VEXGUI_BAD_ID; }
    // Shows the dialog (VexGUIDialogLaunch); its init shows the state.
    void launch();
    // Takes the dialog off the screen, if it was created.
    void drop();

    // Shows the whole key frame list again: the list control follows the model, so a reset of
    // the model makes it rebuild its lines; the fields follow on the idle queue. Nothing while
    // there is no list control.
    void refreshList();
    // Shows the settings in the option controls: the destination menu and the option toggles.
    // Each control that is not created is left out.
    void refreshOptions();
    // Asks for one refresh of the fields and sensitivities from the host's idle queue, while the
    // dialog is up; requests made while one is pending are the same request.
    void requestRefresh();
    // The refresh itself: sensitivities by the number of key frames and of selected lines, the
    // selected key frame's name and frame count, and the destination.
    void refresh();

private:
    DialogMain();

    // The host callbacks of the dialog's own: its init shows the state, its close takes it off
    // the screen.
    void init();
    void close();
    // Runs an edit of the key frame list, then asks for the refresh of the fields, also when the
    // edit fails (its failure is passed on).
    template <typename Edit>
    void editList(Edit&& edit);
    void addKeyFrame(uint64_t position);
    void append();
    void insert();
    void updateKeyFrame();
    void applyKeyFrame();
    void deleteKeyFrames();
    void clear();
    void destinationChosen();
    // One Options menu toggle: the setting it shows follows it.
    template <bool vexplot::vexutiltools::AnimationSettings_s::*Option>
    void optionToggled(int32_t isOn);
    void viewNameEntered(const std::string& text);
    void frameCountEntered(const std::string& text);
    void animateSelected();
    void animateAll();
    // The run that Animate All starts at once (on screen) or after the export options' OK.
    void animate(vexplot::vexutiltools::Destination_e destination, int32_t suppressRecording);
    // Switches the concurrent options off that the host cannot show, telling the user why.
    void checkConcurrency();
    void openFile();
    void saveFile();
    void saveFileAs();
    void saveSettingsFileAs(const std::string& fileName);
    void launchTimeAnimationOptions();
    void timeAnimationOptionsDone(bool accepted);
    std::vector<int64_t> selectedPositions() const;

    // Declared before the view, which observes it and so must go first.
    vexplot::vexutiltools::ListModelKeyFrame keyFrames_;
    vexplot::vexutiltools::AnimationSettings_s settings_;
    vexplot::vexutiltools::FileNameChooser settingsFileChooser_;
    Controls controls_;
    vexplot::vexutiltools::ListView keyFrameListView_;
    vexplot::vexutiltools::OptionMenuStaticManager<vexplot::vexutiltools::Destination_e>
        destinationMenu_;
    vexplot::vexutiltools::TextFieldValidator<int> frameCountValidator_;
    vexplot::vexutiltools::DialogTimeAnimationOptions timeAnimationOptions_;
    vexplot::vexutiltools::DialogExportOptions exportOptions_;
    vexplot::vexutiltools::OnIdleManager refreshOnIdle_;
    // Made with the host dialog; listens to the host while the add-on is loaded.
    std::unique_ptr<vexplot::vexutiltools::DialogDropper<DialogMain>> dropper_;
};

#endif
