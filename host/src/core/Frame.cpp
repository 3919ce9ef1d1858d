#include "vexhost/Frame.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vexhost {

void Frame::setPosAndSize(double x, double y, double width, double height) {
    if (!std::isfinite(x) || !std::isfinite(y) || !(width > 0) || !(height > 0) ||
        !std::isfinite(width) || !std::isfinite(height))
        throw std::invalid_argument(
            "Frame::setPosAndSize(): the frame needs a finite place and a "
            "size above 0");
    x_ = x;
    y_ = y;
    width_ = width;
    height_ = height;
}

void Frame::fitView(const float (&boundsMin)[3], const float (&boundsMax)[3]) {
    using Vector = View3D::Vector;
    const Vector centre = {(boundsMin[0] + boundsMax[0]) / 2.0, (boundsMin[1] + boundsMax[1]) / 2.0,
                           (boundsMin[2] + boundsMax[2]) / 2.0};
    const View3D::Matrix r =
        View3D::orientation(View3D::DefaultPsi, View3D::DefaultTheta, View3D::DefaultAlpha);

    // The box corners in the viewer's axes (R^T * (corner - centre)): how wide and high the box
    // looks from there.
    double halfWidth = 0, halfHeight = 0, diagonal = 0;
    for (int corner = 0; corner < 8; ++corner) {
        const double d[3] = {((corner & 1) ? boundsMax[0] : boundsMin[0]) - centre[0],
                             ((corner & 2) ? boundsMax[1] : boundsMin[1]) - centre[1],
                             ((corner & 4) ? boundsMax[2] : boundsMin[2]) - centre[2]};
        const double right = r[0] * d[0] + r[3] * d[1] + r[6] * d[2];
        const double up = r[1] * d[0] + r[4] * d[1] + r[7] * d[2];
        halfWidth = std::max(halfWidth, std::abs(right));
        halfHeight = std::max(halfHeight, std::abs(up));
        diagonal = std::max(diagonal, 2 * std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]));
    }
    const double aspect = height_ / width_;
    const double width = 2 * std::max(halfWidth, halfHeight / aspect) * (1 + FitMargin);

    // Far enough out that the whole box is in front of the viewer also in perspective.
    const double distance = 2 * std::max(diagonal, 1.0);
    view_.setRotateOrigin(centre);
    view_.setPsi(View3D::DefaultPsi);
    view_.setTheta(View3D::DefaultTheta);
    view_.setAlpha(View3D::DefaultAlpha);
    view_.setPosition(
        {centre[0] + distance * r[2], centre[1] + distance * r[5], centre[2] + distance * r[8]});
    view_.setWidth(width > 0 ? width : View3D::DefaultWidth);
}

}  // namespace vexhost
