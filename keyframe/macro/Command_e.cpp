#include "macro/Command_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<Command_e>& NameTable<Command_e>::instance() {
    static const NameTable<Command_e> table{{Command_e::OpenSettingsFile, "OpenSettingsFile"},
                                            {Command_e::SaveSettingsFile, "SaveSettingsFile"},
                                            {Command_e::Animate, "Animate"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, Command_e command) {
    return NameTable<Command_e>::instance().print(out, command, "Command_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
