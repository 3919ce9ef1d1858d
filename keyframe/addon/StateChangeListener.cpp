#include "addon/StateChangeListener.h"

#include <stdexcept>

#include "addon/LockScope.h"

namespace vexplot {
namespace vexutiltools {

StateChangeListener::StateChangeListener(const Callable& callable)
    : callable_(callable), notifier_(VexStateChangeMode_v100) {
    if (callable_.empty())
        throw std::invalid_argument("StateChangeListener::StateChangeListener(): empty callable");
}

StateChangeListener::~StateChangeListener() = default;

void StateChangeListener::startListening() {
    LockScope lock;
    notifier_.addListener(this);
}

void StateChangeListener::stopListening() {
    LockScope lock;
    notifier_.removeListener(this);
}

bool StateChangeListener::isListening() const {
    return notifier_.hasListener(this);
}

void StateChangeListener::stateChanged(const vexplot::toolbox::StateChangeEventInterface& event) {
    LockScope lock;
    callable_(event);
    if (event.getStateChange() == ShutdownCode)
        stopListening();
}

}  // namespace vexutiltools
}  // namespace vexplot
