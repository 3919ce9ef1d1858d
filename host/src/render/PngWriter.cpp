#include "vexhost/PngWriter.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace vexhost {

void writePng(const std::string& path, const Image& image) {
    if (image.empty() ||
        image.rgb.size() != static_cast<std::size_t>(image.width) * image.height * 3) {
        throw std::invalid_argument("writePng(): picture of " + std::to_string(image.width) +
                                    " x " + std::to_string(image.height) + " with " +
                                    std::to_string(image.rgb.size()) + " bytes");
    }
    // Opened here rather than by libpng, so that the system's reason for a refusal reaches the
    // message.
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        throw std::runtime_error("Cannot write the picture file \"" + path +
                                 "\": " + std::strerror(errno));
    }
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGB;
    const bool written =
        png_image_write_to_stdio(&png, file, 0, image.rgb.data(), image.width * 3, nullptr) != 0;
    png_image_free(&png);  // keeps png.message
    // A full disk shows only when the buffered end of the file is written out.
    int systemError = 0;
    if (written && std::fflush(file) != 0) {
        systemError = errno;
    }
    if (std::fclose(file) != 0 && systemError == 0) {
        systemError = errno;
    }
    if (!written || systemError != 0) {
        std::remove(path.c_str());
        throw std::runtime_error("Cannot write the picture file \"" + path + "\": " +
                                 std::string(!written ? png.message : std::strerror(systemError)));
    }
}

}  // namespace vexhost
