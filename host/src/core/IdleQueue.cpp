#include "vexhost/IdleQueue.h"

#include "vexhost/HostErrors.h"

namespace vexhost {

bool IdleQueue::add(VexOnIdleCallback_pf callback, void* clientData) {
    if (callback == nullptr) {
        errors_.record("VexUtilOnIdleQueueAddCallback", "the callback is missing");
        return false;
    }
    queue_.push_back({callback, clientData});
    return true;
}

std::size_t IdleQueue::runUntilEmpty() {
    std::size_t ran = 0;
    while (!queue_.empty()) {
        if (ran == MaxCallbacksPerRun) {
            errors_.record("VexUtilOnIdleQueueAddCallback",
                           "the idle queue was still not empty after " +
                               std::to_string(MaxCallbacksPerRun) + " callbacks in one run; " +
                               std::to_string(queue_.size()) +
                               " dropped (a callback keeps queueing itself)");
            queue_.clear();
            break;
        }
        const Item item = queue_.front();
        queue_.pop_front();
        ++ran;
        item.callback(item.clientData);
    }
    return ran;
}

}  // namespace vexhost
