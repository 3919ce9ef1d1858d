#include "macro/Command_e.h"

#include <ostream>

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
    const NameTable<Command_e>& names = NameTable<Command_e>::instance();
    if (names.hasValue(command))
        return out << names.getName(command);
    return out << "Command_e(" << static_cast<int32_t>(command) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
