// The host and add-on states that the hardening tests start from, and the user's actions on the
// main dialog, in a few words each.
#ifndef VEXTEST_HARDENING_HARDENINGSCENE_H
#define VEXTEST_HARDENING_HARDENINGSCENE_H

#include <cstdint>
#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "support/KeyFrameData.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiUser.h"

namespace vextest {
namespace scene {

constexpr const char* MainTitle = "Key Frame Animation";

// One 3D Cartesian frame of 800 x 600 pixels; a transient data set (three zones of strand 1 at
// solution times 0, 0.5 and 1); streamtrace markers shown; display lists off, light source
// intensity 60 and background light 40, the 3D frame axis hidden and the streamtrace time anchor at
// 0.3, none of them the host's default.
void transientScene();

// Three key frames with frame counts 6, 5 and 1 (support/KeyFrameData.h): a run of 12 frames, so
// fades last one frame.
using vextest::smallFlight;
// Time (Loop, 2 cycles), streamtraces, fade in and fade out, to the destination given.
vexplot::vexutiltools::AnimationSettings_s everyStage(
    vexplot::vexutiltools::Destination_e destination);

// Makes the list and settings the main dialog's state (no host dialog needed).
void giveDialog(const std::vector<vexplot::vexutiltools::KeyFrame_s>& keyFrames,
                const vexplot::vexutiltools::AnimationSettings_s& settings);

// Runs an add-on macro command as the host's macro player does.
vexhost::AddOnRegistry::CommandResult runCommand(const std::string& command);

// Writes a settings file of the key frames and settings (UTF-8 file name).
using vextest::writeSettingsFile;

// The user at the main dialog. Each action runs the host's idle queue afterwards, as the host's
// main loop does; a step the user cannot take throws vexhost::GuiError.
void openMainDialog();
void press(const std::string& button, const std::string& dialogTitle = MainTitle);
// Lines count from 1.
void selectLines(std::vector<int32_t> lines);
void type(const std::string& field, const std::string& text);
void chooseMenu(const std::vector<std::string>& path);
void chooseOption(const std::string& menu, const std::string& entry);
void dialogButton(const std::string& dialogTitle, vexhost::GuiUser::DialogButton button);

}  // namespace scene
}  // namespace vextest

#endif
