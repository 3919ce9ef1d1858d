#include "vexhost/StateNotifier.h"

#include <algorithm>
#include <exception>
#include <string>

#include "vexhost/HostErrors.h"

namespace vexhost {

bool StateNotifier::add(VexStateChangeMode_e mode, VexStateChangeCallback_pf callback,
                        void* clientData) {
    if (callback == nullptr) {
        errors_.record("VexUtilStateChangeAddCallback", "the callback is missing");
        return false;
    }
    for (const Listener& listener : listeners_) {
        if (listener.callback == callback && listener.clientData == clientData) {
            errors_.record("VexUtilStateChangeAddCallback",
                           "this callback and client data are registered already");
            return false;
        }
    }
    listeners_.push_back({mode, callback, clientData});
    ++liveCount_;
    return true;
}

bool StateNotifier::remove(VexStateChangeCallback_pf callback, void* clientData) {
    for (Listener& listener : listeners_) {
        if (listener.callback == callback && listener.clientData == clientData) {
            // Blanked rather than erased while a send walks the list by position.
            listener.callback = nullptr;
            --liveCount_;
            if (sendDepth_ == 0)
                compact();
            return true;
        }
    }
    errors_.record("VexUtilStateChangeRemoveCallback",
                   "this callback and client data are not registered");
    return false;
}

void StateNotifier::send(int32_t code) {
    if (code >= 0 && code < static_cast<int32_t>(sentCounts_.size()))
        ++sentCounts_[static_cast<std::size_t>(code)];
    if (liveCount_ == 0)
        return;
    ++sendDepth_;
    // Listeners added during the send are past `count` and hear from the next code on.
    const std::size_t count = listeners_.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Listener listener = listeners_[i];
        if (listener.callback == nullptr)
            continue;
        // A callback is called from C: an exception it lets out is its add-on's mistake, which
        // the host records rather than letting it tear through whatever SDK call sent the code.
        // The other listeners still hear of the change.
        try {
            listener.callback(code, listener.clientData);
        } catch (const std::exception& error) {
            errors_.record("VexUtilStateChangeAddCallback",
                           "the callback let an exception out on state change " +
                               std::to_string(code) + ": " + error.what());
        } catch (...) {
            errors_.record(
                "VexUtilStateChangeAddCallback",
                "the callback let an exception out on state change " + std::to_string(code));
        }
    }
    if (--sendDepth_ == 0)
        compact();
}

uint64_t StateNotifier::sentCount(int32_t code) const {
    if (code < 0 || code >= static_cast<int32_t>(sentCounts_.size()))
        return 0;
    return sentCounts_[static_cast<std::size_t>(code)];
}

void StateNotifier::compact() {
    listeners_.erase(std::remove_if(listeners_.begin(), listeners_.end(),
                                    [](const Listener& l) { return l.callback == nullptr; }),
                     listeners_.end());
}

void StateNotifier::reset() {
    listeners_.clear();
    liveCount_ = 0;
    sendDepth_ = 0;
    sentCounts_.fill(0);
}

}  // namespace vexhost
