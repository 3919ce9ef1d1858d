#ifndef VEXUTILTOOLS_OPTIONMENUSTATICMANAGER_H
#define VEXUTILTOOLS_OPTIONMENUSTATICMANAGER_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "addon/KeyFrameError.h"
#include "ui/ListModelPreMapped.h"
#include "vexgui.h"

namespace vexplot {
namespace vexutiltools {

// Fills a host option menu from a fixed table of (display text, value) entries and converts
// between the menu's choice (entry n) and the value of table position n - 1. The control id is -2
// until populate binds a menu. Callers hold the host lock around the menu calls.
template <typename T>
class OptionMenuStaticManager : public ListModelPreMapped<T> {
public:
    using typename ListModelPreMapped<T>::Entry;
    using ListModelPreMapped<T>::getDisplayString;

    explicit OptionMenuStaticManager(std::vector<Entry> entries)
        : ListModelPreMapped<T>(std::move(entries)) {}
    ~OptionMenuStaticManager() override = default;

    // Binds the menu and gives it one entry per table entry, in table order.
    void populate(int32_t controlId) {
        controlId_ = controlId;
        VexGUIOptionMenuDeleteAllItems(controlId_);
        for (uint64_t position = 0; position < this->getItemCount(); ++position)
            VexGUIOptionMenuAppendItem(controlId_, this->getDisplayString(position).c_str());
    }

    // The value of the entry the menu shows (std::out_of_range "invalid vector subscript" when it
    // shows none).
    T getSelectedValue() const {
        const int32_t choice = VexGUIOptionMenuGet(controlId_);
        return this->getItem(static_cast<uint64_t>(static_cast<int64_t>(choice) - 1));
    }

    // Shows the value's entry; false, with the menu left alone, for a value not in the table.
    bool setSelectedValue(const T& value) {
        const uint64_t position = this->indexOfItem(value);
        if (position == this->getInvalidIndex())
            return false;
        VexGUIOptionMenuSet(controlId_, static_cast<int32_t>(position + 1));
        return true;
    }

    // The display text of the value's entry; KeyFrameError for a value not in the table.
    std::string getDisplayString(const T& value) const {
        const uint64_t position = this->indexOfItem(value);
        if (position == this->getInvalidIndex())
            throw KeyFrameError(
                "Error in OptionMenuStaticManager::getDisplayString:\nThe requested item does not "
                "exist in the model.");
        return this->getDisplayString(position);
    }

    int32_t getControlId() const { return controlId_; }

private:
    int32_t controlId_ = VEXGUI_BAD_ID;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
