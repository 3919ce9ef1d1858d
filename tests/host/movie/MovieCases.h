// The movie formats as the movie tests go through them (each a case of a parameterised test), and
// the test pictures they encode.
#ifndef VEXTEST_HOST_MOVIE_MOVIECASES_H
#define VEXTEST_HOST_MOVIE_MOVIECASES_H

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>

#include "vexhost/ExportSettings.h"
#include "vexhost/Image.h"

namespace vextest {

struct MovieCase {
    const char* name;
    int format;
    int flashImageType;
    int flashCompressionType;
    const char* extension;
    const char* container;  // ffprobe's format_name
    const char* codec;      // ffprobe's codec_name
    bool evenSizeOnly;
};

inline std::ostream& operator<<(std::ostream& out, const MovieCase& c) {
    return out << c.name;
}

inline const MovieCase kMovieCases[] = {
    {"Mpeg4", 21, 0, 0, "mp4", "mov,mp4,m4a,3gp,3g2,mj2", "h264", true},
    {"Avi", 14, 0, 0, "avi", "avi", "mjpeg", false},
    {"FlashVideo", 20, 0, 0, "flv", "flv", "flv1", false},
    {"FlashTrueColor", 17, 0, 0, "swf", "swf", "flv1", false},
    {"FlashTrueColorSmallest", 17, 0, 1, "swf", "swf", "flv1", false},
    {"FlashJpeg", 17, 1, 0, "swf", "swf", "mjpeg", false},
    {"Flash256Colors", 17, 2, 1, "swf", "swf", "flv1", false},
    {"Wmv", 22, 0, 0, "wmv", "asf", "wmv2", true},
    {"RasterMetafile", 0, 0, 0, "rm", "apng", "apng", false},
};

// The export settings of a case's movie at 10 frames per second, written to fileName.
inline vexhost::ExportSettings movieSettings(const MovieCase& c, const std::string& fileName) {
    vexhost::ExportSettings settings;
    settings.format = c.format;
    settings.flashImageType = c.flashImageType;
    settings.flashCompressionType = c.flashCompressionType;
    settings.animationSpeed = 10;
    settings.fileName = fileName;
    return settings;
}

// A picture that changes from frame to frame: a gradient with a bar moving across.
inline vexhost::Image testFrame(int width, int height, int index) {
    vexhost::Image image;
    image.width = width;
    image.height = height;
    image.rgb.resize(static_cast<std::size_t>(width) * height * 3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            uint8_t* p = &image.rgb[(static_cast<std::size_t>(y) * width + x) * 3];
            const bool bar = x / 8 == index % (width / 8 + 1);
            p[0] = static_cast<uint8_t>(bar ? 255 : 255 * x / width);
            p[1] = static_cast<uint8_t>(bar ? 255 : 255 * y / height);
            p[2] = static_cast<uint8_t>(bar ? 255 : 40 * index);
        }
    }
    return image;
}

}  // namespace vextest

#endif
