#ifndef VEXUTILTOOLS_LISTMODELPREMAPPED_H
#define VEXUTILTOOLS_LISTMODELPREMAPPED_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "addon/CheckedAt.h"
#include "model/ListModelAbstract.h"

namespace vexplot {
namespace vexutiltools {

// A read-only list model over a fixed table of (display text, value) entries, for option menus
// over an enumeration. The table is copied at construction and never changes: every mutating
// operation does nothing and no change is ever reported. Positions are zero-based; a position not
// below the count raises std::out_of_range "invalid vector subscript".
template <typename T>
class ListModelPreMapped : public ListModelAbstract<T> {
public:
    struct Entry {
        std::string displayText;
        T value;
    };

    explicit ListModelPreMapped(std::vector<Entry> entries) : entries_(std::move(entries)) {}
    ~ListModelPreMapped() override = default;

    const T& getItem(uint64_t position) const override {
        return checkedAt(entries_, position).value;
    }
    void replaceItem(uint64_t, const T&) override {}
    void insertItem(uint64_t, const T&) override {}
    void insertItems(uint64_t, const std::vector<T>&) override {}
    void removeItem(uint64_t) override {}
    void removeItems(uint64_t, uint64_t) override {}
    void refreshItems() override {}
    void releaseItems() override {}

    // The first entry holding the value; getInvalidIndex (count + 1) when none does.
    uint64_t indexOfItem(const T& value) const override {
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (entries_[i].value == value)
                return i;
        }
        return this->getInvalidIndex();
    }

    uint64_t getItemCount() const override { return entries_.size(); }
    std::string getDisplayString(uint64_t position) const override {
        return checkedAt(entries_, position).displayText;
    }

private:
    std::vector<Entry> entries_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
