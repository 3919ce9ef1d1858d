#include "render/SceneCamera.h"

#include <algorithm>
#include <cmath>

namespace vexhost {
namespace {

using Matrix3 = std::array<std::array<double, 3>, 3>;  // [row][column]

Matrix3 multiply(const Matrix3& a, const Matrix3& b) {
    Matrix3 c{};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            for (int k = 0; k < 3; ++k) {
                c[i][j] += a[i][k] * b[k][j];
            }
        }
    }
    return c;
}

Matrix3 rotationZ(double degrees) {
    const double r = degrees * M_PI / 180.0;
    const double c = std::cos(r);
    const double s = std::sin(r);
    return Matrix3{{{c, -s, 0}, {s, c, 0}, {0, 0, 1}}};
}

Matrix3 rotationX(double degrees) {
    const double r = degrees * M_PI / 180.0;
    const double c = std::cos(r);
    const double s = std::sin(r);
    return Matrix3{{{1, 0, 0}, {0, c, -s}, {0, s, c}}};
}

bool allFinite(const std::array<float, 16>& m) {
    return std::all_of(m.begin(), m.end(), [](float v) { return std::isfinite(v); });
}

// R = Rz(theta) * Rx(psi) * Rz(alpha).
Matrix3 orientation(const CameraState& camera) {
    return multiply(multiply(rotationZ(camera.theta), rotationX(camera.psi)),
                    rotationZ(camera.alpha));
}

}  // namespace

std::array<double, 3> SceneCamera::lookDirection(const CameraState& camera) {
    const Matrix3 r = orientation(camera);
    return {-r[0][2], -r[1][2], -r[2][2]};
}

SceneCamera::SceneCamera(const CameraState& camera, const BoundingBox& box, int width, int height) {
    const Matrix3 r = orientation(camera);
    const double* p = camera.position;

    // Eye coordinates are R^T * (x - P).
    for (int row = 0; row < 3; ++row) {
        double translation = 0;
        for (int column = 0; column < 3; ++column) {
            modelView_[column * 4 + row] = static_cast<float>(r[column][row]);
            translation -= r[column][row] * p[column];
        }
        modelView_[12 + row] = static_cast<float>(translation);
    }
    modelView_[15] = 1;

    // Depth along the view direction of the box corners.
    const double diagonal = box.diagonal();
    const double margin = diagonal > 0 ? 0.05 * diagonal : 1.0;
    double nearest = 0;
    double farthest = 0;
    if (!box.empty) {
        nearest = INFINITY;
        farthest = -INFINITY;
        for (int corner = 0; corner < 8; ++corner) {
            const double c[3] = {(corner & 1) ? box.max[0] : box.min[0],
                                 (corner & 2) ? box.max[1] : box.min[1],
                                 (corner & 4) ? box.max[2] : box.min[2]};
            double depth = 0;
            for (int k = 0; k < 3; ++k) {
                depth -= r[k][2] * (c[k] - p[k]);
            }
            nearest = std::min(nearest, depth);
            farthest = std::max(farthest, depth);
        }
    }
    double zNear = nearest - margin;
    double zFar = farthest + margin;

    const double aspect = static_cast<double>(height) / width;
    if (camera.perspective) {
        // The viewer may stand inside the box or behind it: keep the near plane in front of the
        // eye and close enough to the far plane for a usable depth resolution.
        zNear = std::max(zNear, std::max(zFar, 1e-6) * 1e-3);
        zFar = std::max(zFar, zNear * 2);
        const double fov = std::clamp(camera.fieldOfView, 0.1, 179.0);
        const double right = zNear * std::tan(fov * M_PI / 360.0);
        const double top = right * aspect;
        projection_[0] = static_cast<float>(zNear / right);
        projection_[5] = static_cast<float>(zNear / top);
        projection_[10] = static_cast<float>(-(zFar + zNear) / (zFar - zNear));
        projection_[11] = -1;
        projection_[14] = static_cast<float>(-2 * zFar * zNear / (zFar - zNear));
    } else {
        // A width that cannot be drawn falls back to showing the whole box.
        double viewWidth = camera.viewWidth;
        if (!(viewWidth > 0) || !std::isfinite(viewWidth)) {
            viewWidth = diagonal > 0 ? diagonal : 1.0;
        }
        const double halfWidth = viewWidth / 2;
        const double halfHeight = halfWidth * aspect;
        projection_[0] = static_cast<float>(1 / halfWidth);
        projection_[5] = static_cast<float>(1 / halfHeight);
        projection_[10] = static_cast<float>(-2 / (zFar - zNear));
        projection_[14] = static_cast<float>(-(zFar + zNear) / (zFar - zNear));
        projection_[15] = 1;
    }
    usable_ = allFinite(modelView_) && allFinite(projection_);
}

bool SceneCamera::project(const double point[3], double& x, double& y) const {
    double eye[4];
    for (int row = 0; row < 4; ++row) {
        eye[row] = modelView_[12 + row];
        for (int k = 0; k < 3; ++k) {
            eye[row] += modelView_[k * 4 + row] * point[k];
        }
    }
    double clip[4];
    for (int row = 0; row < 4; ++row) {
        clip[row] = 0;
        for (int k = 0; k < 4; ++k) {
            clip[row] += projection_[k * 4 + row] * eye[k];
        }
    }
    if (!(clip[3] > 0)) {
        return false;
    }
    x = clip[0] / clip[3];
    y = clip[1] / clip[3];
    return std::isfinite(x) && std::isfinite(y);
}

}  // namespace vexhost
