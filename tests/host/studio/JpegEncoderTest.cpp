// Pictures for the page as JPEG files that decode back to the picture.
#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <stdexcept>

#include "studio/JpegEncoder.h"

namespace {

using vexhost::Image;
using vexhost::studio::JpegEncoder;

TEST(JpegEncoderTest, APictureComesBackAfterDecoding) {
    Image image;
    image.width = 64;
    image.height = 32;
    image.rgb.resize(64 * 32 * 3);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x) {
            uint8_t* p = &image.rgb[(y * 64 + x) * 3];
            p[0] = x < 32 ? 220 : 20;  // red left, blue right
            p[1] = 40;
            p[2] = x < 32 ? 20 : 220;
        }
    JpegEncoder encoder;
    std::vector<uint8_t> jpeg = {1, 2};  // appended to, not replaced
    encoder.encode(image, 85, jpeg);
    ASSERT_GT(jpeg.size(), 4u);
    EXPECT_EQ(1, jpeg[0]);
    EXPECT_EQ(0xFF, jpeg[2]);
    EXPECT_EQ(0xD8, jpeg[3]);

    tjhandle decoder = tjInitDecompress();
    int width = 0, height = 0, subsampling = 0, colourspace = 0;
    ASSERT_EQ(0, tjDecompressHeader3(decoder, jpeg.data() + 2, jpeg.size() - 2, &width, &height,
                                     &subsampling, &colourspace));
    EXPECT_EQ(64, width);
    EXPECT_EQ(32, height);
    std::vector<uint8_t> rgb(64 * 32 * 3);
    ASSERT_EQ(0, tjDecompress2(decoder, jpeg.data() + 2, jpeg.size() - 2, rgb.data(), 64, 0, 32,
                               TJPF_RGB, 0));
    tjDestroy(decoder);
    const uint8_t* left = &rgb[(16 * 64 + 8) * 3];
    const uint8_t* right = &rgb[(16 * 64 + 56) * 3];
    EXPECT_NEAR(220, left[0], 12);
    EXPECT_NEAR(20, left[2], 12);
    EXPECT_NEAR(20, right[0], 12);
    EXPECT_NEAR(220, right[2], 12);
}

TEST(JpegEncoderTest, AnEmptyPictureIsAnError) {
    JpegEncoder encoder;
    std::vector<uint8_t> jpeg;
    EXPECT_THROW(encoder.encode(Image(), 85, jpeg), std::runtime_error);
    EXPECT_TRUE(jpeg.empty());
}

}  // namespace
