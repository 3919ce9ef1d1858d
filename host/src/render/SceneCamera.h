// The view and projection matrices of a picture, from the host's camera and the box around
// everything drawn.
//
// The viewer stands at P with orientation R = Rz(theta) * Rx(psi) * Rz(alpha) (degrees), looks
// along -R*z with R*y up. Orthographic pictures are viewWidth data units wide; perspective ones
// have a horizontal field of view of fieldOfView degrees. Near and far planes enclose the box with
// a margin, so nothing of the data set is clipped in depth by accident.
#ifndef VEXHOST_RENDER_SCENECAMERA_H
#define VEXHOST_RENDER_SCENECAMERA_H

#include <array>

#include "render/BoundingBox.h"
#include "vexhost/SceneState.h"

namespace vexhost {

class SceneCamera {
public:
    SceneCamera(const CameraState& camera, const BoundingBox& box, int width, int height);

    // The unit direction the camera looks along (-R * z).
    static std::array<double, 3> lookDirection(const CameraState& camera);

    // False when the camera values cannot give a picture (a non-finite position or angle): the
    // picture then shows only the background.
    bool usable() const { return usable_; }
    // Column-major 4x4 matrices, as OpenGL takes them.
    const std::array<float, 16>& modelView() const { return modelView_; }
    const std::array<float, 16>& projection() const { return projection_; }
    // Where a point lands in the picture, in normalised device coordinates (-1..1 from left to
    // right and from bottom to top), through the same matrices the drawing uses. False for a point
    // at or behind the viewer's plane, which has no place in a perspective picture.
    bool project(const double point[3], double& x, double& y) const;

private:
    bool usable_ = false;
    std::array<float, 16> modelView_{};
    std::array<float, 16> projection_{};
};

}  // namespace vexhost

#endif
