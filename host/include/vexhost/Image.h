// A picture: 8-bit RGB, rows from top to bottom, no padding between rows.
#ifndef VEXHOST_IMAGE_H
#define VEXHOST_IMAGE_H

#include <cstdint>
#include <vector>

namespace vexhost {

struct Image {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> rgb;  // width * height * 3 bytes

    bool empty() const { return width <= 0 || height <= 0; }
};

}  // namespace vexhost

#endif
