#include "macro/CreateCommandExecuter.h"

#include "macro/CommandExecuterAbstractFactory.h"

namespace vexplot {
namespace vexutiltools {

std::unique_ptr<CommandExecuterAbstract> createCommandExecuter(Command_e command) {
    return CommandExecuterAbstractFactory().createCommandExecuter(command);
}

}  // namespace vexutiltools
}  // namespace vexplot
