#include "macro/CreateCommandExecuter.h"

namespace vexplot {
namespace vexutiltools {

std::unique_ptr<CommandExecuterAbstract> createCommandExecuter(Command_e /*command*/) {
    // No command has an executer yet: opening and saving settings files and animating by macro
    // arrive with the executers, which are created here.
    return nullptr;
}

}  // namespace vexutiltools
}  // namespace vexplot
