#ifndef VEXUTILTOOLS_TIMEANIMATIONOPERATION_E_H
#define VEXUTILTOOLS_TIMEANIMATIONOPERATION_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// How an animation steps the host's solution time alongside the views. The numbers are those of
// the settings file and are kept; a value outside the list (read from elsewhere) configures no
// time stepping at all.
enum class TimeAnimationOperation_e : int32_t {
    Forward = 0,    // minimum to maximum of the data set's times, once
    Loop = 1,       // minimum to maximum, NumCycles times
    Bounce = 2,     // minimum to maximum and back, NumCycles times
    AsCaptured = 3  // from each key frame's captured solution time to the next one's
};

// The names of the operations as key frame settings files write them, matched without regard to
// case. Beside the enumeration rather than with the file, so that the printer below and the file
// share it without the model depending on file/.
template <>
const NameTable<TimeAnimationOperation_e>& NameTable<TimeAnimationOperation_e>::instance();

// Prints the name ("AsCaptured"), or TimeAnimationOperation_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, TimeAnimationOperation_e operation);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
