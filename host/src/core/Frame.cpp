#include "vexhost/Frame.h"

#include <cmath>
#include <stdexcept>

namespace vexhost {

void Frame::setPosAndSize(double x, double y, double width, double height) {
    if (!std::isfinite(x) || !std::isfinite(y) || !(width > 0) || !(height > 0) ||
        !std::isfinite(width) || !std::isfinite(height))
        throw std::invalid_argument(
            "Frame::setPosAndSize(): the frame needs a finite place and a "
            "size above 0");
    x_ = x;
    y_ = y;
    width_ = width;
    height_ = height;
}

}  // namespace vexhost
