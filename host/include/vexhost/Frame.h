// One frame of the host: a unique id, a plot type, a place on the paper (inches) and its own 3D
// view. Frames are made and owned by the FrameStack; references stay valid until the frame is
// deleted or the host reset.
#ifndef VEXHOST_FRAME_H
#define VEXHOST_FRAME_H

#include "vexhost/View3D.h"
#include "vxsdkbase.h"

namespace vexhost {

class Frame {
public:
    static constexpr double DefaultX = 1.0;
    static constexpr double DefaultY = 0.25;
    static constexpr double DefaultWidth = 8.0;
    static constexpr double DefaultHeight = 6.0;
    // Room fitView leaves around the data, as a fraction of the view.
    static constexpr double FitMargin = 0.1;

    Frame(VexUniqueID_t uniqueId, VexPlotType_e plotType)
        : uniqueId_(uniqueId), plotType_(plotType) {}

    VexUniqueID_t uniqueId() const { return uniqueId_; }
    // Changed through FrameStack::setPlotType, which tells the listeners.
    VexPlotType_e plotType() const { return plotType_; }

    // Paper inches.
    double x() const { return x_; }
    double y() const { return y_; }
    double width() const { return width_; }
    double height() const { return height_; }
    void setPosAndSize(double x, double y, double width, double height);

    View3D& view() { return view_; }
    const View3D& view() const { return view_; }

    // Sets the view to look at the box from the host's default angles, centred on it, wide enough
    // to show the whole box in this frame's shape with FitMargin around it, and far enough out to
    // have it all in front also in perspective; the rotation origin is the box centre. What
    // loading a data set does, and what a "fit" asks for.
    void fitView(const float (&boundsMin)[3], const float (&boundsMax)[3]);

private:
    friend class FrameStack;

    VexUniqueID_t uniqueId_;
    VexPlotType_e plotType_;
    double x_ = DefaultX;
    double y_ = DefaultY;
    double width_ = DefaultWidth;
    double height_ = DefaultHeight;
    View3D view_;
};

}  // namespace vexhost

#endif
