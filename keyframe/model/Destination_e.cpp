#include "model/Destination_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

std::ostream& operator<<(std::ostream& out, Destination_e destination) {
    switch (destination) {
        case Destination_e::OnScreen:
            return out << "OnScreen";
        case Destination_e::ToFile:
            return out << "ToFile";
    }
    return out << "Destination_e(" << static_cast<int32_t>(destination) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
