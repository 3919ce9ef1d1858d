// A movie file as the export log tells of it once it is complete, in one sentence:
//   Wrote 91 frames of 1280 x 720 at 30 fps as H.264 in MP4 to "out/demo.mp4".
// with " (encoded at W x H, the codec takes even sizes only)" before the full stop when the codec
// padded the pictures. Written by the movie writer and by the joining of a team's pieces, so both
// read alike.
#ifndef VEXHOST_MOVIE_WRITTENMOVIE_H
#define VEXHOST_MOVIE_WRITTENMOVIE_H

#include <cstdint>
#include <string>

namespace vexhost {

struct WrittenMovie {
    uint64_t frames = 0;
    int width = 0;  // the pictures' size
    int height = 0;
    int encodedWidth = 0;  // the size the codec encoded
    int encodedHeight = 0;
    double framesPerSecond = 0;
    std::string description;  // MovieEncoding::description
    std::string fileName;

    std::string summary() const;
};

}  // namespace vexhost

#endif
