#include "vexhost/PngReader.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace vexhost {

namespace {

// The file, closed with the scope.
class InputFile {
public:
    explicit InputFile(const std::string& path) : file_(std::fopen(path.c_str(), "rb")) {}
    ~InputFile() {
        if (file_ != nullptr)
            std::fclose(file_);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    std::FILE* get() const { return file_; }

private:
    std::FILE* file_;  // owned
};

// libpng's reading state, freed with the scope.
class PngImage {
public:
    PngImage() {
        std::memset(&png_, 0, sizeof png_);
        png_.version = PNG_IMAGE_VERSION;
    }
    ~PngImage() { png_image_free(&png_); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
    png_image& get() { return png_; }

private:
    png_image png_;
};

}  // namespace

Image readPng(const std::string& path) {
    // Opened here rather than by libpng, so that the system's reason for a refusal reaches the
    // message.
    InputFile file(path);
    if (file.get() == nullptr)
        throw std::runtime_error("Cannot read the picture file \"" + path +
                                 "\": " + std::strerror(errno));
    PngImage png;
    const auto fail = [&path, &png]() {
        return std::runtime_error("Cannot read the picture file \"" + path +
                                  "\": " + png.get().message);
    };
    if (png_image_begin_read_from_stdio(&png.get(), file.get()) == 0)
        throw fail();
    png.get().format = PNG_FORMAT_RGB;
    Image image;
    image.width = static_cast<int>(png.get().width);
    image.height = static_cast<int>(png.get().height);
    image.rgb.resize(PNG_IMAGE_SIZE(png.get()));
    if (png_image_finish_read(&png.get(), nullptr, image.rgb.data(), 0, nullptr) == 0)
        throw fail();
    return image;
}

}  // namespace vexhost
