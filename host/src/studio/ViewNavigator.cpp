#include "studio/ViewNavigator.h"

#include <cmath>
#include <cstdio>

#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/StateNotifier.h"

namespace vexhost {
namespace studio {

namespace {

// The screen's axes in world coordinates: the columns of the view's orientation.
View3D::Vector column(const View3D::Matrix& r, int c) {
    return {r[c], r[3 + c], r[6 + c]};
}

}  // namespace

bool ViewNavigator::rotate(double dx, double dy) {
    Frame* frame = host_.frames().active();
    if (frame == nullptr || (dx == 0 && dy == 0))
        return false;
    View3D& view = frame->view();
    const View3D::Matrix r = view.orientation();
    // Dragging right turns the data to the right: the viewer goes round to the left.
    if (dx != 0)
        view.rotate(VexRotateAxis_AboutVector, -dx * RotateDegreesPerPixel, column(r, 1),
                    VexRotateOriginLocation_DefinedOrigin);
    if (dy != 0)
        view.rotate(VexRotateAxis_AboutVector, -dy * RotateDegreesPerPixel, column(r, 0),
                    VexRotateOriginLocation_DefinedOrigin);
    return true;
}

bool ViewNavigator::pan(double dx, double dy, int pictureWidth) {
    Frame* frame = host_.frames().active();
    if (frame == nullptr || pictureWidth <= 0 || (dx == 0 && dy == 0))
        return false;
    View3D& view = frame->view();
    const double unitsPerPixel = view.width() / pictureWidth;
    const View3D::Matrix r = view.orientation();
    const View3D::Vector right = column(r, 0), up = column(r, 1);
    View3D::Vector position = view.position();
    for (int i = 0; i < 3; ++i)
        position[i] += (-dx * right[i] + dy * up[i]) * unitsPerPixel;
    view.setPosition(position);
    return true;
}

bool ViewNavigator::zoom(double dy) {
    Frame* frame = host_.frames().active();
    if (frame == nullptr || dy == 0)
        return false;
    frame->view().setWidth(frame->view().width() * std::exp(ZoomPerPixel * dy));
    return true;
}

bool ViewNavigator::wheel(double steps) {
    Frame* frame = host_.frames().active();
    if (frame == nullptr || steps == 0)
        return false;
    frame->view().setWidth(frame->view().width() * std::pow(ZoomPerWheelStep, steps));
    return true;
}

bool ViewNavigator::fit() {
    Frame* frame = host_.frames().active();
    if (frame == nullptr)
        return false;
    const DataSet::Extent& extent = host_.dataSet().extent();
    const float boundsMin[3] = {extent.boundsMin[0], extent.boundsMin[1], extent.boundsMin[2]};
    const float boundsMax[3] = {extent.boundsMax[0], extent.boundsMax[1], extent.boundsMax[2]};
    frame->fitView(boundsMin, boundsMax);
    return true;
}

void ViewNavigator::commit() {
    if (host_.frames().active() == nullptr)
        return;
    recordView();
    host_.stateChanges().send(VexStateChange_View);
}

void ViewNavigator::recordView() {
    const Frame* frame = host_.frames().active();
    if (frame == nullptr)
        return;
    const View3D& view = frame->view();
    if (host_.macro().isRecording()) {
        // Every digit a double holds, so the replay sets exactly this view.
        char line[256];
        std::snprintf(line, sizeof line, "$!VIEW %.17g %.17g %.17g %.17g %.17g %.17g %.17g",
                      view.position()[0], view.position()[1], view.position()[2], view.psi(),
                      view.theta(), view.alpha(), view.width());
        host_.macro().recordRaw(line);
    }
}

}  // namespace studio
}  // namespace vexhost
