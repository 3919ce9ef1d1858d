#include "model/ListModelKeyFrame.h"

#include <stdexcept>

#include "addon/CheckedAt.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

namespace {
std::vector<uint64_t> consecutivePositions(uint64_t first, uint64_t count) {
    std::vector<uint64_t> positions;
    positions.reserve(static_cast<std::size_t>(count));
    for (uint64_t i = 0; i < count; ++i)
        positions.push_back(first + i);
    return positions;
}
}  // namespace

ListModelKeyFrame::ListModelKeyFrame() = default;

ListModelKeyFrame::~ListModelKeyFrame() = default;

uint64_t ListModelKeyFrame::getItemCount() const {
    return items_.size();
}

std::string ListModelKeyFrame::getDisplayString(uint64_t position) const {
    return checkedAt(items_, position).name;
}

std::string ListModelKeyFrame::getEmptyListText() const {
    return "No Key Frames established.";
}

const KeyFrame_s& ListModelKeyFrame::getItem(uint64_t position) const {
    return checkedAt(items_, position);
}

void ListModelKeyFrame::replaceItem(uint64_t position, const KeyFrame_s& item) {
    expectNotDelivering("ListModelKeyFrame::replaceItem()");
    checkedAt(items_, position) = item;
    queueChange(ListModelChange{ListModelChange::Changed, {position}});
}

void ListModelKeyFrame::insertItem(uint64_t position, const KeyFrame_s& item) {
    insertItems(position, std::vector<KeyFrame_s>{item});
}

void ListModelKeyFrame::insertItems(uint64_t position, const std::vector<KeyFrame_s>& items) {
    expectNotDelivering("ListModelKeyFrame::insertItems()");
    uint64_t start = position;
    if (position <= items_.size()) {
        items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), items.begin(),
                      items.end());
    } else {
        items_.insert(items_.end(), items.begin(), items.end());
        start = position - 1;
    }
    queueChange(
        ListModelChange{ListModelChange::Inserted, consecutivePositions(start, items.size())});
}

void ListModelKeyFrame::removeItem(uint64_t position) {
    expectNotDelivering("ListModelKeyFrame::removeItem()");
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
    queueChange(ListModelChange{ListModelChange::Removed, {position}});
}

void ListModelKeyFrame::removeItems(uint64_t first, uint64_t count) {
    expectNotDelivering("ListModelKeyFrame::removeItems()");
    if (first > items_.size() || count > items_.size() - first)
        throw std::out_of_range("invalid vector subscript");
    const auto begin = items_.begin() + static_cast<std::ptrdiff_t>(first);
    items_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    queueChange(ListModelChange{ListModelChange::Removed, consecutivePositions(first, count)});
}

void ListModelKeyFrame::refreshItems() {}

void ListModelKeyFrame::releaseItems() {}

void ListModelKeyFrame::setItems(const std::vector<KeyFrame_s>& items) {
    expectNotDelivering("ListModelKeyFrame::setItems()");
    items_ = items;
    announceReset();
}

void ListModelKeyFrame::notifyReset() {
    expectNotDelivering("ListModelKeyFrame::notifyReset()");
    announceReset();
}

std::string ListModelKeyFrame::getName(uint64_t position) const {
    return checkedAt(items_, position).name;
}

void ListModelKeyFrame::setName(uint64_t position, const std::string& name) {
    expectNotDelivering("ListModelKeyFrame::setName()");
    checkedAt(items_, position).name = name;
    queueChange(ListModelChange{ListModelChange::Changed, {position}});
}

uint64_t ListModelKeyFrame::getFrameCount(uint64_t position) const {
    return checkedAt(items_, position).frameCount;
}

void ListModelKeyFrame::setFrameCount(uint64_t position, uint64_t frameCount) {
    checkedAt(items_, position).frameCount = frameCount;
}

double ListModelKeyFrame::getSolutionTime(uint64_t position) const {
    return checkedAt(items_, position).solutionTime;
}

void ListModelKeyFrame::setSolutionTime(uint64_t position, double solutionTime) {
    checkedAt(items_, position).solutionTime = solutionTime;
}

void ListModelKeyFrame::setView(uint64_t position, const KeyFrameView_s& view) {
    KeyFrame_s& keyFrame = checkedAt(items_, position);
    keyFrame.view = view;
    keyFrame.solutionTime = VexUtilSolutionTimeGetCurrent();
}

}  // namespace vexutiltools
}  // namespace vexplot
