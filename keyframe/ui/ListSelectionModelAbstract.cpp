#include "ui/ListSelectionModelAbstract.h"

#include <stdexcept>

#include "addon/HostArray.h"
#include "addon/LockScope.h"
#include "ui/ListSelectionModelObserverInterface.h"
#include "ui/ListViewInterface.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

ListSelectionModelAbstract::ListSelectionModelAbstract(ListViewInterface& view) : view_(&view) {}

ListSelectionModelAbstract::~ListSelectionModelAbstract() = default;

void ListSelectionModelAbstract::addObserver(ListSelectionModelObserverInterface* observer) {
    if (observer == nullptr)
        throw std::invalid_argument("ListSelectionModelAbstract::addObserver(): null observer");
    observers_.insert(observer);
}

void ListSelectionModelAbstract::removeObserver(ListSelectionModelObserverInterface* observer) {
    observers_.erase(observer);
}

void ListSelectionModelAbstract::notifySelectionChanged() {
    if (observers_.empty())
        return;
    std::vector<int64_t> selected;
    getSelectedItems(selected);
    for (ListSelectionModelObserverInterface* observer : observers_)
        observer->selectionChanged(selected);
}

void ListSelectionModelAbstract::getSelectedItems(std::vector<int64_t>& positions) const {
    positions.clear();
    if (!hasControl())
        return;
    LockScope lock;
    HostArray<int32_t> lines;
    int32_t count = 0;
    VexGUIListGetSelectedItems(controlId(), lines.receive(), &count);
    for (int32_t i = 0; i < count; ++i)
        positions.push_back(static_cast<int64_t>(lines[static_cast<std::size_t>(i)]) - 1);
}

int32_t ListSelectionModelAbstract::getSelectedItem() const {
    std::vector<int64_t> selected;
    getSelectedItems(selected);
    return selected.size() == 1 ? static_cast<int32_t>(selected.front()) : -1;
}

void ListSelectionModelAbstract::setSelectedItem(int32_t position) {
    if (!hasControl())
        return;
    {
        LockScope lock;
        if (position < 0 || position >= VexGUIListGetItemCount(controlId()))
            VexGUIListDeselectAllItems(controlId());
        else
            VexGUIListSetSelectedItem(controlId(), position + 1);
    }
    notifySelectionChanged();
}

int32_t ListSelectionModelAbstract::controlId() const {
    return view_->getControlId();
}

bool ListSelectionModelAbstract::hasControl() const {
    return controlId() != VEXGUI_BAD_ID;
}

std::vector<int64_t> ListSelectionModelAbstract::validPositions(
    const std::vector<int64_t>& positions, bool narrow) const {
    VexGUIListDeselectAllItems(controlId());
    const int64_t lineCount = VexGUIListGetItemCount(controlId());
    std::vector<int64_t> valid;
    for (int64_t position : positions) {
        if (narrow)
            position = static_cast<int32_t>(position);
        if (position >= 0 && position < lineCount)
            valid.push_back(position);
    }
    return valid;
}

}  // namespace vexutiltools
}  // namespace vexplot
