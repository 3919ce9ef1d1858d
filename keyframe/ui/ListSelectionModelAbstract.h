#ifndef VEXUTILTOOLS_LISTSELECTIONMODELABSTRACT_H
#define VEXUTILTOOLS_LISTSELECTIONMODELABSTRACT_H

#include <cstdint>
#include <set>
#include <vector>

#include "ui/ListSelectionModelInterface.h"

namespace vexplot {
namespace vexutiltools {

class ListViewInterface;

// What single and multiple selection have in common. The control is the one the view names at
// the time of each call (ListViewInterface::getControlId), so a view can be bound to its control
// after the selection model was made. The view is not owned: it owns this model.
//
// Every read takes the host lock itself and frees the host's array of selected lines on every
// path. setSelectedItems, which differs by kind, is left to the subclasses; they share its first
// steps through validPositions.
class ListSelectionModelAbstract : public ListSelectionModelInterface {
public:
    explicit ListSelectionModelAbstract(ListViewInterface& view);
    ~ListSelectionModelAbstract() override;

    ListSelectionModelAbstract(const ListSelectionModelAbstract&) = delete;
    ListSelectionModelAbstract& operator=(const ListSelectionModelAbstract&) = delete;

    void addObserver(ListSelectionModelObserverInterface* observer) override;
    void removeObserver(ListSelectionModelObserverInterface* observer) override;
    void notifySelectionChanged() override;
    void getSelectedItems(std::vector<int64_t>& positions) const override;
    int32_t getSelectedItem() const override;
    void setSelectedItem(int32_t position) override;

protected:
    int32_t controlId() const;
    bool hasControl() const;
    // Deselects every line, then returns the positions that are lines of the control, in the
    // order given. `narrow` first narrows each position to 32 bits (multiple selection does).
    std::vector<int64_t> validPositions(const std::vector<int64_t>& positions, bool narrow) const;

private:
    std::set<ListSelectionModelObserverInterface*> observers_;  // not owned
    ListViewInterface* view_;                                   // not owned: it owns this model
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
