#ifndef VEXUTILTOOLS_LISTMODELINTERFACE_H
#define VEXUTILTOOLS_LISTMODELINTERFACE_H

#include <cstdint>
#include <vector>

#include "model/ListModelGenericInterface.h"

namespace vexplot {
namespace vexutiltools {

// The typed face of a list model of items of type T. Positions are zero-based. Every mutation
// tells the observers what changed (ListModelChange), as ListModelAbstract describes.
template <typename T>
class ListModelInterface : public virtual ListModelGenericInterface {
public:
    // The item; std::out_of_range "invalid vector subscript" for a position not below the count.
    virtual const T& getItem(uint64_t position) const = 0;
    // Copies the item over the one at the position (range-checked like getItem): Changed.
    virtual void replaceItem(uint64_t position, const T& item) = 0;
    // The position of the item, or getInvalidIndex when it is not found.
    virtual uint64_t indexOfItem(const T& item) const = 0;
    // insertItems with one item.
    virtual void insertItem(uint64_t position, const T& item) = 0;
    // Inserts the items before the position (position = count appends): Inserted.
    virtual void insertItems(uint64_t position, const std::vector<T>& items) = 0;
    // Erases the item at the position: Removed.
    virtual void removeItem(uint64_t position) = 0;
    // Erases the items [first, first + count): Removed.
    virtual void removeItems(uint64_t first, uint64_t count) = 0;
    // Hook: brings the items up to date before observers see them.
    virtual void refreshItems() = 0;
    // Hook: the last observer has gone.
    virtual void releaseItems() = 0;

    ~ListModelInterface() override = default;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
