#include "model/TimeAnimationOperation_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

std::ostream& operator<<(std::ostream& out, TimeAnimationOperation_e operation) {
    switch (operation) {
        case TimeAnimationOperation_e::Forward:
            return out << "Forward";
        case TimeAnimationOperation_e::Loop:
            return out << "Loop";
        case TimeAnimationOperation_e::Bounce:
            return out << "Bounce";
        case TimeAnimationOperation_e::AsCaptured:
            return out << "AsCaptured";
    }
    return out << "TimeAnimationOperation_e(" << static_cast<int32_t>(operation) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
