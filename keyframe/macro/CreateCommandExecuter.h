#ifndef VEXUTILTOOLS_CREATECOMMANDEXECUTER_H
#define VEXUTILTOOLS_CREATECOMMANDEXECUTER_H

#include <memory>

#include "macro/CommandExecuterAbstract.h"
#include "macro/Command_e.h"

namespace vexplot {
namespace vexutiltools {

// The executer that carries out `command`, owned by the caller, or an empty pointer while the
// add-on has no executer for it. The macro command callback dispatches every parsed command
// through this one function and turns an empty answer into the failure "The macro command <name>
// is not available.", so a command without an executer fails like any other bad command.
std::unique_ptr<CommandExecuterAbstract> createCommandExecuter(Command_e command);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
