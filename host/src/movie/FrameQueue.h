// The hand-over from the drawing thread to the encoding thread: a bounded first-in first-out
// queue of pictures. A full queue makes the producer wait, so a slow encoder holds the drawing back
// instead of letting pictures pile up in memory.
#ifndef VEXHOST_MOVIE_FRAMEQUEUE_H
#define VEXHOST_MOVIE_FRAMEQUEUE_H

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>

#include "vexhost/Image.h"

namespace vexhost {

class FrameQueue {
public:
    explicit FrameQueue(std::size_t capacity) : capacity_(capacity) {}

    // Waits while the queue is full. False, with the picture dropped, once the queue is closed or
    // stopped.
    bool push(Image frame) {
        std::unique_lock<std::mutex> lock(mutex_);
        spaceFree_.wait(lock, [this] { return frames_.size() < capacity_ || closed_ || stopped_; });
        if (closed_ || stopped_) {
            return false;
        }
        frames_.push_back(std::move(frame));
        frameReady_.notify_one();
        return true;
    }

    // Waits for the next picture. Empty once the queue is closed and drained, or stopped.
    std::optional<Image> pop() {
        std::unique_lock<std::mutex> lock(mutex_);
        frameReady_.wait(lock, [this] { return !frames_.empty() || closed_ || stopped_; });
        if (stopped_ || frames_.empty()) {
            return std::nullopt;
        }
        Image frame = std::move(frames_.front());
        frames_.pop_front();
        spaceFree_.notify_one();
        return frame;
    }

    // No more pictures will come; those queued are still handed out.
    void close() {
        std::lock_guard<std::mutex> lock(mutex_);
        closed_ = true;
        frameReady_.notify_all();
        spaceFree_.notify_all();
    }

    // Drops the queued pictures and releases every waiting thread.
    void stop() {
        std::lock_guard<std::mutex> lock(mutex_);
        stopped_ = true;
        frames_.clear();
        frameReady_.notify_all();
        spaceFree_.notify_all();
    }

    // True once stop() was called: the consumer then abandons its work instead of completing it.
    bool stopped() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return stopped_;
    }

private:
    const std::size_t capacity_;
    mutable std::mutex mutex_;
    std::condition_variable frameReady_;
    std::condition_variable spaceFree_;
    std::deque<Image> frames_;
    bool closed_ = false;
    bool stopped_ = false;
};

}  // namespace vexhost

#endif
