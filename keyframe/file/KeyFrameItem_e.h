#ifndef VEXUTILTOOLS_KEYFRAMEITEM_E_H
#define VEXUTILTOOLS_KEYFRAMEITEM_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The items of a key frame section of a key frame settings file, in their order of writing. Names
// are matched without regard to case through NameTable<KeyFrameItem_e>.
enum class KeyFrameItem_e : int32_t {
    Name = 0,         // the name, in double quotation marks
    Position = 1,     // viewer position X Y Z
    Angle = 2,        // view angles Psi Theta Alpha, degrees
    Width = 3,        // view width
    FrameCount = 4,   // frames up to the next key frame
    SolutionTime = 5  // solution time at capture
};

template <>
const NameTable<KeyFrameItem_e>& NameTable<KeyFrameItem_e>::instance();

// Prints the name ("Position"), or KeyFrameItem_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, KeyFrameItem_e item);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
