#ifndef VEXUTILTOOLS_PARAMETER_E_H
#define VEXUTILTOOLS_PARAMETER_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The parameters of the add-on's macro commands. The numbers are fixed; the names are the words
// before the "=" of a command string ("FileName=x"), matched without regard to case through
// NameTable<Parameter_e>.
enum class Parameter_e : int32_t {
    FileName = 0,             // the settings file of OpenSettingsFile and SaveSettingsFile
    AnimationDestination = 1  // the destination of Animate, a name of NameTable<Destination_e>
};

template <>
const NameTable<Parameter_e>& NameTable<Parameter_e>::instance();

// Prints the name ("FileName"), or Parameter_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, Parameter_e parameter);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
