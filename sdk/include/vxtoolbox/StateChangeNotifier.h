/*
 * Vexplot SDK toolbox: StateChangeNotifier, which forwards the host's state changes to listeners.
 *
 * Registers one host callback while it has at least one listener and removes it when the last one
 * leaves (or with the notifier). Listeners are not owned. A listener may remove itself, or another
 * listener, while it is being notified: each notification goes to the listeners attached when it
 * arrived and still attached when their turn comes.
 */
#ifndef VXTOOLBOX_STATECHANGENOTIFIER_H
#define VXTOOLBOX_STATECHANGENOTIFIER_H

#include <algorithm>
#include <cstdint>
#include <vector>

#include "vxsdkbase.h"
#include "vxtoolbox/StateChangeListenerInterface.h"

namespace vexplot {
namespace toolbox {

class StateChangeNotifier {
public:
    explicit StateChangeNotifier(VexStateChangeMode_e mode = VexStateChangeMode_v100)
        : mode_(mode) {}
    ~StateChangeNotifier() {
        if (registered_)
            VexUtilStateChangeRemoveCallback(&StateChangeNotifier::onStateChange, this);
    }
    StateChangeNotifier(const StateChangeNotifier&) = delete;
    StateChangeNotifier& operator=(const StateChangeNotifier&) = delete;

    void addListener(StateChangeListenerInterface* listener) {
        if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end())
            return;
        listeners_.push_back(listener);
        if (!registered_)
            registered_ =
                VexUtilStateChangeAddCallback(mode_, &StateChangeNotifier::onStateChange, this);
    }
    void removeListener(StateChangeListenerInterface* listener) {
        listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), listener),
                         listeners_.end());
        if (listeners_.empty() && registered_) {
            VexUtilStateChangeRemoveCallback(&StateChangeNotifier::onStateChange, this);
            registered_ = false;
        }
    }
    bool hasListener(const StateChangeListenerInterface* listener) const {
        return std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end();
    }
    VexStateChangeMode_e mode() const { return mode_; }

private:
    class Event : public StateChangeEventInterface {
    public:
        explicit Event(int32_t code) : code_(code) {}
        int32_t getStateChange() const override { return code_; }

    private:
        int32_t code_;
    };

    static void onStateChange(int32_t code, void* clientData) {
        auto* self = static_cast<StateChangeNotifier*>(clientData);
        const Event event(code);
        const std::vector<StateChangeListenerInterface*> snapshot = self->listeners_;
        for (StateChangeListenerInterface* listener : snapshot) {
            if (self->hasListener(listener))
                listener->stateChanged(event);
        }
    }

    VexStateChangeMode_e mode_;
    std::vector<StateChangeListenerInterface*> listeners_;
    bool registered_ = false;
};

} // namespace toolbox
} // namespace vexplot

#endif
