#ifndef VEXUTILTOOLS_STATECHANGELISTENER_H
#define VEXUTILTOOLS_STATECHANGELISTENER_H

#include <boost/function.hpp>

#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

// Forwards the host's state-change notifications to a callable while listening.
//
// Owns a host toolbox StateChangeNotifier in state change mode 2. startListening and
// stopListening attach and detach this listener under the host lock. Each notification is handled
// under the host lock: the callable receives it, and when its code is 15 (the host is shutting
// down) the listener stops listening, since no later notification can be useful. A failure of the
// callable (a std::exception) goes no further than the notification: its text is shown in the
// host's error dialog. The notifier withdraws its host callback when the listener is destroyed.
class StateChangeListener : public vexplot::toolbox::StateChangeListenerInterface {
public:
    using Callable = boost::function<void(const vexplot::toolbox::StateChangeEventInterface&)>;

    // An empty callable is a programming error (std::invalid_argument).
    explicit StateChangeListener(const Callable& callable);
    ~StateChangeListener() override;

    StateChangeListener(const StateChangeListener&) = delete;
    StateChangeListener& operator=(const StateChangeListener&) = delete;

    void startListening();
    void stopListening();
    bool isListening() const;

    void stateChanged(const vexplot::toolbox::StateChangeEventInterface& event) override;

    // The host's state change code sent when it shuts down.
    static constexpr int32_t ShutdownCode = 15;

private:
    Callable callable_;
    vexplot::toolbox::StateChangeNotifier notifier_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
