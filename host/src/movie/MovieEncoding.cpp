#include "movie/MovieEncoding.h"

#include <vxsdkbase.h>

#include <stdexcept>
#include <string>

#include "core/ExportSetupAttribute.h"

namespace vexhost {
namespace {

MovieEncoding flv1(const std::string& container, int qscale, bool smallest) {
    MovieEncoding e;
    e.container = container;
    e.encoder = "flv";
    e.pixelFormat = AV_PIX_FMT_YUV420P;
    e.qscale = qscale;
    if (smallest) {
        e.encoderOptions = {{"mbd", "rd"}, {"trellis", "1"}};
    }
    return e;
}

MovieEncoding mjpeg(const std::string& container, int qscale) {
    MovieEncoding e;
    e.container = container;
    e.encoder = "mjpeg";
    // Full-range YUV, as JPEG pictures are.
    e.pixelFormat = AV_PIX_FMT_YUVJ420P;
    e.qscale = qscale;
    return e;
}

}  // namespace

MovieEncoding MovieEncoding::forSettings(const ExportSettings& settings) {
    MovieEncoding e;
    switch (settings.format) {
        case VexExportFormat_MPEG4:
            e.description = "H.264 in MP4";
            e.container = "mp4";
            e.encoder = "libx264";
            e.pixelFormat = AV_PIX_FMT_YUV420P;
            e.evenSize = true;
            e.encoderOptions = {{"preset", "veryfast"}, {"crf", "18"}};
            // The index goes to the front, so players can start before the whole file is there.
            e.muxerOptions = {{"movflags", "+faststart"}};
            return e;
        case VexExportFormat_AVI:
            e = mjpeg("avi", 3);
            e.description = "Motion JPEG in AVI";
            return e;
        case VexExportFormat_FLV:
            e = flv1("flv", 3, false);
            e.description = "FLV1 in FLV";
            return e;
        case VexExportFormat_Flash: {
            const bool smallest =
                settings.flashCompressionType == VexFlashCompressionType_SmallestSize;
            switch (settings.flashImageType) {
                case VexFlashImageType_Lossless:
                    e = flv1("swf", smallest ? 3 : 2, smallest);
                    e.description = "FLV1 in SWF (true colour)";
                    return e;
                case VexFlashImageType_JPEG:
                    e = mjpeg("swf", smallest ? 5 : 3);
                    e.description = "Motion JPEG in SWF";
                    return e;
                case VexFlashImageType_Color256:
                    e = flv1("swf", smallest ? 12 : 8, smallest);
                    e.description = "FLV1 in SWF (coarse)";
                    return e;
                default:
                    throw std::runtime_error(
                        "The Flash image type " + std::to_string(settings.flashImageType) +
                        " is not one of " +
                        ExportSetupAttribute::of(&ExportSettings::flashImageType).describeValues());
            }
        }
        case VexExportFormat_WMV:
            e.description = "WMV2 in ASF";
            e.container = "asf";
            e.encoder = "wmv2";
            e.pixelFormat = AV_PIX_FMT_YUV420P;
            e.evenSize = true;
            e.qscale = 3;
            return e;
        case VexExportFormat_RasterMetafile:
            e.description = "raster metafile (animated PNG)";
            e.container = "apng";
            e.encoder = "apng";
            e.pixelFormat = AV_PIX_FMT_RGB24;
            // The fastest deflate level with the Paeth row filter: lossless pictures are big, and
            // the default level makes the encoder nearly three times slower for files a third
            // smaller.
            e.encoderOptions = {{"pred", "paeth"}, {"compression_level", "1"}};
            e.joinsByChunks = true;
            return e;
        default:
            throw std::runtime_error(
                "The export format " + std::to_string(settings.format) +
                " does not make movies; the movie formats are " +
                ExportSetupAttribute::of(&ExportSettings::format).describeValues());
    }
}

AVRational MovieEncoding::frameRate(double framesPerSecond) {
    // Codecs of the MPEG family take time bases up to 65535 only; that still gives every speed the
    // export options allow (0.001 to 200 frames per second) closely.
    return av_d2q(framesPerSecond, 65535);
}

}  // namespace vexhost
