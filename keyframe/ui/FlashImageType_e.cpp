#include "ui/FlashImageType_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

std::ostream& operator<<(std::ostream& out, FlashImageType_e value) {
    switch (value) {
        case FlashImageType_e::Lossless:
            return out << "Lossless";
        case FlashImageType_e::JPEG:
            return out << "JPEG";
        case FlashImageType_e::Color256:
            return out << "Color256";
    }
    return out << "FlashImageType_e(" << static_cast<int32_t>(value) << ')';
}

}  // namespace vexutiltools
}  // namespace vexplot
