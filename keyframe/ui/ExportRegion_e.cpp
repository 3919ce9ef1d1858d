#include "ui/ExportRegion_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

std::ostream& operator<<(std::ostream& out, ExportRegion_e value) {
    switch (value) {
        case ExportRegion_e::CurrentFrame:
            return out << "CurrentFrame";
        case ExportRegion_e::AllFrames:
            return out << "AllFrames";
        case ExportRegion_e::WorkArea:
            return out << "WorkArea";
    }
    return out << "ExportRegion_e(" << static_cast<int32_t>(value) << ')';
}

}  // namespace vexutiltools
}  // namespace vexplot
