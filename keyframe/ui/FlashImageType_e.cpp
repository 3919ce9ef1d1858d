#include "ui/FlashImageType_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const ExportSetupTable<FlashImageType_e>& ExportSetupTable<FlashImageType_e>::instance() {
    static const ExportSetupTable<FlashImageType_e> table{
        "FlashImageType",
        {{FlashImageType_e::Lossless, "Lossless", "LOSSLESS", "True Color"},
         {FlashImageType_e::JPEG, "JPEG", "JPEG", "JPEG"},
         {FlashImageType_e::Color256, "Color256", "256COLOR", "256 Colors"}}};
    return table;
}

std::ostream& operator<<(std::ostream& out, FlashImageType_e value) {
    return ExportSetupTable<FlashImageType_e>::instance().print(out, value, "FlashImageType_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
