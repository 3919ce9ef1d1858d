#ifndef VEXUTILTOOLS_COMMAND_E_H
#define VEXUTILTOOLS_COMMAND_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The add-on's macro commands. The numbers are fixed; the names are the words of a command string
// ("OpenSettingsFile"), matched without regard to case through NameTable<Command_e>.
enum class Command_e : int32_t {
    OpenSettingsFile = 0,  // read a settings file into the main dialog's state
    SaveSettingsFile = 1,  // write the main dialog's state to a settings file
    Animate = 2            // run an animation over the whole key frame list
};

template <>
const NameTable<Command_e>& NameTable<Command_e>::instance();

// Prints the name ("Animate"), or Command_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, Command_e command);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
