// Stills read back as they were written, and files that are no stills refused by name.
#include "vexhost/PngReader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include "support/TemporaryDirectory.h"
#include "vexhost/PngWriter.h"

namespace vexhost {
namespace {

TEST(PngReaderTest, ReadsBackWhatWasWrittenPixelForPixel) {
    vextest::TemporaryDirectory directory;
    Image written;
    written.width = 5;
    written.height = 3;
    for (int i = 0; i < 15; ++i)
        written.rgb.insert(written.rgb.end(),
                           {static_cast<uint8_t>(17 * i), static_cast<uint8_t>(255 - i), 7});
    writePng(directory.file("a.png"), written);
    const Image read = readPng(directory.file("a.png"));
    EXPECT_EQ(read.width, 5);
    EXPECT_EQ(read.height, 3);
    EXPECT_EQ(read.rgb, written.rgb);
}

TEST(PngReaderTest, MissingFileIsNamedWithTheSystemsReason) {
    vextest::TemporaryDirectory directory;
    const std::string path = directory.file("none.png");
    try {
        readPng(path);
        FAIL() << "read a missing file";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()),
                  "Cannot read the picture file \"" + path + "\": No such file or directory");
    }
}

TEST(PngReaderTest, FileThatIsNoPngIsRefusedByName) {
    vextest::TemporaryDirectory directory;
    const std::string path = directory.file("text.png");
    std::ofstream(path) << "not a picture";
    try {
        readPng(path);
        FAIL() << "read a text file";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(
            std::string(error.what()).rfind("Cannot read the picture file \"" + path + "\": ", 0),
            0u)
            << error.what();
    }
}

}  // namespace
}  // namespace vexhost
