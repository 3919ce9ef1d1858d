// The host's state change listeners (VexUtilStateChangeAddCallback). send() calls every listener
// synchronously, in registration order. A listener may remove itself or others while being
// notified: a removed listener is not called again, and one added meanwhile hears from the next
// code on. Sending allocates nothing, since style sets send a code on the hot path. A callback that
// lets an exception out is a host error; the exception goes no further and the other listeners are
// still called.
#ifndef VEXHOST_STATENOTIFIER_H
#define VEXHOST_STATENOTIFIER_H

#include <array>
#include <cstdint>
#include <vector>

#include "vxsdkbase.h"

namespace vexhost {

class HostErrors;

class StateNotifier {
public:
    explicit StateNotifier(HostErrors& errors) : errors_(errors) {}
    StateNotifier(const StateNotifier&) = delete;
    StateNotifier& operator=(const StateNotifier&) = delete;

    // ---- SDK side ----
    // False (and a host error) for a null callback or one already registered with this client
    // data.
    bool add(VexStateChangeMode_e mode, VexStateChangeCallback_pf callback, void* clientData);
    // False (and a host error) when that callback and client data are not registered.
    bool remove(VexStateChangeCallback_pf callback, void* clientData);

    // ---- Control side ----
    std::size_t listenerCount() const { return liveCount_; }
    void send(int32_t code);
    // How often a code was sent since the last reset (codes 0..31).
    uint64_t sentCount(int32_t code) const;

    // No listeners, counts 0.
    void reset();

private:
    struct Listener {
        VexStateChangeMode_e mode;
        VexStateChangeCallback_pf callback;  // nullptr once removed during a send
        void* clientData;
    };
    void compact();

    HostErrors& errors_;
    std::vector<Listener> listeners_;
    std::size_t liveCount_ = 0;
    int sendDepth_ = 0;
    std::array<uint64_t, 32> sentCounts_ = {};
};

}  // namespace vexhost

#endif
