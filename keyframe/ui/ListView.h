#ifndef VEXUTILTOOLS_LISTVIEW_H
#define VEXUTILTOOLS_LISTVIEW_H

#include <cstdint>
#include <memory>

#include "model/ListModelObserverInterface.h"
#include "ui/ListSelectionModelInterface.h"
#include "ui/ListViewInterface.h"

namespace vexplot {
namespace vexutiltools {

// Binds one host list control to a list model: the control shows the model's display strings,
// line n for position n - 1, and follows the model's changes as they arrive.
//
// - An empty model shows one line with the model's empty-list text in an insensitive control.
// - A rebuild (binding, a new control, resumeUpdates, a Reset) lists every item again and keeps
//   the user's selection by position.
// - Inserted: appended lines are appended; an insertion before the end, or the first item after
//   the placeholder line, rebuilds.
// - Removed: the lines are deleted from the highest up and the selection saved before is set
//   again, deliberately without shifting it for the deleted lines (a selected line below a
//   deleted one is thereby moved onto the next item; positions past the end are dropped).
// - Changed: the lines are replaced, the selection kept.
// With control id -2 (no control) the view makes no host call at all. Every sequence of control
// calls is made under the host lock.
//
// Owns its selection model, and the model when it was given with adoptModel.
class ListView : public virtual ListViewInterface, public virtual ListModelObserverInterface {
public:
    // No control, no model, multiple selection.
    ListView();
    ListView(int32_t controlId, bool isMultiSelect);
    ~ListView() override;

    ListView(const ListView&) = delete;
    ListView& operator=(const ListView&) = delete;

    void setModel(ListModelGenericInterface* model) override;
    void adoptModel(ListModelGenericInterface* model) override;
    ListModelGenericInterface* getModel() const override { return model_; }
    ListSelectionModelInterface& getSelectionModel() const override { return *selectionModel_; }
    int32_t getControlId() const override { return controlId_; }
    void setControlId(int32_t controlId) override;
    void suspendUpdates() override;
    void resumeUpdates() override;

    // Replaces the selection model by a new multiple (true) or single (false) one.
    void setMultiSelect(bool isMultiSelect);

    void listModelChanged(const ListModelChange& change) override;

private:
    void bindModel(ListModelGenericInterface* model, bool owns);
    void releaseModel();
    void rebuild();
    // The placeholder line and an insensitive control; the caller holds the lock if it wants one.
    void showEmptyState();
    bool hasControl() const;

    int32_t controlId_;
    ListModelGenericInterface* model_ = nullptr;  // owned only while ownsModel_ is set
    bool ownsModel_ = false;
    bool suspended_ = false;
    std::unique_ptr<ListSelectionModelInterface> selectionModel_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
