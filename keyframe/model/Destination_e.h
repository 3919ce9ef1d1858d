#ifndef VEXUTILTOOLS_DESTINATION_E_H
#define VEXUTILTOOLS_DESTINATION_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// Where the frames of an animation go. Any value other than OnScreen ends the animator chain in
// the export stage.
enum class Destination_e : int32_t {
    OnScreen = 0,  // each frame is drawn by the host
    ToFile = 1     // each frame is exported as one frame of a movie file
};

// The names of the destinations, the values of the macro parameter AnimationDestination, matched
// without regard to case. Beside the enumeration rather than with the macro commands, so that the
// printer below and the macro parameters share it without the model depending on macro/.
template <>
const NameTable<Destination_e>& NameTable<Destination_e>::instance();

// Prints the name ("ToFile"), or Destination_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, Destination_e destination);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
