#include "macro/CommandExecuterAbstractFactory.h"

#include "animation/AnimationManager.h"
#include "macro/MacroParameters.h"
#include "macro/SettingsFileCommands.h"
#include "ui/DialogMain.h"

namespace vexplot {
namespace vexutiltools {

CommandExecuterAbstractFactory::~CommandExecuterAbstractFactory() = default;

std::unique_ptr<CommandExecuterAbstract> CommandExecuterAbstractFactory::createCommandExecuter(
    Command_e command) const {
    switch (command) {
        case Command_e::OpenSettingsFile:
            return std::make_unique<CommandExecuterOpenSettings>();
        case Command_e::SaveSettingsFile:
            return std::make_unique<CommandExecuterSaveSettings>();
        case Command_e::Animate:
            return std::make_unique<CommandExecuterAnimate>();
    }
    return nullptr;
}

void CommandExecuterAbstractFactory::CommandExecuterOpenSettings::execute(
    const Parameters& parameters) {
    const std::string fileName = getFileNameParameter(parameters);
    DialogMain& dialog = DialogMain::instance();
    ListModelKeyFrame keyFrames;
    AnimationSettings_s settings = dialog.getSettings();
    openSettingsFile(fileName, keyFrames, settings);

    dialog.getSettings() = settings;
    dialog.refreshOptions();
    dialog.getKeyFrameModel().setItems(keyFrames.getItems());
    dialog.refreshList();
    dialog.refreshOptions();
}

void CommandExecuterAbstractFactory::CommandExecuterSaveSettings::execute(
    const Parameters& parameters) {
    const std::string fileName = getFileNameParameter(parameters);
    DialogMain& dialog = DialogMain::instance();
    saveSettingsFile(fileName, dialog.getKeyFrameModel(), dialog.getSettings());
}

void CommandExecuterAbstractFactory::CommandExecuterAnimate::execute(const Parameters& parameters) {
    DialogMain& dialog = DialogMain::instance();
    AnimationSettings_s settings = dialog.getSettings();
    settings.Destination = getDestinationParameter(parameters);
    // The destination becomes the dialog's own before the run, so it stays in effect whatever
    // the run does.
    dialog.getSettings() = settings;
    dialog.refreshOptions();

    const std::vector<KeyFrame_s>& keyFrames = dialog.getKeyFrameModel().getItems();
    // The run records "Animate" with its destination itself.
    AnimationManager::animate(keyFrames, 0, keyFrames.size(), dialog.getSettings(),
                              AnimationManager::RecordMacro);
}

}  // namespace vexutiltools
}  // namespace vexplot
