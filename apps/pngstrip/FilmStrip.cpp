#include "FilmStrip.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace pngstrip {

vexhost::Image FilmStrip::join(const std::vector<vexhost::Image>& pictures, int gap) {
    if (pictures.empty())
        throw std::invalid_argument("There is no picture to put in the strip.");
    if (gap < 0)
        throw std::invalid_argument("The gap between pictures is " + std::to_string(gap) +
                                    " pixels; it cannot be negative.");
    const int height = pictures.front().height;
    int width = 0;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const vexhost::Image& picture = pictures[i];
        if (picture.empty() ||
            picture.rgb.size() != static_cast<std::size_t>(picture.width) * picture.height * 3)
            throw std::invalid_argument("Picture " + std::to_string(i + 1) + " is empty.");
        if (picture.height != height)
            throw std::invalid_argument(
                "Picture " + std::to_string(i + 1) + " is " + std::to_string(picture.height) +
                " pixels high; the first is " + std::to_string(height) + ".");
        width += picture.width + (i > 0 ? gap : 0);
    }
    vexhost::Image strip;
    strip.width = width;
    strip.height = height;
    strip.rgb.assign(static_cast<std::size_t>(width) * height * 3, 0);
    std::size_t left = 0;  // in bytes along a row
    for (const vexhost::Image& picture : pictures) {
        const std::size_t row = static_cast<std::size_t>(picture.width) * 3;
        for (int y = 0; y < height; ++y)
            std::memcpy(&strip.rgb[static_cast<std::size_t>(y) * width * 3 + left],
                        &picture.rgb[static_cast<std::size_t>(y) * row], row);
        left += row + static_cast<std::size_t>(gap) * 3;
    }
    return strip;
}

}  // namespace pngstrip
