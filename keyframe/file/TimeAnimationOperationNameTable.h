#ifndef VEXUTILTOOLS_TIMEANIMATIONOPERATIONNAMETABLE_H
#define VEXUTILTOOLS_TIMEANIMATIONOPERATIONNAMETABLE_H

#include "model/NameTable.h"
#include "model/TimeAnimationOperation_e.h"

namespace vexplot {
namespace vexutiltools {

// The names of the time animation operations in key frame settings files: "Forward" = 0,
// "Loop" = 1, "Bounce" = 2, "AsCaptured" = 3, matched without regard to case. Include this header
// wherever NameTable<TimeAnimationOperation_e>::instance() is used. TimeAnimationOperation_e's own
// printer (model/TimeAnimationOperation_e.h) spells the same names.
template <>
const NameTable<TimeAnimationOperation_e>& NameTable<TimeAnimationOperation_e>::instance();

}  // namespace vexutiltools
}  // namespace vexplot

#endif
