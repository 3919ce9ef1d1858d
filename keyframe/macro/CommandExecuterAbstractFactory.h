#ifndef VEXUTILTOOLS_COMMANDEXECUTERABSTRACTFACTORY_H
#define VEXUTILTOOLS_COMMANDEXECUTERABSTRACTFACTORY_H

#include <memory>

#include "macro/CommandExecuterAbstract.h"
#include "macro/Command_e.h"

namespace vexplot {
namespace vexutiltools {

// Creates the executer of each macro command of the add-on. The executers act on the main
// dialog's state (DialogMain): its key frame list, its settings and its settings file chooser,
// which exist whether or not the dialog is on screen.
class CommandExecuterAbstractFactory {
public:
    // OpenSettingsFile FileName=<file>: reads the file into a fresh list and a copy of the
    // dialog's settings; only when that succeeded do the dialog's settings and list take the
    // values read (so a broken file changes nothing and records nothing). The command is recorded
    // (openSettingsFile).
    class CommandExecuterOpenSettings : public CommandExecuterAbstract {
    public:
        void execute(const Parameters& parameters) override;
    };

    // SaveSettingsFile FileName=<file>: writes the dialog's list and settings
    // (saveSettingsFile); an empty list fails with "No Key Frames established." and records
    // nothing.
    class CommandExecuterSaveSettings : public CommandExecuterAbstract {
    public:
        void execute(const Parameters& parameters) override;
    };

    // Animate AnimationDestination=<OnScreen|ToFile>: makes the destination the dialog's own
    // (it stays so also when the run then fails or is canceled) and animates the whole list
    // with the dialog's settings; the run records the command itself.
    class CommandExecuterAnimate : public CommandExecuterAbstract {
    public:
        void execute(const Parameters& parameters) override;
    };

    virtual ~CommandExecuterAbstractFactory();

    // The executer of the command, owned by the caller; empty for a value that is no command.
    std::unique_ptr<CommandExecuterAbstract> createCommandExecuter(Command_e command) const;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
