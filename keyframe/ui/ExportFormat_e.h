#ifndef VEXUTILTOOLS_EXPORTFORMAT_E_H
#define VEXUTILTOOLS_EXPORTFORMAT_E_H

#include <cstdint>
#include <iosfwd>

#include "ui/ExportSetupTable.h"

namespace vexplot {
namespace vexutiltools {

// The movie formats the export options offer, by the host's export format numbers.
// The numbers are the host's own.
enum class ExportFormat_e : int32_t {
    RasterMetafile = 0,
    AVI = 14,
    Flash = 17,
    FLV = 20,
    MPEG4 = 21,
    WMV = 22
};

template <>
const ExportSetupTable<ExportFormat_e>& ExportSetupTable<ExportFormat_e>::instance();

// Prints the name, or ExportFormat_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, ExportFormat_e value);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
