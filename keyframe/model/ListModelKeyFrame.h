#ifndef VEXUTILTOOLS_LISTMODELKEYFRAME_H
#define VEXUTILTOOLS_LISTMODELKEYFRAME_H

#include <cstdint>
#include <string>
#include <vector>

#include "model/KeyFrameView_s.h"
#include "model/KeyFrame_s.h"
#include "model/ListModelAbstract.h"

namespace vexplot {
namespace vexutiltools {

// The ordered list of key frames that the user builds and an animation walks through. Owns the
// key frames by value. Positions are zero-based; every positional accessor raises
// std::out_of_range "invalid vector subscript" for a position not below the count, before
// anything changes (removeItem excepted, see there).
//
// Changes the observers receive (delivery rules in ListModelAbstract):
// - replaceItem, setName: Changed [position].
// - insertItem(s): Inserted [start, start + 1, ...] (an empty array: Inserted with no positions).
// - removeItem: Removed [position]; removeItems: Removed [first, ..., first + count - 1].
// - setItems, notifyReset: one Reset.
// - setFrameCount, setSolutionTime, setView: nothing, deliberately: the list shows only names, so
//   these changes need no redraw.
class ListModelKeyFrame : public ListModelAbstract<KeyFrame_s> {
public:
    ListModelKeyFrame();
    ~ListModelKeyFrame() override;

    uint64_t getItemCount() const override;
    // The key frame's name.
    std::string getDisplayString(uint64_t position) const override;
    // "No Key Frames established."
    std::string getEmptyListText() const override;

    const KeyFrame_s& getItem(uint64_t position) const override;
    void replaceItem(uint64_t position, const KeyFrame_s& item) override;
    void insertItem(uint64_t position, const KeyFrame_s& item) override;
    // A position up to the count inserts before it (the count appends) and reports the inserted
    // items from that position on. A position past the count also appends, and reports them from
    // position - 1 on: deliberately the given position less one, not the count.
    void insertItems(uint64_t position, const std::vector<KeyFrame_s>& items) override;
    // No bounds check, deliberately: the caller guarantees that position is below the count (a
    // position out of range is undefined behaviour, as for the vector it erases from).
    void removeItem(uint64_t position) override;
    // Range-checked: [first, first + count) must lie within the list ("invalid vector subscript"
    // otherwise, before anything is erased).
    void removeItems(uint64_t first, uint64_t count) override;
    // Hooks with nothing to do: the key frames live in the model itself.
    void refreshItems() override;
    void releaseItems() override;

    // Replaces the whole list by a copy of the items and announces a reset.
    void setItems(const std::vector<KeyFrame_s>& items);
    // Announces a reset without changing the items.
    void notifyReset();
    // All key frames in list order, for an animation run or a settings file.
    const std::vector<KeyFrame_s>& getItems() const { return items_; }

    std::string getName(uint64_t position) const;
    void setName(uint64_t position, const std::string& name);
    uint64_t getFrameCount(uint64_t position) const;
    void setFrameCount(uint64_t position, uint64_t frameCount);
    double getSolutionTime(uint64_t position) const;
    void setSolutionTime(uint64_t position, double solutionTime);
    // Copies the view into the key frame and gives it the host's current solution time, as a
    // fresh capture of that key frame.
    void setView(uint64_t position, const KeyFrameView_s& view);

private:
    std::vector<KeyFrame_s> items_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
