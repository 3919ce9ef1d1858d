// Stills read back: any PNG file (grey, palette, with or without alpha, 8 or 16 bits) as an 8-bit
// RGB picture. A picture with alpha is composed onto black (the host's own stills have none).
#ifndef VEXHOST_PNGREADER_H
#define VEXHOST_PNGREADER_H

#include <string>

#include "vexhost/Image.h"

namespace vexhost {

// Throws std::runtime_error naming the path and the cause when the file cannot be opened or is not
// a PNG file that can be read.
Image readPng(const std::string& path);

}  // namespace vexhost

#endif
