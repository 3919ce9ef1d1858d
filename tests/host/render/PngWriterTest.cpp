// Stills written with writePng, read back with libpng.
#include "vexhost/PngWriter.h"

#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "support/TemporaryDirectory.h"

namespace vexhost {
namespace {

namespace fs = std::filesystem;

Image readPng(const std::string& path) {
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    Image image;
    if (png_image_begin_read_from_file(&png, path.c_str()) == 0) {
        ADD_FAILURE() << "libpng cannot read " << path << ": " << png.message;
        return image;
    }
    png.format = PNG_FORMAT_RGB;
    image.width = static_cast<int>(png.width);
    image.height = static_cast<int>(png.height);
    image.rgb.resize(PNG_IMAGE_SIZE(png));
    if (png_image_finish_read(&png, nullptr, image.rgb.data(), 0, nullptr) == 0) {
        ADD_FAILURE() << "libpng cannot read " << path << ": " << png.message;
    }
    return image;
}

Image pattern(int width, int height) {
    Image image;
    image.width = width;
    image.height = height;
    image.rgb.resize(static_cast<std::size_t>(width) * height * 3);
    for (std::size_t i = 0; i < image.rgb.size(); ++i) {
        image.rgb[i] = static_cast<uint8_t>(i * 7 + i / 3);
    }
    return image;
}

class PngWriterTest : public ::testing::Test {
protected:
    const vextest::TemporaryDirectory scratch_{"vexhost-png"};
    const fs::path directory_ = scratch_.path();
};

TEST_F(PngWriterTest, PictureReadsBackWithTheSamePixels) {
    const Image original = pattern(37, 23);  // odd sizes: no row padding may creep in
    const std::string path = (directory_ / "still.png").string();
    writePng(path, original);
    const Image read = readPng(path);
    EXPECT_EQ(read.width, 37);
    EXPECT_EQ(read.height, 23);
    EXPECT_EQ(read.rgb, original.rgb);
}

TEST_F(PngWriterTest, ExistingFileIsReplaced) {
    const std::string path = (directory_ / "still.png").string();
    writePng(path, pattern(40, 30));
    const Image second = pattern(5, 4);
    writePng(path, second);
    EXPECT_EQ(readPng(path).rgb, second.rgb);
}

TEST_F(PngWriterTest, UnwritablePathThrowsNamingThePathAndTheCause) {
    const std::string path = (directory_ / "missing" / "still.png").string();
    try {
        writePng(path, pattern(4, 4));
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(std::string(e.what()),
                  "Cannot write the picture file \"" + path + "\": No such file or directory");
    }
}

TEST_F(PngWriterTest, PictureWhosePixelsDoNotMatchItsSizeIsAProgrammingError) {
    Image broken = pattern(4, 4);
    broken.rgb.pop_back();
    EXPECT_THROW(writePng((directory_ / "a.png").string(), broken), std::invalid_argument);
    EXPECT_THROW(writePng((directory_ / "b.png").string(), Image()), std::invalid_argument);
    EXPECT_TRUE(fs::is_empty(directory_));
}

}  // namespace
}  // namespace vexhost
