#ifndef VEXUTILTOOLS_LISTMODELGENERICINTERFACE_H
#define VEXUTILTOOLS_LISTMODELGENERICINTERFACE_H

#include <cstdint>
#include <string>

namespace vexplot {
namespace vexutiltools {

class ListModelObserverInterface;

// The untyped face of every list model: what list views and option menus need to show the items
// and to follow their changes. Positions are zero-based. Held as a virtual base by the typed
// interface, so a model is one ListModelGenericInterface however it is reached.
class ListModelGenericInterface {
public:
    // Attaches an observer (not owned; attaching it twice does nothing). Before the first
    // observer is attached the model refreshes its items.
    virtual void addObserver(ListModelObserverInterface* observer) = 0;
    // Detaches an observer; once none is left the model releases its items.
    virtual void removeObserver(ListModelObserverInterface* observer) = 0;

    virtual uint64_t getItemCount() const = 0;
    // The position that means "no item": the item count plus 1 (deliberately not the count).
    virtual uint64_t getInvalidIndex() const = 0;
    // The text a list control shows for the item; std::out_of_range "invalid vector subscript"
    // for a position not below the count.
    virtual std::string getDisplayString(uint64_t position) const = 0;
    // The text shown in place of the items while the list is empty.
    virtual std::string getEmptyListText() const = 0;

    virtual ~ListModelGenericInterface() = default;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
