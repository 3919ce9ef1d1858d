#ifndef VEXUTILTOOLS_FILESECTION_E_H
#define VEXUTILTOOLS_FILESECTION_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The sections of a key frame settings file. A section's name opens it and, repeated, ends it.
// Names are matched without regard to case through NameTable<FileSection_e>.
enum class FileSection_e : int32_t {
    Settings = 0,     // "%Settings": the animation settings
    KeyFrameView = 1  // "%KeyFrameView": one key frame
};

template <>
const NameTable<FileSection_e>& NameTable<FileSection_e>::instance();

// Prints the name ("%Settings"), or FileSection_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, FileSection_e section);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
