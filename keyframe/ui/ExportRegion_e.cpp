#include "ui/ExportRegion_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const ExportSetupTable<ExportRegion_e>& ExportSetupTable<ExportRegion_e>::instance() {
    static const ExportSetupTable<ExportRegion_e> table{
        "ExportRegion",
        {{ExportRegion_e::CurrentFrame, "CurrentFrame", "CURRENTFRAME", "Active Frame"},
         {ExportRegion_e::AllFrames, "AllFrames", "ALLFRAMES", "All Frames"},
         {ExportRegion_e::WorkArea, "WorkArea", "WORKAREA", "Work Area"}}};
    return table;
}

std::ostream& operator<<(std::ostream& out, ExportRegion_e value) {
    return ExportSetupTable<ExportRegion_e>::instance().print(out, value, "ExportRegion_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
