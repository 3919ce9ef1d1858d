// Work the host runs when it is idle (VexUtilOnIdleQueueAddCallback), in the order queued. vexplot
// runs the queue after each macro line and before exit; tests run it when they like.
#ifndef VEXHOST_IDLEQUEUE_H
#define VEXHOST_IDLEQUEUE_H

#include <cstddef>
#include <deque>

#include "vxsdkbase.h"

namespace vexhost {

class HostErrors;

class IdleQueue {
public:
    // A run that keeps requeueing beyond this many callbacks is cut off as a host error, so an
    // add-on that requeues itself forever cannot hang the host.
    static constexpr std::size_t MaxCallbacksPerRun = 100000;

    explicit IdleQueue(HostErrors& errors) : errors_(errors) {}
    IdleQueue(const IdleQueue&) = delete;
    IdleQueue& operator=(const IdleQueue&) = delete;

    // SDK side: false (and a host error) for a null callback.
    bool add(VexOnIdleCallback_pf callback, void* clientData);

    std::size_t pending() const { return queue_.size(); }
    // Runs callbacks until the queue is empty; work queued meanwhile runs in the same pass, in
    // order. Returns how many ran.
    std::size_t runUntilEmpty();

    void reset() { queue_.clear(); }

private:
    struct Item {
        VexOnIdleCallback_pf callback;
        void* clientData;
    };

    HostErrors& errors_;
    std::deque<Item> queue_;
};

}  // namespace vexhost

#endif
