// How a movie of one export setup is encoded: container, codec, pixel format and quality.
//
// | format               | container | codec                  | quality                       |
// |----------------------|-----------|------------------------|-------------------------------|
// | 21 "MPEG-4"          | MP4       | H.264 (libx264)        | crf 18, preset veryfast       |
// | 14 "AVI"             | AVI       | Motion JPEG            | qscale 3                      |
// | 20 "Flash (FLV)"     | FLV       | FLV1                   | qscale 3                      |
// | 17 "Flash (SWF)"     | SWF       | by flashImageType:     | by flashCompressionType:      |
// |                      |           |  0 True Color: FLV1    |  speed: qscale 2; size: 3     |
// |                      |           |  1 JPEG: Motion JPEG   |  speed: qscale 3; size: 5     |
// |                      |           |  2 256 Colors: FLV1    |  speed: qscale 8; size: 12    |
// | 22 "WMV"             | ASF       | WMV2                   | qscale 3                      |
// | 0 "Raster Metafile"  | APNG      | APNG (lossless)        | paeth filter, deflate level 1 |
//
// "Optimize for File Size" also makes the FLV1 encoder search harder (rate-distortion macroblock
// decisions, trellis quantisation); any compression value other than 1 counts as "Optimize for
// Speed", as the export options dialog stores 255 when neither button is chosen. The raster
// metafile is an animated PNG: lossless, true colour, and readable by browsers and most image and
// movie tools.
#ifndef VEXHOST_MOVIE_MOVIEENCODING_H
#define VEXHOST_MOVIE_MOVIEENCODING_H

extern "C" {
#include <libavutil/pixfmt.h>
#include <libavutil/rational.h>
}

#include <string>
#include <utility>
#include <vector>

#include "vexhost/ExportSettings.h"

namespace vexhost {

struct MovieEncoding {
    using Options = std::vector<std::pair<std::string, std::string>>;

    std::string description;  // "H.264 in MP4", for summaries and messages
    std::string container;    // FFmpeg muxer name; never guessed from the file name
    std::string encoder;      // FFmpeg encoder name
    AVPixelFormat pixelFormat = AV_PIX_FMT_NONE;
    // The codec takes even sizes only: an odd width or height is padded by one column or row
    // that repeats the picture's edge.
    bool evenSize = false;
    int qscale = 0;  // fixed quantiser; 0 when the codec's own options set the quality
    Options encoderOptions;
    Options muxerOptions;
    // A team's pieces of the movie are joined chunk by chunk by the format's own rules (the raster
    // metafile: an animated PNG numbers its chunks across the file, and only its first frame is a
    // plain PNG picture); otherwise packet by packet through FFmpeg's muxer.
    bool joinsByChunks = false;

    // Throws std::runtime_error for a format that makes no movie (ExportSetupAttribute::
    // isMovieFormat), or a Flash image type out of range (with the Flash format).
    static MovieEncoding forSettings(const ExportSettings& settings);
    // The frame rate FFmpeg is given for an animation speed (frames per second, above 0).
    static AVRational frameRate(double framesPerSecond);
};

}  // namespace vexhost

#endif
