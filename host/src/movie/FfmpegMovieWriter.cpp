#include "movie/FfmpegMovieWriter.h"

#include <cmath>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "movie/MovieEncoding.h"
#include "movie/MovieOutput.h"
#include "movie/WrittenMovie.h"

namespace vexhost {
namespace {

void removeQuietly(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

}  // namespace

FfmpegMovieWriter::FfmpegMovieWriter(int format) : format_(format) {}

std::string FfmpegMovieWriter::partialName(const std::string& fileName) {
    return fileName + ".partial";
}

FfmpegMovieWriter::~FfmpegMovieWriter() {
    if (state_ == State::Open) {
        abandon();
    }
}

void FfmpegMovieWriter::open(const ExportSettings& settings, int width, int height) {
    if (state_ != State::Unopened) {
        throw std::logic_error("FfmpegMovieWriter::open(): the movie was opened before");
    }
    if (settings.format != format_) {
        throw std::logic_error("FfmpegMovieWriter::open(): export format " +
                               std::to_string(settings.format) + " for a writer of format " +
                               std::to_string(format_));
    }
    if (width <= 0 || height <= 0) {
        throw std::invalid_argument("FfmpegMovieWriter::open(): picture size " +
                                    std::to_string(width) + " x " + std::to_string(height));
    }
    try {
        const MovieEncoding encoding = MovieEncoding::forSettings(settings);
        if (settings.fileName.empty()) {
            throw std::runtime_error("No movie file name is set");
        }
        const double speed = settings.animationSpeed;
        if (!std::isfinite(speed) || speed <= 0) {
            std::ostringstream message;
            message << "The animation speed " << speed
                    << " is not a positive number of frames per second";
            throw std::runtime_error(message.str());
        }
        const AVRational rate = MovieEncoding::frameRate(speed);

        fileName_ = settings.fileName;
        partialName_ = partialName(fileName_);
        try {
            encoder_ = std::make_unique<FfmpegEncoder>(encoding, partialName_, fileName_, width,
                                                       height, rate);
        } catch (...) {
            removeQuietly(partialName_);
            throw;
        }
        description_ = encoding.description;
        speed_ = speed;
    } catch (const std::runtime_error& e) {
        openError_ = e.what();
        throw;
    }
    width_ = width;
    height_ = height;
    encodedWidth_ = encoder_->encodedWidth();
    encodedHeight_ = encoder_->encodedHeight();
    worker_ = std::thread(&FfmpegMovieWriter::encodeFrames, this);
    state_ = State::Open;
}

void FfmpegMovieWriter::addFrame(Image frame) {
    if (state_ != State::Open) {
        throw std::logic_error("FfmpegMovieWriter::addFrame(): no movie is open");
    }
    if (frame.width != width_ || frame.height != height_ ||
        frame.rgb.size() != static_cast<std::size_t>(width_) * height_ * 3) {
        throw std::invalid_argument("FfmpegMovieWriter::addFrame(): picture of " +
                                    std::to_string(frame.width) + " x " +
                                    std::to_string(frame.height) + " for a movie of " +
                                    std::to_string(width_) + " x " + std::to_string(height_));
    }
    const std::string failure = workerError();
    if (!failure.empty() || !queue_.push(std::move(frame))) {
        throw std::runtime_error(failure.empty() ? workerError() : failure);
    }
    ++framesAdded_;
}

void FfmpegMovieWriter::finish() {
    if (state_ != State::Open) {
        throw std::logic_error("FfmpegMovieWriter::finish(): no movie is open");
    }
    queue_.close();
    worker_.join();
    encoder_.reset();
    const std::string failure = workerError();
    if (!failure.empty()) {
        failFinish(failure);
    }
    std::error_code error;
    std::filesystem::rename(partialName_, fileName_, error);
    if (error) {
        failFinish(MovieOutput::cannotWrite(fileName_, error.message()));
    }
    state_ = State::Finished;
}

void FfmpegMovieWriter::cancel() {
    switch (state_) {
        case State::Open:
            abandon();
            break;
        case State::Finished:
        case State::Canceled:
            throw std::logic_error(
                "FfmpegMovieWriter::cancel(): the movie was finished or "
                "canceled before");
        case State::Unopened:
        case State::Failed:
            break;  // nothing was left behind
    }
    state_ = State::Canceled;
}

std::string FfmpegMovieWriter::summary() const {
    std::ostringstream text;
    switch (state_) {
        case State::Unopened:
            text << "No movie was written" << (openError_.empty() ? "." : ": " + openError_);
            break;
        case State::Open:
            text << "Writing \"" << fileName_ << "\" (" << description_ << "): " << framesAdded_
                 << " frames so far.";
            break;
        case State::Finished:
            text << WrittenMovie{framesAdded_,   width_, height_,      encodedWidth_,
                                 encodedHeight_, speed_, description_, fileName_}
                        .summary();
            break;
        case State::Canceled:
            text << "Canceled: no movie was written"
                 << (fileName_.empty() ? "." : " to \"" + fileName_ + "\".");
            break;
        case State::Failed:
            text << "Failed: " << workerError();
            break;
    }
    return text.str();
}

void FfmpegMovieWriter::encodeFrames() {
    try {
        while (std::optional<Image> frame = queue_.pop()) {
            encoder_->write(*frame);
        }
        if (!queue_.stopped()) {
            encoder_->finish();
        }
    } catch (const std::exception& e) {
        std::lock_guard<std::mutex> lock(errorMutex_);
        workerError_ = e.what();
    } catch (...) {
        // Nothing may escape the thread; the next call on the writer reports it.
        std::lock_guard<std::mutex> lock(errorMutex_);
        workerError_ = "The movie \"" + fileName_ + "\" cannot be encoded: unknown error";
    }
    // After a failure nothing more is taken: producers waiting for room must not wait forever.
    if (!workerError().empty()) {
        queue_.stop();
    }
}

void FfmpegMovieWriter::abandon() {
    queue_.stop();
    worker_.join();
    encoder_.reset();
    removeQuietly(partialName_);
}

std::string FfmpegMovieWriter::workerError() const {
    std::lock_guard<std::mutex> lock(errorMutex_);
    return workerError_;
}

void FfmpegMovieWriter::failFinish(const std::string& cause) {
    removeQuietly(partialName_);
    {
        std::lock_guard<std::mutex> lock(errorMutex_);
        workerError_ = cause;
    }
    state_ = State::Failed;
    throw std::runtime_error(cause);
}

}  // namespace vexhost
