#ifndef VEXUTILTOOLS_LISTMODELOBSERVERINTERFACE_H
#define VEXUTILTOOLS_LISTMODELOBSERVERINTERFACE_H

#include "model/ListModelChange.h"

namespace vexplot {
namespace vexutiltools {

// Told by a list model what changed, synchronously, inside the call that changed the model. An
// observer reads the model but must not change it from listModelChanged (the model refuses with
// std::logic_error). Models do not own their observers.
class ListModelObserverInterface {
public:
    virtual ~ListModelObserverInterface() = default;
    virtual void listModelChanged(const ListModelChange& change) = 0;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
