#include "movie/FfmpegEncoder.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "movie/FfmpegDictionary.h"
#include "movie/FfmpegLog.h"

namespace vexhost {

void FfmpegEncoder::CodecCloser::operator()(AVCodecContext* codec) const {
    avcodec_free_context(&codec);
}

void FfmpegEncoder::FrameCloser::operator()(AVFrame* frame) const {
    av_frame_free(&frame);
}

void FfmpegEncoder::PacketCloser::operator()(AVPacket* packet) const {
    av_packet_free(&packet);
}

void FfmpegEncoder::ScalerCloser::operator()(SwsContext* scaler) const {
    sws_freeContext(scaler);
}

FfmpegEncoder::FfmpegEncoder(const MovieEncoding& encoding, const std::string& path,
                             const std::string& displayName, int width, int height,
                             AVRational frameRate)
    : width_(width), height_(height) {
    FfmpegLog::install();
    FfmpegLog::clear();

    output_ = std::make_unique<MovieOutput>(encoding, path, displayName);
    const AVCodec* codec = avcodec_find_encoder_by_name(encoding.encoder.c_str());
    if (codec == nullptr) {
        fail("has no encoder " + encoding.encoder, AVERROR_ENCODER_NOT_FOUND);
    }
    codec_.reset(avcodec_alloc_context3(codec));
    if (!codec_) {
        fail("cannot be set up", AVERROR(ENOMEM));
    }
    codec_->width = encoding.evenSize ? (width + 1) / 2 * 2 : width;
    codec_->height = encoding.evenSize ? (height + 1) / 2 * 2 : height;
    codec_->pix_fmt = encoding.pixelFormat;
    codec_->time_base = av_inv_q(frameRate);
    codec_->framerate = frameRate;
    codec_->sample_aspect_ratio = AVRational{1, 1};
    // One encoder thread: the renderer keeps the other cores busy while this worker encodes.
    codec_->thread_count = 1;
    if (encoding.qscale > 0) {
        codec_->flags |= AV_CODEC_FLAG_QSCALE;
        codec_->global_quality = FF_QP2LAMBDA * encoding.qscale;
    }
    if (encoding.pixelFormat == AV_PIX_FMT_YUV420P) {
        // The pictures are converted with the BT.601 matrix into limited range; say so, so players
        // convert back the same way.
        codec_->color_range = AVCOL_RANGE_MPEG;
        codec_->colorspace = AVCOL_SPC_SMPTE170M;
    }
    if (output_->wantsGlobalHeader()) {
        codec_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    FfmpegDictionary encoderOptions(encoding.encoderOptions);
    int error = avcodec_open2(codec_.get(), codec, encoderOptions.get());
    if (error < 0) {
        fail("cannot be encoded", error);
    }
    if (!encoderOptions.leftOver().empty()) {
        throw std::logic_error("FfmpegEncoder::FfmpegEncoder(): encoder " + encoding.encoder +
                               " has no option " + encoderOptions.leftOver());
    }
    AVStream* stream = output_->stream();
    error = avcodec_parameters_from_context(stream->codecpar, codec_.get());
    if (error < 0) {
        fail("cannot be set up", error);
    }
    stream->time_base = codec_->time_base;
    output_->start(frameRate, encoding.muxerOptions);

    frame_.reset(av_frame_alloc());
    packet_.reset(av_packet_alloc());
    if (!frame_ || !packet_) {
        fail("cannot be set up", AVERROR(ENOMEM));
    }
    frame_->format = codec_->pix_fmt;
    frame_->width = codec_->width;
    frame_->height = codec_->height;
    error = av_frame_get_buffer(frame_.get(), 0);
    if (error < 0) {
        fail("cannot be set up", error);
    }
    scaler_.reset(sws_getContext(codec_->width, codec_->height, AV_PIX_FMT_RGB24, codec_->width,
                                 codec_->height, codec_->pix_fmt,
                                 SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT, nullptr,
                                 nullptr, nullptr));
    if (!scaler_) {
        fail("has no conversion from RGB", AVERROR(EINVAL));
    }
}

FfmpegEncoder::~FfmpegEncoder() = default;

void FfmpegEncoder::write(const Image& frame) {
    if (frame.width != width_ || frame.height != height_ ||
        frame.rgb.size() != static_cast<std::size_t>(width_) * height_ * 3) {
        throw std::invalid_argument("FfmpegEncoder::write(): picture of " +
                                    std::to_string(frame.width) + " x " +
                                    std::to_string(frame.height) + " for a movie of " +
                                    std::to_string(width_) + " x " + std::to_string(height_));
    }
    // The converter's vector code reads up to 16 bytes past the end of its input, so the picture
    // goes to it through a buffer with room behind it, never straight from its own.
    const int sourceStride = codec_->width * 3;
    const std::size_t sourceSize = static_cast<std::size_t>(sourceStride) * codec_->height;
    padded_.resize(sourceSize + AV_INPUT_BUFFER_PADDING_SIZE);
    if (codec_->width == width_ && codec_->height == height_) {
        std::memcpy(padded_.data(), frame.rgb.data(), sourceSize);
    } else {
        const int pictureStride = width_ * 3;
        for (int y = 0; y < codec_->height; ++y) {
            const uint8_t* in = frame.rgb.data() +
                                static_cast<std::size_t>(std::min(y, height_ - 1)) * pictureStride;
            uint8_t* out = padded_.data() + static_cast<std::size_t>(y) * sourceStride;
            std::memcpy(out, in, static_cast<std::size_t>(pictureStride));
            for (int x = width_; x < codec_->width; ++x) {
                std::memcpy(out + 3 * x, in + 3 * (width_ - 1), 3);
            }
        }
    }
    const uint8_t* source = padded_.data();
    FfmpegLog::clear();
    int error = av_frame_make_writable(frame_.get());
    if (error < 0) {
        fail("cannot be encoded", error);
    }
    sws_scale(scaler_.get(), &source, &sourceStride, 0, codec_->height, frame_->data,
              frame_->linesize);
    frame_->pts = nextTimestamp_++;
    // Encoders with a fixed quantiser take it from each frame, not from the codec context.
    frame_->quality = codec_->global_quality;
    encode(frame_.get());
}

void FfmpegEncoder::finish() {
    FfmpegLog::clear();
    encode(nullptr);
    output_->finish();
}

void FfmpegEncoder::encode(const AVFrame* frame) {
    int error = avcodec_send_frame(codec_.get(), frame);
    if (error < 0) {
        fail("cannot be encoded", error);
    }
    for (;;) {
        error = avcodec_receive_packet(codec_.get(), packet_.get());
        if (error == AVERROR(EAGAIN) || error == AVERROR_EOF) {
            return;
        }
        if (error < 0) {
            fail("cannot be encoded", error);
        }
        av_packet_rescale_ts(packet_.get(), codec_->time_base, output_->stream()->time_base);
        // Takes the packet's data and leaves it empty for the next one.
        output_->write(packet_.get());
    }
}

void FfmpegEncoder::fail(const std::string& what, int errorCode) const {
    output_->fail(what, errorCode);
}

}  // namespace vexhost
