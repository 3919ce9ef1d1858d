#include "ui/ListSingleSelectionModel.h"

#include "addon/LockScope.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

ListSingleSelectionModel::ListSingleSelectionModel(ListViewInterface& view)
    : ListSelectionModelAbstract(view) {}

ListSingleSelectionModel::~ListSingleSelectionModel() = default;

void ListSingleSelectionModel::setSelectedItems(const std::vector<int64_t>& positions) {
    if (!hasControl())
        return;
    {
        LockScope lock;
        const std::vector<int64_t> valid = validPositions(positions, false);
        if (!valid.empty())
            VexGUIListSetSelectedItem(controlId(), static_cast<int32_t>(valid.front() + 1));
    }
    notifySelectionChanged();
}

}  // namespace vexutiltools
}  // namespace vexplot
