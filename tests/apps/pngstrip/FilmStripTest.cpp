// pngstrip's strip of pictures: order, gaps, and what it refuses.
#include "FilmStrip.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using pngstrip::FilmStrip;

// A picture of one colour.
vexhost::Image filled(int width, int height, uint8_t r, uint8_t g, uint8_t b) {
    vexhost::Image image;
    image.width = width;
    image.height = height;
    for (int i = 0; i < width * height; ++i)
        image.rgb.insert(image.rgb.end(), {r, g, b});
    return image;
}

std::vector<uint8_t> pixel(const vexhost::Image& image, int x, int y) {
    const auto at = image.rgb.begin() + (static_cast<std::ptrdiff_t>(y) * image.width + x) * 3;
    return std::vector<uint8_t>(at, at + 3);
}

TEST(FilmStripTest, PicturesStandLeftToRightWithBlackGapsBetween) {
    const vexhost::Image strip =
        FilmStrip::join({filled(3, 2, 255, 0, 0), filled(2, 2, 0, 255, 0)}, 1);
    EXPECT_EQ(strip.width, 6);
    EXPECT_EQ(strip.height, 2);
    EXPECT_EQ(pixel(strip, 0, 1), (std::vector<uint8_t>{255, 0, 0}));
    EXPECT_EQ(pixel(strip, 2, 0), (std::vector<uint8_t>{255, 0, 0}));
    EXPECT_EQ(pixel(strip, 3, 1), (std::vector<uint8_t>{0, 0, 0})) << "the gap";
    EXPECT_EQ(pixel(strip, 4, 0), (std::vector<uint8_t>{0, 255, 0}));
    EXPECT_EQ(pixel(strip, 5, 1), (std::vector<uint8_t>{0, 255, 0}));
}

TEST(FilmStripTest, OnePictureIsTheStripAndAGapOfZeroJoinsEdgeToEdge) {
    const vexhost::Image one = filled(4, 3, 1, 2, 3);
    EXPECT_EQ(FilmStrip::join({one}).rgb, one.rgb);
    EXPECT_EQ(FilmStrip::join({one, one}, 0).width, 8);
    EXPECT_EQ(FilmStrip::join({one, one, one}).width, 4 * 3 + 2 * FilmStrip::DefaultGap);
}

struct BadStrip {
    const char* name;
    std::vector<vexhost::Image> pictures;
    int gap;
    const char* message;
};

TEST(FilmStripTest, RefusesWhatMakesNoStripNamingTheFault) {
    const std::vector<BadStrip> rows = {
        {"NoPicture", {}, 4, "There is no picture to put in the strip."},
        {"NegativeGap",
         {filled(2, 2, 0, 0, 0)},
         -1,
         "The gap between pictures is -1 pixels; it cannot be negative."},
        {"OtherHeight",
         {filled(2, 2, 0, 0, 0), filled(2, 3, 0, 0, 0)},
         4,
         "Picture 2 is 3 pixels high; the first is 2."},
        {"EmptyPicture", {filled(2, 2, 0, 0, 0), vexhost::Image()}, 4, "Picture 2 is empty."},
    };
    for (const BadStrip& row : rows) {
        try {
            FilmStrip::join(row.pictures, row.gap);
            ADD_FAILURE() << row.name << ": joined";
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(row.message, error.what()) << row.name;
        }
    }
}

}  // namespace
