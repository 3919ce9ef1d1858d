#include "addon/StateChangeListener.h"

#include <exception>
#include <stdexcept>

#include "addon/LockScope.h"
#include "vxsdkbase.h"

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
    // The host calls this from C, in the middle of whatever SDK call changed its state: a failure
    // of the work must end here, or it would tear through the host and through the add-on code
    // that made that call. The user is told, as a dialog callback tells its failures.
    try {
        callable_(event);
    } catch (const std::exception& error) {
        VexUtilDialogErrMsg(error.what());
    }
    if (event.getStateChange() == ShutdownCode)
        stopListening();
}

}  // namespace vexutiltools
}  // namespace vexplot
