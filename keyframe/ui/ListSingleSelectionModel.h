#ifndef VEXUTILTOOLS_LISTSINGLESELECTIONMODEL_H
#define VEXUTILTOOLS_LISTSINGLESELECTIONMODEL_H

#include "ui/ListSelectionModelAbstract.h"

namespace vexplot {
namespace vexutiltools {

// The selection of a list control in which one line at most is selected: of several positions
// given, the first one that is a line of the control is selected, the others are ignored.
class ListSingleSelectionModel : public ListSelectionModelAbstract {
public:
    explicit ListSingleSelectionModel(ListViewInterface& view);
    ~ListSingleSelectionModel() override;

    void setSelectedItems(const std::vector<int64_t>& positions) override;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
