#include "ContactSheet.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace vexplot {
namespace path {

namespace {

// The studio's and the pictures' dark background, a shade darker, so tiles stand apart.
constexpr uint8_t Background[3] = {12, 13, 18};

}  // namespace

vexhost::Image ContactSheet::compose(const std::vector<vexhost::Image>& pictures, int columns) {
    if (pictures.empty())
        throw std::invalid_argument("ContactSheet::compose(): no picture");
    if (columns < 1)
        throw std::invalid_argument("ContactSheet::compose(): " + std::to_string(columns) +
                                    " columns");
    const int width = pictures.front().width;
    const int height = pictures.front().height;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const vexhost::Image& picture = pictures[i];
        if (picture.width <= 0 || picture.height <= 0 || picture.width != width ||
            picture.height != height ||
            picture.rgb.size() != static_cast<std::size_t>(width) * height * 3)
            throw std::invalid_argument(
                "ContactSheet::compose(): picture " + std::to_string(i + 1) + " is " +
                std::to_string(picture.width) + " x " + std::to_string(picture.height) + ", not " +
                std::to_string(width) + " x " + std::to_string(height));
    }
    const int count = static_cast<int>(pictures.size());
    const int across = std::min(columns, count);
    const int down = (count + across - 1) / across;
    vexhost::Image sheet;
    sheet.width = across * width + (across + 1) * Gap;
    sheet.height = down * height + (down + 1) * Gap;
    sheet.rgb.resize(static_cast<std::size_t>(sheet.width) * sheet.height * 3);
    for (std::size_t p = 0; p < sheet.rgb.size(); p += 3)
        std::memcpy(&sheet.rgb[p], Background, 3);
    for (int i = 0; i < count; ++i) {
        const int left = Gap + (i % across) * (width + Gap);
        const int top = Gap + (i / across) * (height + Gap);
        for (int y = 0; y < height; ++y) {
            std::memcpy(&sheet.rgb[(static_cast<std::size_t>(top + y) * sheet.width + left) * 3],
                        &pictures[i].rgb[static_cast<std::size_t>(y) * width * 3],
                        static_cast<std::size_t>(width) * 3);
        }
    }
    return sheet;
}

}  // namespace path
}  // namespace vexplot
