#ifndef VEXUTILTOOLS_ONIDLEMANAGER_H
#define VEXUTILTOOLS_ONIDLEMANAGER_H

#include <boost/function.hpp>

namespace vexplot {
namespace vexutiltools {

// Runs one piece of work later, from the host's idle queue.
//
// At most one callable is pending at a time, deliberately without a queue: the users ask for
// "refresh when idle" (or "drop when idle") many times in a burst, and one run after the burst is
// what they need. A request made while another is pending is dropped, including a request made by
// the pending callable itself while it runs.
//
// The manager hands itself to the host as the idle callback's client data and the host offers no
// way to withdraw a queued callback, so a manager with a pending request must outlive the host's
// next idle pass. Its owners live as long as the loaded add-on.
class OnIdleManager {
public:
    OnIdleManager();
    // Drops the pending callable.
    virtual ~OnIdleManager();

    OnIdleManager(const OnIdleManager&) = delete;
    OnIdleManager& operator=(const OnIdleManager&) = delete;

    // Stores the callable and queues the idle callback with the host, unless a callable is
    // already pending (then the new one is dropped). Returns whether it was queued. An empty
    // callable is a programming error (std::invalid_argument). Should the host refuse to queue
    // the callback, nothing stays pending and the answer is false.
    bool queueCallback(const boost::function<void()>& callable);

    bool isPending() const { return !pending_.empty(); }

    // The host's idle callback; clientData is the manager. Calls the pending callable, then
    // clears it (also when the callable throws) so the next request can be queued. Called with
    // nothing pending it fails loudly (std::logic_error): the host ran a callback it was never
    // given. Takes no lock of its own: the queued work takes what it needs.
    static void idleCallback(void* clientData);

private:
    boost::function<void()> pending_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
