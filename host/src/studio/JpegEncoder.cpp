#include "studio/JpegEncoder.h"

#include <turbojpeg.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace vexhost {
namespace studio {

JpegEncoder::JpegEncoder() : handle_(tjInitCompress()) {
    if (handle_ == nullptr)
        throw std::runtime_error(std::string("JPEG: cannot start the compressor: ") +
                                 tjGetErrorStr2(nullptr));
}

JpegEncoder::~JpegEncoder() {
    tjDestroy(handle_);
}

void JpegEncoder::encode(const Image& image, int quality, std::vector<uint8_t>& out) {
    if (image.empty() ||
        image.rgb.size() != static_cast<std::size_t>(image.width) * image.height * 3)
        throw std::runtime_error("JPEG: the picture is empty");
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    // Fast DCT: the pictures are for a screen, and the time is the person's.
    const int status = tjCompress2(handle_, image.rgb.data(), image.width, 0, image.height,
                                   TJPF_RGB, &buffer, &size, TJSAMP_420, quality, TJFLAG_FASTDCT);
    const std::unique_ptr<unsigned char, void (*)(unsigned char*)> owned(buffer, tjFree);
    if (status != 0)
        throw std::runtime_error(std::string("JPEG: ") + tjGetErrorStr2(handle_));
    out.insert(out.end(), buffer, buffer + size);
}

}  // namespace studio
}  // namespace vexhost
