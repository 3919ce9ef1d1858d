// What the network hands the user-interface thread: pages opening and closing, their messages, and
// the end of the studio (a signal); and the results of the studio's worker threads. The other
// threads push, the user-interface thread pops; the host is never touched from another thread.
#ifndef VEXHOST_STUDIO_EVENTQUEUE_H
#define VEXHOST_STUDIO_EVENTQUEUE_H

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

namespace vexhost {
namespace studio {

struct NetworkEvent {
    enum class Kind { Open, Message, Close, Quit, Finished };

    NetworkEvent() = default;
    NetworkEvent(Kind kind, uint64_t client, std::string text)
        : kind(kind), client(client), text(std::move(text)) {}
    explicit NetworkEvent(std::function<void()> finish)
        : kind(Kind::Finished), finish(std::move(finish)) {}

    Kind kind = Kind::Message;
    uint64_t client = 0;
    std::string text;  // Message: the page's message as it came
    // Finished: takes a worker's result in, on the user-interface thread.
    std::function<void()> finish;
};

class EventQueue {
public:
    void push(NetworkEvent event);
    // The oldest event, waiting up to `wait` for one; nullopt when none came.
    std::optional<NetworkEvent> pop(std::chrono::milliseconds wait);

private:
    std::mutex mutex_;
    std::condition_variable ready_;
    std::deque<NetworkEvent> events_;
};

}  // namespace studio
}  // namespace vexhost

#endif
