#ifndef VEXUTILTOOLS_EXPORTREGION_E_H
#define VEXUTILTOOLS_EXPORTREGION_E_H

#include <cstdint>
#include <iosfwd>

#include "ui/ExportSetupTable.h"

namespace vexplot {
namespace vexutiltools {

// The part of the host's screen that an export takes.
// The numbers are the host's own.
enum class ExportRegion_e : int32_t { CurrentFrame = 0, AllFrames = 1, WorkArea = 2 };

template <>
const ExportSetupTable<ExportRegion_e>& ExportSetupTable<ExportRegion_e>::instance();

// Prints the name, or ExportRegion_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, ExportRegion_e value);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
