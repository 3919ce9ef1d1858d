#ifndef VEXUTILTOOLS_DESTINATION_E_H
#define VEXUTILTOOLS_DESTINATION_E_H

#include <cstdint>
#include <iosfwd>

namespace vexplot {
namespace vexutiltools {

// Where the frames of an animation go. Any value other than OnScreen ends the animator chain in
// the export stage.
enum class Destination_e : int32_t {
    OnScreen = 0,  // each frame is drawn by the host
    ToFile = 1     // each frame is exported as one frame of a movie file
};

// Prints the name ("ToFile"), or Destination_e(n) for a value outside the list.
std::ostream& operator<<(std::ostream& out, Destination_e destination);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
