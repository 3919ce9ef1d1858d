// One movie file being written with FFmpeg's muxer: the container of a movie encoding with one
// video stream, fed packets that are encoded already (by FfmpegEncoder, or taken from a team's
// pieces when they are joined). Dropping an output that was not finished closes the file as it
// stands (incomplete). Messages name the movie by its display name:
//   The movie "film.mp4" (H.264 in MP4) cannot be written: <FFmpeg's reason>
#ifndef VEXHOST_MOVIE_MOVIEOUTPUT_H
#define VEXHOST_MOVIE_MOVIEOUTPUT_H

extern "C" {
#include <libavformat/avformat.h>
}

#include <memory>
#include <string>

#include "movie/MovieEncoding.h"

namespace vexhost {

class MovieOutput {
public:
    // Sets up the container encoding.container for a file at path, not created yet, with one
    // stream. Throws std::runtime_error naming the cause.
    MovieOutput(const MovieEncoding& encoding, const std::string& path,
                const std::string& displayName);
    ~MovieOutput();
    MovieOutput(const MovieOutput&) = delete;
    MovieOutput& operator=(const MovieOutput&) = delete;

    // The stream, whose codec parameters and time base the caller sets before start().
    AVStream* stream() const { return stream_; }
    // Whether the container keeps the codec's headers itself (AV_CODEC_FLAG_GLOBAL_HEADER).
    bool wantsGlobalHeader() const;

    // Creates the file and writes the container's header, with the stream's frame rate. The
    // stream's time base may change here (the container chooses its own). Throws
    // std::runtime_error naming the cause; std::logic_error for an option the container lacks.
    void start(AVRational frameRate, const MovieEncoding::Options& muxerOptions);
    // Writes one packet in the stream's time base; takes its data and leaves it empty.
    void write(AVPacket* packet);
    // Writes the container's index and closes the file.
    void finish();

    // Throws std::runtime_error: the movie, then `what`, then FFmpeg's reason for errorCode.
    [[noreturn]] void fail(const std::string& what, int errorCode) const;

    // What the user reads when a movie's file cannot be written: Cannot write the movie file
    // "<display name>": <cause>
    static std::string cannotWrite(const std::string& displayName, const std::string& cause);

private:
    struct FormatCloser {
        void operator()(AVFormatContext* format) const;
    };

    std::string displayName_;
    std::string description_;
    std::string container_;
    std::string path_;
    std::unique_ptr<AVFormatContext, FormatCloser> format_;
    AVStream* stream_ = nullptr;  // owned by format_
};

}  // namespace vexhost

#endif
