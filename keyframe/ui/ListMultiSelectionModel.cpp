#include "ui/ListMultiSelectionModel.h"

#include "addon/LockScope.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

ListMultiSelectionModel::ListMultiSelectionModel(ListViewInterface& view)
    : ListSelectionModelAbstract(view) {}

ListMultiSelectionModel::~ListMultiSelectionModel() = default;

void ListMultiSelectionModel::setSelectedItems(const std::vector<int64_t>& positions) {
    if (!hasControl())
        return;
    {
        LockScope lock;
        const std::vector<int64_t> valid = validPositions(positions, true);
        if (!valid.empty()) {
            std::vector<int32_t> lines;
            lines.reserve(valid.size());
            for (int64_t position : valid)
                lines.push_back(static_cast<int32_t>(position + 1));
            VexGUIListSetSelectedItems(controlId(), lines.data(),
                                       static_cast<int32_t>(lines.size()));
        }
    }
    notifySelectionChanged();
}

}  // namespace vexutiltools
}  // namespace vexplot
