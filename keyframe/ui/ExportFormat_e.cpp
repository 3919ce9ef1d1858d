#include "ui/ExportFormat_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

std::ostream& operator<<(std::ostream& out, ExportFormat_e value) {
    switch (value) {
        case ExportFormat_e::RasterMetafile:
            return out << "RasterMetafile";
        case ExportFormat_e::AVI:
            return out << "AVI";
        case ExportFormat_e::Flash:
            return out << "Flash";
        case ExportFormat_e::FLV:
            return out << "FLV";
        case ExportFormat_e::MPEG4:
            return out << "MPEG4";
        case ExportFormat_e::WMV:
            return out << "WMV";
    }
    return out << "ExportFormat_e(" << static_cast<int32_t>(value) << ')';
}

}  // namespace vexutiltools
}  // namespace vexplot
