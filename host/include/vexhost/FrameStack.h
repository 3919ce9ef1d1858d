// The host's frames: an ordered stack whose top frame is the active one. Unique ids count from 1
// after each reset and are never reused.
//
// Lightweight popping visits the frames top first without reordering them: while it runs, the
// "current" frame (for VexUtilFrameGetUniqueID and VexUtilFrameGetPosAndSize) is the visited one;
// otherwise it is the active frame.
//
// State changes sent: creating a frame VexStateChange_FrameCreated, deleting one
// VexStateChange_FrameDeleted, a change of the top frame VexStateChange_NewTopFrame, a plot type
// change VexStateChange_PlotType. Lightweight popping sends nothing.
#ifndef VEXHOST_FRAMESTACK_H
#define VEXHOST_FRAMESTACK_H

#include <cstddef>
#include <memory>
#include <vector>

#include "vexhost/Frame.h"
#include "vxsdkbase.h"

namespace vexhost {

class HostErrors;
class StateNotifier;

class FrameStack {
public:
    static constexpr int DefaultWorkAreaWidth = 1024;
    static constexpr int DefaultWorkAreaHeight = 768;
    static constexpr double PixelsPerInch = 100;

    FrameStack(HostErrors& errors, StateNotifier& stateChanges)
        : errors_(errors), stateChanges_(stateChanges) {}
    FrameStack(const FrameStack&) = delete;
    FrameStack& operator=(const FrameStack&) = delete;

    // ---- Control side ----
    // A new frame on top of the stack, which makes it active.
    Frame& create(VexPlotType_e plotType = VexPlotType_Cartesian3D);
    // False when no frame has that id.
    bool remove(VexUniqueID_t uniqueId);
    void removeAll();
    // False when no frame has that id.
    bool setPlotType(VexUniqueID_t uniqueId, VexPlotType_e plotType);

    int count() const { return static_cast<int>(frames_.size()); }
    bool empty() const { return frames_.empty(); }
    // position 0 is the top; std::out_of_range past the bottom.
    Frame& at(std::size_t position);
    const Frame& at(std::size_t position) const;
    // The active (top) frame, or nullptr when there is none.
    Frame* active() { return frames_.empty() ? nullptr : frames_.front().get(); }
    const Frame* active() const { return frames_.empty() ? nullptr : frames_.front().get(); }
    // The frame visited by lightweight popping, otherwise the active one; nullptr without frames.
    Frame* current();
    Frame* find(VexUniqueID_t uniqueId);

    int workAreaWidth() const { return workAreaWidth_; }
    int workAreaHeight() const { return workAreaHeight_; }
    void setWorkArea(int width, int height);

    // ---- SDK side: false (and, where the caller made a mistake, a host error) when refused ----
    bool activateTop();
    bool pushTop();
    bool activateByUniqueId(VexUniqueID_t uniqueId);
    bool lightweightPopStart();
    bool lightweightPopNext();
    void lightweightPopEnd();
    bool isLightweightPopping() const { return popping_; }

    // No frames, ids from 1 again, default work area, not popping.
    void reset();

private:
    HostErrors& errors_;
    StateNotifier& stateChanges_;
    std::vector<std::unique_ptr<Frame>> frames_;  // [0] is the top
    VexUniqueID_t nextId_ = 1;
    bool popping_ = false;
    std::size_t popPosition_ = 0;
    int workAreaWidth_ = DefaultWorkAreaWidth;
    int workAreaHeight_ = DefaultWorkAreaHeight;
};

}  // namespace vexhost

#endif
