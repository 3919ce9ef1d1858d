#ifndef VEXUTILTOOLS_FLASHIMAGETYPE_E_H
#define VEXUTILTOOLS_FLASHIMAGETYPE_E_H

#include <cstdint>
#include <iosfwd>

namespace vexplot {
namespace vexutiltools {

// How the Flash (SWF) format stores the pictures.
// The numbers are the host's own.
enum class FlashImageType_e : int32_t { Lossless = 0, JPEG = 1, Color256 = 2 };

// Prints the name, or FlashImageType_e(n) for a value outside the list.
std::ostream& operator<<(std::ostream& out, FlashImageType_e value);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
