// One movie file being encoded with FFmpeg: container, encoder, pixel conversion. Frames go in one
// at a time; finish() completes the file. Dropping an encoder that was not finished closes the file
// as it stands (incomplete). Used by one thread at a time.
#ifndef VEXHOST_MOVIE_FFMPEGENCODER_H
#define VEXHOST_MOVIE_FFMPEGENCODER_H

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswscale/swscale.h>
}

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "movie/MovieEncoding.h"
#include "movie/MovieOutput.h"
#include "vexhost/Image.h"

namespace vexhost {

class FfmpegEncoder {
public:
    // Creates the file at path and writes the container header. width and height are the
    // pictures' size; the encoded size may be one larger (MovieEncoding::evenSize). Messages name
    // the movie by displayName. Throws std::runtime_error naming the cause.
    FfmpegEncoder(const MovieEncoding& encoding, const std::string& path,
                  const std::string& displayName, int width, int height, AVRational frameRate);
    ~FfmpegEncoder();
    FfmpegEncoder(const FfmpegEncoder&) = delete;
    FfmpegEncoder& operator=(const FfmpegEncoder&) = delete;

    // frame must have the size given at construction. Throws std::runtime_error naming the cause.
    void write(const Image& frame);
    // Drains the encoder, writes the container's index and closes the file. Throws
    // std::runtime_error naming the cause.
    void finish();

    int encodedWidth() const { return codec_->width; }
    int encodedHeight() const { return codec_->height; }

private:
    struct CodecCloser {
        void operator()(AVCodecContext* codec) const;
    };
    struct FrameCloser {
        void operator()(AVFrame* frame) const;
    };
    struct PacketCloser {
        void operator()(AVPacket* packet) const;
    };
    struct ScalerCloser {
        void operator()(SwsContext* scaler) const;
    };

    // Sends frame (nullptr: end of stream) and writes every packet the encoder has ready.
    void encode(const AVFrame* frame);
    [[noreturn]] void fail(const std::string& what, int errorCode) const;

    int width_ = 0;
    int height_ = 0;
    int64_t nextTimestamp_ = 0;
    std::unique_ptr<MovieOutput> output_;
    std::unique_ptr<AVCodecContext, CodecCloser> codec_;
    std::unique_ptr<AVFrame, FrameCloser> frame_;
    std::unique_ptr<AVPacket, PacketCloser> packet_;
    std::unique_ptr<SwsContext, ScalerCloser> scaler_;
    // The picture as the converter reads it: grown to the encoded size when that differs, with
    // AV_INPUT_BUFFER_PADDING_SIZE bytes behind it.
    std::vector<uint8_t> padded_;
};

}  // namespace vexhost

#endif
