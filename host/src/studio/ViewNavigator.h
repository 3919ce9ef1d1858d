// The person's mouse on the 3D view, turned into the host's own view changes:
// - rotate: the host's rotation (View3D::rotate about a vector, carried about the rotation
//   origin), a horizontal movement about the screen's vertical axis and a vertical one about the
//   screen's horizontal axis, RotateDegreesPerPixel each; the angles stay the host's;
// - pan: the viewer moves in the screen's plane so the data follows the pointer;
// - zoom: the view width, by ZoomPerPixel per pixel of vertical movement or ZoomPerWheelStep per
//   wheel step (down or positive: wider, so smaller);
// - fit: Frame::fitView over the data set's box, as vexplot fits a new frame.
// A drag changes the view quietly; commit() (at the end of a drag, after a wheel step or a fit)
// tells the state change listeners (VexStateChange_View) once and, while the macro recorder is
// on, records the view as a $!VIEW line, as that line's replay does the same: a recorded session
// replays to the same views and the same state changes.
#ifndef VEXHOST_STUDIO_VIEWNAVIGATOR_H
#define VEXHOST_STUDIO_VIEWNAVIGATOR_H

namespace vexhost {

class Host;

namespace studio {

class ViewNavigator {
public:
    static constexpr double RotateDegreesPerPixel = 0.4;
    static constexpr double ZoomPerPixel = 0.005;  // width factor exp(0.005 * dy)
    static constexpr double ZoomPerWheelStep = 1.1;

    explicit ViewNavigator(Host& host) : host_(host) {}

    // dx, dy: the pointer's movement in pixels of a picture `pictureWidth` pixels wide (pan moves
    // the view by the width's share of it). Nothing without a frame. Return whether the view
    // changed.
    bool rotate(double dx, double dy);
    bool pan(double dx, double dy, int pictureWidth);
    bool zoom(double dy);
    bool wheel(double steps);
    bool fit();

    // See above; nothing without a frame.
    void commit();
    // Only the $!VIEW line, while recording (a recording that starts from the view shown).
    void recordView();

private:
    Host& host_;
};

}  // namespace studio
}  // namespace vexhost

#endif
