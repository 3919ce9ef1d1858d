#ifndef VEXUTILTOOLS_LISTSELECTIONMODELOBSERVERINTERFACE_H
#define VEXUTILTOOLS_LISTSELECTIONMODELOBSERVERINTERFACE_H

#include <cstdint>
#include <vector>

namespace vexplot {
namespace vexutiltools {

// Told by a selection model that the add-on changed a list control's selection. Observers are not
// owned by the models they watch.
class ListSelectionModelObserverInterface {
public:
    virtual ~ListSelectionModelObserverInterface() = default;
    // The zero-based positions selected now, ascending.
    virtual void selectionChanged(const std::vector<int64_t>& selectedPositions) = 0;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
