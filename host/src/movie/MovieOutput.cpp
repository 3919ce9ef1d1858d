#include "movie/MovieOutput.h"

#include <stdexcept>

#include "movie/FfmpegDictionary.h"
#include "movie/FfmpegLog.h"

namespace vexhost {

void MovieOutput::FormatCloser::operator()(AVFormatContext* format) const {
    if (!(format->oformat->flags & AVFMT_NOFILE)) {
        avio_closep(&format->pb);
    }
    avformat_free_context(format);
}

MovieOutput::MovieOutput(const MovieEncoding& encoding, const std::string& path,
                         const std::string& displayName)
    : displayName_(displayName),
      description_(encoding.description),
      container_(encoding.container),
      path_(path) {
    AVFormatContext* format = nullptr;
    const int error =
        avformat_alloc_output_context2(&format, nullptr, container_.c_str(), path_.c_str());
    if (error < 0 || format == nullptr) {
        fail("has no container " + container_, error);
    }
    format_.reset(format);
    stream_ = avformat_new_stream(format_.get(), nullptr);
    if (stream_ == nullptr) {
        fail("cannot be set up", AVERROR(ENOMEM));
    }
}

MovieOutput::~MovieOutput() = default;

bool MovieOutput::wantsGlobalHeader() const {
    return format_->oformat->flags & AVFMT_GLOBALHEADER;
}

void MovieOutput::start(AVRational frameRate, const MovieEncoding::Options& muxerOptions) {
    stream_->avg_frame_rate = frameRate;
    stream_->r_frame_rate = frameRate;
    if (!(format_->oformat->flags & AVFMT_NOFILE)) {
        const int error = avio_open(&format_->pb, path_.c_str(), AVIO_FLAG_WRITE);
        if (error < 0) {
            char text[AV_ERROR_MAX_STRING_SIZE] = {};
            av_strerror(error, text, sizeof text);
            throw std::runtime_error(cannotWrite(displayName_, text));
        }
    }
    FfmpegDictionary options(muxerOptions);
    const int error = avformat_write_header(format_.get(), options.get());
    if (error < 0) {
        fail("cannot be written", error);
    }
    if (!options.leftOver().empty()) {
        throw std::logic_error("MovieOutput::start(): container " + container_ + " has no option " +
                               options.leftOver());
    }
}

void MovieOutput::write(AVPacket* packet) {
    packet->stream_index = stream_->index;
    const int error = av_interleaved_write_frame(format_.get(), packet);
    if (error < 0) {
        fail("cannot be written", error);
    }
}

void MovieOutput::finish() {
    const int error = av_write_trailer(format_.get());
    if (error < 0) {
        fail("cannot be completed", error);
    }
    if (!(format_->oformat->flags & AVFMT_NOFILE)) {
        avio_closep(&format_->pb);
    }
}

std::string MovieOutput::cannotWrite(const std::string& displayName, const std::string& cause) {
    return "Cannot write the movie file \"" + displayName + "\": " + cause;
}

void MovieOutput::fail(const std::string& what, int errorCode) const {
    std::string subject = "The movie \"" + displayName_ + "\"";
    if (!description_.empty()) {
        subject += " (" + description_ + ")";
    }
    throw std::runtime_error(subject + " " + what + ": " + FfmpegLog::describe(errorCode));
}

}  // namespace vexhost
