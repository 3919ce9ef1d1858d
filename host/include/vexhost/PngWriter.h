// Stills: writes a picture as an 8-bit RGB PNG file.
#ifndef VEXHOST_PNGWRITER_H
#define VEXHOST_PNGWRITER_H

#include <string>

#include "vexhost/Image.h"

namespace vexhost {

// Replaces any file at path. Throws std::runtime_error naming the path and the cause when the file
// cannot be written (nothing is left behind then), and std::invalid_argument for an empty picture
// or one whose pixel array does not match its size.
void writePng(const std::string& path, const Image& image);

}  // namespace vexhost

#endif
