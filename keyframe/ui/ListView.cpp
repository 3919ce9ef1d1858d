#include "ui/ListView.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "addon/LockScope.h"
#include "model/ListModelGenericInterface.h"
#include "ui/ListMultiSelectionModel.h"
#include "ui/ListSingleSelectionModel.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

ListView::ListView() : ListView(VEXGUI_BAD_ID, true) {}

ListView::ListView(int32_t controlId, bool isMultiSelect) : controlId_(controlId) {
    setMultiSelect(isMultiSelect);
}

ListView::~ListView() {
    releaseModel();
}

void ListView::setModel(ListModelGenericInterface* model) {
    if (model != model_)
        bindModel(model, false);
}

void ListView::adoptModel(ListModelGenericInterface* model) {
    if (model != model_)
        bindModel(model, true);
}

void ListView::bindModel(ListModelGenericInterface* model, bool owns) {
    if (model == nullptr)
        throw std::invalid_argument("ListView::bindModel(): null model");
    releaseModel();
    model_ = model;
    model_->addObserver(this);
    rebuild();
    ownsModel_ = owns;
}

void ListView::releaseModel() {
    if (model_ == nullptr)
        return;
    model_->removeObserver(this);
    if (ownsModel_)
        delete model_;
    model_ = nullptr;
    ownsModel_ = false;
}

void ListView::setControlId(int32_t controlId) {
    if (controlId == controlId_)
        return;
    controlId_ = controlId;
    rebuild();
}

void ListView::suspendUpdates() {
    if (model_ != nullptr)
        model_->removeObserver(this);
    suspended_ = true;
}

void ListView::resumeUpdates() {
    if (!suspended_)
        return;
    if (model_ != nullptr)
        model_->addObserver(this);
    suspended_ = false;
    rebuild();
}

void ListView::setMultiSelect(bool isMultiSelect) {
    if (isMultiSelect)
        selectionModel_ = std::make_unique<ListMultiSelectionModel>(*this);
    else
        selectionModel_ = std::make_unique<ListSingleSelectionModel>(*this);
}

bool ListView::hasControl() const {
    return controlId_ != VEXGUI_BAD_ID;
}

void ListView::showEmptyState() {
    VexGUIListDeleteAllItems(controlId_);
    VexGUIListAppendItem(controlId_, model_->getEmptyListText().c_str());
    VexGUISetSensitivity(controlId_, false);
}

void ListView::rebuild() {
    if (!hasControl() || model_ == nullptr || suspended_)
        return;
    LockScope lock;
    if (model_->getItemCount() == 0) {
        showEmptyState();
        return;
    }
    VexGUISetSensitivity(controlId_, true);
    std::vector<int64_t> selection;
    selectionModel_->getSelectedItems(selection);
    VexGUIListDeleteAllItems(controlId_);
    const uint64_t count = model_->getItemCount();
    for (uint64_t position = 0; position < count; ++position)
        VexGUIListAppendItem(controlId_, model_->getDisplayString(position).c_str());
    selectionModel_->setSelectedItems(selection);
}

void ListView::listModelChanged(const ListModelChange& change) {
    switch (change.kind) {
        case ListModelChange::Inserted: {
            if (!hasControl())
                return;
            LockScope lock;
            if (change.positions.size() == model_->getItemCount()) {
                // The list was empty: the control holds the placeholder line, not items.
                rebuild();
                return;
            }
            const uint64_t lineCount =
                static_cast<uint64_t>(std::max<int32_t>(VexGUIListGetItemCount(controlId_), 0));
            for (uint64_t position : change.positions) {
                if (position < lineCount) {
                    rebuild();
                    return;
                }
            }
            for (uint64_t position : change.positions)
                VexGUIListAppendItem(controlId_, model_->getDisplayString(position).c_str());
            return;
        }
        case ListModelChange::Removed: {
            if (!hasControl())
                return;
            if (model_->getItemCount() == 0) {
                showEmptyState();
                return;
            }
            std::vector<int64_t> selection;
            selectionModel_->getSelectedItems(selection);
            std::vector<uint64_t> positions = change.positions;
            std::sort(positions.begin(), positions.end());
            {
                LockScope lock;
                for (auto it = positions.rbegin(); it != positions.rend(); ++it)
                    VexGUIListDeleteItemAtPos(controlId_, static_cast<int32_t>(*it + 1));
            }
            selectionModel_->setSelectedItems(selection);
            return;
        }
        case ListModelChange::Changed: {
            if (!hasControl())
                return;
            LockScope lock;
            std::vector<int64_t> selection;
            selectionModel_->getSelectedItems(selection);
            for (uint64_t position : change.positions)
                VexGUIListReplaceItem(controlId_, model_->getDisplayString(position).c_str(),
                                      static_cast<int32_t>(position + 1));
            selectionModel_->setSelectedItems(selection);
            return;
        }
        case ListModelChange::Reset:
            rebuild();
            return;
    }
}

}  // namespace vexutiltools
}  // namespace vexplot
