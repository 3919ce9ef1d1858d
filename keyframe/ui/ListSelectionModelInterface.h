#ifndef VEXUTILTOOLS_LISTSELECTIONMODELINTERFACE_H
#define VEXUTILTOOLS_LISTSELECTIONMODELINTERFACE_H

#include <cstdint>
#include <vector>

namespace vexplot {
namespace vexutiltools {

class ListSelectionModelObserverInterface;

// Reads and writes the selection of one host list control. Positions are zero-based; the control
// counts lines from 1, and the models convert at each host call. While the control id is -2 (no
// control) nothing is asked of the host: the selection reads as empty and writes do nothing.
class ListSelectionModelInterface {
public:
    // Observers are kept in a set ordered by address and are not owned.
    virtual void addObserver(ListSelectionModelObserverInterface* observer) = 0;
    virtual void removeObserver(ListSelectionModelObserverInterface* observer) = 0;
    // Tells every observer the current selection (read from the control), when there is one.
    virtual void notifySelectionChanged() = 0;
    // Replaces the content of `positions` with the selected positions, ascending.
    virtual void getSelectedItems(std::vector<int64_t>& positions) const = 0;
    // Selects the positions that lie within the control's lines (the others are dropped), then
    // notifies the observers.
    virtual void setSelectedItems(const std::vector<int64_t>& positions) = 0;
    // The selected position when exactly one line is selected; -1 for none or several.
    virtual int32_t getSelectedItem() const = 0;
    // Selects that line alone; a position outside the lines deselects every line. Then notifies.
    virtual void setSelectedItem(int32_t position) = 0;
    virtual ~ListSelectionModelInterface() = default;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
