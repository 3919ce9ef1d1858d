// The host's movie writer: encodes the exported pictures with FFmpeg on a worker thread.
//
// Pictures go through a queue of kQueuedFrames to the worker, so the next frame is drawn while the
// last one is encoded. A failure on the worker is reported by the next addFrame() or finish().
// The movie is written to "<file name>.partial" and renamed to the file name by finish(), so a
// canceled or failed export leaves no file behind and an older movie of the same name intact.
//
// States: unopened -> open (open()) -> finished (finish()) or canceled (cancel()); a failed
// open() leaves it unopened, a failed finish() leaves it failed. Calls out of order are
// programming errors (std::logic_error naming the function), except cancel() of a writer that was
// never opened or that failed, which does nothing.
#ifndef VEXHOST_MOVIE_FFMPEGMOVIEWRITER_H
#define VEXHOST_MOVIE_FFMPEGMOVIEWRITER_H

#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "movie/FfmpegEncoder.h"
#include "movie/FrameQueue.h"
#include "vexhost/MovieWriter.h"

namespace vexhost {

class FfmpegMovieWriter final : public MovieWriter {
public:
    static constexpr std::size_t kQueuedFrames = 3;

    // format: the export format this writer was made for (a movie format).
    explicit FfmpegMovieWriter(int format);
    // An open movie is canceled.
    ~FfmpegMovieWriter() override;
    FfmpegMovieWriter(const FfmpegMovieWriter&) = delete;
    FfmpegMovieWriter& operator=(const FfmpegMovieWriter&) = delete;

    // Where a movie is written until it is complete: "<file name>.partial".
    static std::string partialName(const std::string& fileName);

    void open(const ExportSettings& settings, int width, int height) override;
    void addFrame(Image frame) override;
    void finish() override;
    void cancel() override;
    std::string summary() const override;

private:
    enum class State { Unopened, Open, Finished, Canceled, Failed };

    void encodeFrames();  // the worker's loop
    void abandon();       // stops the worker and removes the partial file
    std::string workerError() const;
    [[noreturn]] void failFinish(const std::string& cause);

    const int format_;
    State state_ = State::Unopened;
    std::string fileName_;
    std::string partialName_;
    std::string description_;
    double speed_ = 0;  // frames per second
    std::string openError_;
    int width_ = 0;
    int height_ = 0;
    int encodedWidth_ = 0;
    int encodedHeight_ = 0;
    std::size_t framesAdded_ = 0;
    std::unique_ptr<FfmpegEncoder> encoder_;  // owned; used only by the worker while it runs
    FrameQueue queue_{kQueuedFrames};
    std::thread worker_;
    mutable std::mutex errorMutex_;
    std::string workerError_;  // guarded by errorMutex_
};

}  // namespace vexhost

#endif
