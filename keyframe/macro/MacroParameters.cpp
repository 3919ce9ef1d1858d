#include "macro/MacroParameters.h"

#include <stdexcept>

#include "addon/KeyFrameError.h"

namespace vexplot {
namespace vexutiltools {

namespace {

const std::string& nameOf(Parameter_e parameter) {
    return NameTable<Parameter_e>::instance().getName(parameter);
}

const std::string& findValue(const CommandExecuterAbstract::Parameters& parameters,
                             Parameter_e wanted) {
    for (const auto& parameter : parameters) {
        if (parameter.first == wanted)
            return parameter.second;
    }
    throw KeyFrameError("Invalid macro command: missing value for parameter \"" + nameOf(wanted) +
                        "\"");
}

}  // namespace

std::string getFileNameParameter(const CommandExecuterAbstract::Parameters& parameters) {
    return findValue(parameters, Parameter_e::FileName);
}

Destination_e getDestinationParameter(const CommandExecuterAbstract::Parameters& parameters) {
    const std::string& value = findValue(parameters, Parameter_e::AnimationDestination);
    try {
        return NameTable<Destination_e>::instance().getValue(value);
    } catch (const std::out_of_range&) {
        throw KeyFrameError("Invalid macro command: invalid value for parameter \"" +
                            nameOf(Parameter_e::AnimationDestination) + "\"");
    }
}

}  // namespace vexutiltools
}  // namespace vexplot
