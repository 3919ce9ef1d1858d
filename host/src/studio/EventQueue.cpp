#include "studio/EventQueue.h"

namespace vexhost {
namespace studio {

void EventQueue::push(NetworkEvent event) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        events_.push_back(std::move(event));
    }
    ready_.notify_one();
}

std::optional<NetworkEvent> EventQueue::pop(std::chrono::milliseconds wait) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!ready_.wait_for(lock, wait, [this] { return !events_.empty(); }))
        return std::nullopt;
    NetworkEvent event = std::move(events_.front());
    events_.pop_front();
    return event;
}

}  // namespace studio
}  // namespace vexhost
