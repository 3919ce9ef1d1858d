#ifndef VEXUTILTOOLS_DESTINATIONNAMETABLE_H
#define VEXUTILTOOLS_DESTINATIONNAMETABLE_H

#include "model/Destination_e.h"
#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The names of the animation destinations in macro command strings: "OnScreen" = 0, "ToFile" = 1
// (the value of the parameter AnimationDestination), matched without regard to case. Include this
// header wherever NameTable<Destination_e>::instance() is used. Destination_e's own printer
// (model/Destination_e.h) spells the same names.
template <>
const NameTable<Destination_e>& NameTable<Destination_e>::instance();

}  // namespace vexutiltools
}  // namespace vexplot

#endif
