#ifndef VEXUTILTOOLS_FLASHIMAGETYPE_E_H
#define VEXUTILTOOLS_FLASHIMAGETYPE_E_H

#include <cstdint>
#include <iosfwd>

#include "ui/ExportSetupTable.h"

namespace vexplot {
namespace vexutiltools {

// How the Flash (SWF) format stores the pictures.
// The numbers are the host's own.
enum class FlashImageType_e : int32_t { Lossless = 0, JPEG = 1, Color256 = 2 };

template <>
const ExportSetupTable<FlashImageType_e>& ExportSetupTable<FlashImageType_e>::instance();

// Prints the name, or FlashImageType_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, FlashImageType_e value);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
