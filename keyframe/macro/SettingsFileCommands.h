#ifndef VEXUTILTOOLS_SETTINGSFILECOMMANDS_H
#define VEXUTILTOOLS_SETTINGSFILECOMMANDS_H

#include <string>

#include "model/AnimationSettings_s.h"
#include "model/ListModelKeyFrame.h"

namespace vexplot {
namespace vexutiltools {

// Opening and saving a key frame settings file as a user action: the replayed macro commands
// OpenSettingsFile and SaveSettingsFile and the main dialog's File menu both come here, so both
// record the same macro lines. A failure of the read or the write (KeyFrameFile) propagates before
// anything else happens: nothing is recorded and the main dialog is left as it was.

// Reads the file into the list and the settings (all-or-nothing, KeyFrameFile::read). Then the
// file becomes the main dialog's current settings file (its chooser starts from it), the dialog's
// list and option controls are refreshed, and "OpenSettingsFile FileName=<file name>" is recorded
// while the host records a macro.
void openSettingsFile(const std::string& fileName, ListModelKeyFrame& keyFrames,
                      AnimationSettings_s& settings);

// Writes the list and the settings to the file (KeyFrameFile::write). Then the file becomes the
// main dialog's current settings file and "SaveSettingsFile FileName=<file name>" is recorded
// while the host records a macro.
void saveSettingsFile(const std::string& fileName, const ListModelKeyFrame& keyFrames,
                      const AnimationSettings_s& settings);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
