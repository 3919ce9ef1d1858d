#include "macro/SettingsFileCommands.h"

#include "file/KeyFrameFile.h"
#include "macro/AddOnMacroCommandManager.h"
#include "ui/DialogMain.h"

namespace vexplot {
namespace vexutiltools {

void openSettingsFile(const std::string& fileName, ListModelKeyFrame& keyFrames,
                      AnimationSettings_s& settings) {
    KeyFrameFile().read(fileName, settings, keyFrames);
    DialogMain& dialog = DialogMain::instance();
    dialog.getSettingsFileChooser().setFileName(fileName);
    dialog.refreshList();
    dialog.refreshOptions();
    AddOnMacroCommandManager::instance().recordCommand(Command_e::OpenSettingsFile,
                                                       {{Parameter_e::FileName, fileName}});
}

void saveSettingsFile(const std::string& fileName, const ListModelKeyFrame& keyFrames,
                      const AnimationSettings_s& settings) {
    KeyFrameFile().write(fileName, settings, keyFrames);
    // The next file dialog starts from the file just saved, as after opening one.
    DialogMain::instance().getSettingsFileChooser().setFileName(fileName);
    AddOnMacroCommandManager::instance().recordCommand(Command_e::SaveSettingsFile,
                                                       {{Parameter_e::FileName, fileName}});
}

}  // namespace vexutiltools
}  // namespace vexplot
