#ifndef VEXUTILTOOLS_COMMANDEXECUTERABSTRACT_H
#define VEXUTILTOOLS_COMMANDEXECUTERABSTRACT_H

#include <string>
#include <utility>
#include <vector>

#include "macro/Parameter_e.h"

namespace vexplot {
namespace vexutiltools {

// Carries out one parsed macro command. The macro command callback creates the executer of the
// command (createCommandExecuter), calls execute once with the command's parameters in the order
// of the command string, and destroys it. An executer holds no data; a failure leaves execute as
// an exception carrying the user-facing text, which the callback hands to the host.
class CommandExecuterAbstract {
public:
    using Parameters = std::vector<std::pair<Parameter_e, std::string>>;

    virtual ~CommandExecuterAbstract() = default;

    // A parameter may occur more than once; executers use its first occurrence.
    virtual void execute(const Parameters& parameters) = 0;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
