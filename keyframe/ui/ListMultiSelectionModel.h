#ifndef VEXUTILTOOLS_LISTMULTISELECTIONMODEL_H
#define VEXUTILTOOLS_LISTMULTISELECTIONMODEL_H

#include "ui/ListSelectionModelAbstract.h"

namespace vexplot {
namespace vexutiltools {

// The selection of a list control in which any lines may be selected: every given position that
// (narrowed to 32 bits) is a line of the control is selected, all in one host call.
class ListMultiSelectionModel : public ListSelectionModelAbstract {
public:
    explicit ListMultiSelectionModel(ListViewInterface& view);
    ~ListMultiSelectionModel() override;

    void setSelectedItems(const std::vector<int64_t>& positions) override;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
