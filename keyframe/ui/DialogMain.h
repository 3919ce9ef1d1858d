#ifndef DIALOGMAIN_H
#define DIALOGMAIN_H

#include <cstdint>

#include "model/AnimationSettings_s.h"
#include "model/ListModelKeyFrame.h"
#include "ui/FileNameChooser.h"
#include "vexgui.h"

// The add-on's main dialog and the state it works on: the key frame list, the animation settings
// and the chooser of settings files. One instance lives in the process, created on first use and
// kept until the add-on is unloaded; the add-on's macro commands act on the same state whether or
// not the dialog is on screen.
//
// The instance exists before (and without) any host dialog: the host control ids stay -2 until
// the dialog is created, and refreshing a control that is not created does nothing.
class DialogMain {
public:
    // The host ids of the dialog and of the controls that show the state; -2 (VEXGUI_BAD_ID)
    // while not created.
    struct Controls {
        int32_t dialog = VEXGUI_BAD_ID;
        int32_t keyFrameList = VEXGUI_BAD_ID;
        int32_t destination = VEXGUI_BAD_ID;  // option menu, one entry per destination
        int32_t animateTime = VEXGUI_BAD_ID;  // menu toggles of the Options menu
        int32_t animateStreamtraces = VEXGUI_BAD_ID;
        int32_t fadeIn = VEXGUI_BAD_ID;
        int32_t fadeOut = VEXGUI_BAD_ID;
    };

    // The process-wide instance, created on first use.
    static DialogMain& instance();
    // Drops the instance, so that the next instance() creates a fresh one with an empty list,
    // default settings and a new chooser. For a host that was reset (the tests): the old
    // instance's host controls are gone with it. References to the old instance dangle.
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

    // Shows the whole key frame list again: the list control follows the model, so a reset of
    // the model makes it rebuild its lines. Nothing while there is no list control.
    void refreshList();
    // Shows the settings in the option controls: the destination menu and the option toggles.
    // Each control that is not created is left out.
    void refreshOptions();

private:
    DialogMain();

    vexplot::vexutiltools::ListModelKeyFrame keyFrames_;
    vexplot::vexutiltools::AnimationSettings_s settings_;
    vexplot::vexutiltools::FileNameChooser settingsFileChooser_;
    Controls controls_;
};

#endif
