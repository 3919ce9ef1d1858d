// Joining pieces packet by packet: each piece is read with FFmpeg's demuxer and its packets go to
// one muxer as they are. Each packet's timestamps are counted in frames from the piece's first
// picture, moved by the frames of the pieces before it and turned back into the container's time
// base, exactly as the encoder turns frame numbers into it: the joined movie's timestamps are
// those a single encoder would have written.
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "movie/FfmpegLog.h"
#include "movie/MovieOutput.h"
#include "movie/PieceJoiners.h"

namespace vexhost {
namespace {

struct InputCloser {
    void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
};
struct PacketFreer {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
using Input = std::unique_ptr<AVFormatContext, InputCloser>;

Input openPiece(const std::string& path) {
    AVFormatContext* format = nullptr;
    int error = avformat_open_input(&format, path.c_str(), nullptr, nullptr);
    if (error < 0)
        throw unreadablePiece(path, FfmpegLog::describe(error));
    Input input(format);
    error = avformat_find_stream_info(format, nullptr);
    if (error < 0)
        throw unreadablePiece(path, FfmpegLog::describe(error));
    if (format->nb_streams != 1 || format->streams[0]->codecpar->codec_type != AVMEDIA_TYPE_VIDEO)
        throw pieceFailure(path, "is not a movie of one video stream");
    return input;
}

// Whether a piece was encoded as the first one was: the same codec, picture size and format, and
// the same codec headers (H.264's parameter sets), which the joined movie keeps only once.
bool sameEncoding(const AVCodecParameters& a, const AVCodecParameters& b) {
    if (a.codec_id != b.codec_id || a.width != b.width || a.height != b.height ||
        a.format != b.format || a.extradata_size != b.extradata_size)
        return false;
    return a.extradata_size == 0 ||
           std::equal(a.extradata, a.extradata + a.extradata_size, b.extradata);
}

}  // namespace

WrittenMovie joinPackets(const MovieEncoding& encoding, AVRational frameRate,
                         const std::vector<std::string>& pieces, const std::string& output,
                         const std::string& displayName) {
    FfmpegLog::install();
    FfmpegLog::clear();
    MovieOutput movie(encoding, output, displayName);
    AVStream* out = movie.stream();
    const AVRational frameTime = av_inv_q(frameRate);
    std::unique_ptr<AVPacket, PacketFreer> packet(av_packet_alloc());
    if (!packet)
        movie.fail("cannot be set up", AVERROR(ENOMEM));
    WrittenMovie written;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Input input = openPiece(pieces[i]);
        const AVStream* in = input->streams[0];
        if (i == 0) {
            int error = avcodec_parameters_copy(out->codecpar, in->codecpar);
            if (error < 0)
                movie.fail("cannot be set up", error);
            // The container picks the tag for the codec, as it did for the piece.
            out->codecpar->codec_tag = 0;
            out->time_base = in->time_base;
            movie.start(frameRate, encoding.muxerOptions);
            written.encodedWidth = in->codecpar->width;
            written.encodedHeight = in->codecpar->height;
        } else if (!sameEncoding(*out->codecpar, *in->codecpar)) {
            throw piecesThatDiffer(pieces[i], pieces[0]);
        }
        const uint64_t framesBefore = written.frames;
        int64_t origin = AV_NOPTS_VALUE;  // the piece's first picture, in its time base
        // Some containers (SWF) mark no key frames at all; those that do must mark the first.
        bool firstIsKey = false, anyKey = false;
        // A timestamp of the piece, in the joined movie's time base.
        const auto moved = [&](int64_t timestamp) {
            if (timestamp == AV_NOPTS_VALUE)
                return timestamp;
            const int64_t frame = av_rescale_q(timestamp - origin, in->time_base, frameTime);
            return av_rescale_q(static_cast<int64_t>(framesBefore) + frame, frameTime,
                                out->time_base);
        };
        for (;;) {
            const int error = av_read_frame(input.get(), packet.get());
            if (error == AVERROR_EOF)
                break;
            if (error < 0)
                throw unreadablePiece(pieces[i], FfmpegLog::describe(error));
            const bool key = packet->flags & AV_PKT_FLAG_KEY;
            anyKey = anyKey || key;
            if (origin == AV_NOPTS_VALUE) {
                firstIsKey = key;
                origin = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
            }
            packet->pts = moved(packet->pts);
            packet->dts = moved(packet->dts);
            packet->duration = av_rescale_q(packet->duration, in->time_base, out->time_base);
            packet->pos = -1;
            movie.write(packet.get());
            ++written.frames;
        }
        if (anyKey && !firstIsKey)
            throw pieceFailure(pieces[i], "does not start with a key frame");
    }
    movie.finish();
    return written;
}

}  // namespace vexhost
