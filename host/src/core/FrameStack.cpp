#include "vexhost/FrameStack.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "vexhost/HostErrors.h"
#include "vexhost/StateNotifier.h"

namespace vexhost {

Frame& FrameStack::create(VexPlotType_e plotType) {
    frames_.insert(frames_.begin(), std::make_unique<Frame>(nextId_++, plotType));
    // A frame made while popping would shift the frames being visited; keep the visited one.
    if (popping_)
        ++popPosition_;
    Frame& frame = *frames_.front();
    stateChanges_.send(VexStateChange_FrameCreated);
    return frame;
}

bool FrameStack::remove(VexUniqueID_t uniqueId) {
    const auto it = std::find_if(frames_.begin(), frames_.end(),
                                 [&](const auto& frame) { return frame->uniqueId() == uniqueId; });
    if (it == frames_.end())
        return false;
    const std::size_t position = static_cast<std::size_t>(it - frames_.begin());
    frames_.erase(it);
    if (popping_ && position < popPosition_)
        --popPosition_;
    stateChanges_.send(VexStateChange_FrameDeleted);
    return true;
}

void FrameStack::removeAll() {
    while (!frames_.empty())
        remove(frames_.front()->uniqueId());
}

bool FrameStack::setPlotType(VexUniqueID_t uniqueId, VexPlotType_e plotType) {
    Frame* frame = find(uniqueId);
    if (frame == nullptr)
        return false;
    frame->plotType_ = plotType;
    stateChanges_.send(VexStateChange_PlotType);
    return true;
}

Frame& FrameStack::at(std::size_t position) {
    if (position >= frames_.size())
        throw std::out_of_range("FrameStack::at(): position " + std::to_string(position) + " but " +
                                std::to_string(frames_.size()) + " frames");
    return *frames_[position];
}

const Frame& FrameStack::at(std::size_t position) const {
    return const_cast<FrameStack*>(this)->at(position);
}

Frame* FrameStack::current() {
    if (popping_ && popPosition_ < frames_.size())
        return frames_[popPosition_].get();
    return active();
}

Frame* FrameStack::find(VexUniqueID_t uniqueId) {
    for (const auto& frame : frames_) {
        if (frame->uniqueId() == uniqueId)
            return frame.get();
    }
    return nullptr;
}

void FrameStack::setWorkArea(int width, int height) {
    if (width <= 0 || height <= 0)
        throw std::invalid_argument("FrameStack::setWorkArea(): " + std::to_string(width) + " x " +
                                    std::to_string(height) + " is not a size");
    workAreaWidth_ = width;
    workAreaHeight_ = height;
}

bool FrameStack::activateTop() {
    if (frames_.empty()) {
        errors_.record("VexUtilFrameActivateTop", "there is no frame");
        return false;
    }
    // The top frame is always the active one.
    return true;
}

bool FrameStack::pushTop() {
    if (frames_.empty()) {
        errors_.record("VexUtilFramePushTop", "there is no frame");
        return false;
    }
    if (frames_.size() == 1)
        return true;
    std::rotate(frames_.begin(), frames_.begin() + 1, frames_.end());
    stateChanges_.send(VexStateChange_NewTopFrame);
    return true;
}

bool FrameStack::activateByUniqueId(VexUniqueID_t uniqueId) {
    const auto it = std::find_if(frames_.begin(), frames_.end(),
                                 [&](const auto& frame) { return frame->uniqueId() == uniqueId; });
    if (it == frames_.end()) {
        errors_.record("VexUtilFrameActivateByUniqueID",
                       "no frame has the unique id " + std::to_string(uniqueId));
        return false;
    }
    if (it == frames_.begin())
        return true;
    std::rotate(frames_.begin(), it, it + 1);
    stateChanges_.send(VexStateChange_NewTopFrame);
    return true;
}

bool FrameStack::lightweightPopStart() {
    if (popping_)
        errors_.record("VexUtilFrameLightweightPopStart",
                       "lightweight popping is already under way");
    popping_ = true;
    popPosition_ = 0;
    return !frames_.empty();
}

bool FrameStack::lightweightPopNext() {
    if (!popping_) {
        errors_.record("VexUtilFrameLightweightPopNext",
                       "no VexUtilFrameLightweightPopStart before it");
        return false;
    }
    if (popPosition_ < frames_.size())
        ++popPosition_;
    return popPosition_ < frames_.size();
}

void FrameStack::lightweightPopEnd() {
    if (!popping_)
        errors_.record("VexUtilFrameLightweightPopEnd",
                       "no VexUtilFrameLightweightPopStart before it");
    popping_ = false;
    popPosition_ = 0;
}

void FrameStack::reset() {
    frames_.clear();
    nextId_ = 1;
    popping_ = false;
    popPosition_ = 0;
    workAreaWidth_ = DefaultWorkAreaWidth;
    workAreaHeight_ = DefaultWorkAreaHeight;
}

}  // namespace vexhost
