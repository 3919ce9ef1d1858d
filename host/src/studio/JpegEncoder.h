// Pictures as JPEG files for the page, through libjpeg-turbo's TurboJPEG interface. One encoder
// keeps its compressor for every picture; use it from one thread.
#ifndef VEXHOST_STUDIO_JPEGENCODER_H
#define VEXHOST_STUDIO_JPEGENCODER_H

#include <cstdint>
#include <vector>

#include "vexhost/Image.h"

namespace vexhost {
namespace studio {

class JpegEncoder {
public:
    // std::runtime_error when the compressor cannot be made.
    JpegEncoder();
    ~JpegEncoder();
    JpegEncoder(const JpegEncoder&) = delete;
    JpegEncoder& operator=(const JpegEncoder&) = delete;

    // quality 1..100; appends the JPEG file to `out`. std::runtime_error with TurboJPEG's message
    // when the picture cannot be encoded (an empty picture among them).
    void encode(const Image& image, int quality, std::vector<uint8_t>& out);

private:
    void* handle_;  // tjhandle
};

}  // namespace studio
}  // namespace vexhost

#endif
