/*
 * Vexplot SDK toolbox: StateChangeListenerInterface, what a StateChangeNotifier calls.
 */
#ifndef VXTOOLBOX_STATECHANGELISTENERINTERFACE_H
#define VXTOOLBOX_STATECHANGELISTENERINTERFACE_H

#include <cstdint>

#include "vxsdkbase.h"

namespace vexplot {
namespace toolbox {

/* One state change notification of the host. */
class StateChangeEventInterface {
public:
    virtual ~StateChangeEventInterface() = default;
    /* The host's state change code (VexStateChange_e; 15 when the host is shutting down). */
    virtual int32_t getStateChange() const = 0;
};

class StateChangeListenerInterface {
public:
    virtual ~StateChangeListenerInterface() = default;
    virtual void stateChanged(const StateChangeEventInterface& event) = 0;
};

} // namespace toolbox
} // namespace vexplot

#endif
