#ifndef VEXUTILTOOLS_LISTVIEWINTERFACE_H
#define VEXUTILTOOLS_LISTVIEWINTERFACE_H

#include <cstdint>

namespace vexplot {
namespace vexutiltools {

class ListModelGenericInterface;
class ListSelectionModelInterface;

// A host list control that shows a list model and owns the selection model of that control.
class ListViewInterface {
public:
    // Binds a model that the view does not own.
    virtual void setModel(ListModelGenericInterface* model) = 0;
    // Binds a model that the view owns from now on (destroyed when replaced or with the view).
    virtual void adoptModel(ListModelGenericInterface* model) = 0;
    // The bound model; null before the first one is bound.
    virtual ListModelGenericInterface* getModel() const = 0;
    virtual ListSelectionModelInterface& getSelectionModel() const = 0;
    // The host list control; -2 when none is bound.
    virtual int32_t getControlId() const = 0;
    virtual void setControlId(int32_t controlId) = 0;
    // Stops following the model (bulk edits) until resumeUpdates, which rebuilds the control.
    virtual void suspendUpdates() = 0;
    virtual void resumeUpdates() = 0;
    virtual ~ListViewInterface() = default;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
