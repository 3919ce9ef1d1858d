#include "vexhost/View3D.h"

#include <cmath>

namespace vexhost {

namespace {

using Vector = View3D::Vector;
using Matrix = View3D::Matrix;

constexpr double Pi = 3.14159265358979323846;
constexpr double Radians = Pi / 180;

Matrix multiply(const Matrix& a, const Matrix& b) {
    Matrix m{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            m[i * 3 + j] = a[i * 3] * b[j] + a[i * 3 + 1] * b[3 + j] + a[i * 3 + 2] * b[6 + j];
    return m;
}

Vector apply(const Matrix& m, const Vector& v) {
    return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
            m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}

Matrix transpose(const Matrix& m) {
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

Matrix rotationZ(double degrees) {
    const double c = std::cos(degrees * Radians), s = std::sin(degrees * Radians);
    return {c, -s, 0, s, c, 0, 0, 0, 1};
}

Matrix rotationX(double degrees) {
    const double c = std::cos(degrees * Radians), s = std::sin(degrees * Radians);
    return {1, 0, 0, 0, c, -s, 0, s, c};
}

// Rotation by `degrees` about the unit axis u (right-handed).
Matrix rotationAbout(const Vector& u, double degrees) {
    const double c = std::cos(degrees * Radians), s = std::sin(degrees * Radians), t = 1 - c;
    return {t * u[0] * u[0] + c,        t * u[0] * u[1] - s * u[2], t * u[0] * u[2] + s * u[1],
            t * u[0] * u[1] + s * u[2], t * u[1] * u[1] + c,        t * u[1] * u[2] - s * u[0],
            t * u[0] * u[2] - s * u[1], t * u[1] * u[2] + s * u[0], t * u[2] * u[2] + c};
}

}  // namespace

View3D::View3D() {
    const Matrix r = orientation();
    // The viewer on the view axis: P = O + distance * R * z (O is the origin).
    position_ = {DefaultViewerDistance * r[2], DefaultViewerDistance * r[5],
                 DefaultViewerDistance * r[8]};
}

View3D::Matrix View3D::orientation() const {
    return orientation(psi_, theta_, alpha_);
}

View3D::Matrix View3D::orientation(double psi, double theta, double alpha) {
    return multiply(multiply(rotationZ(theta), rotationX(psi)), rotationZ(alpha));
}

double View3D::normalizeAngle(double degrees) {
    double a = std::fmod(degrees, 360.0);
    if (a > 180)
        a -= 360;
    else if (a <= -180)
        a += 360;
    return a;
}

bool View3D::rotate(VexRotateAxis_e axis, double degrees, const Vector& vector,
                    VexRotateOriginLocation_e originLocation) {
    if (originLocation != VexRotateOriginLocation_DefinedOrigin &&
        originLocation != VexRotateOriginLocation_Viewer)
        return false;
    const Matrix oldR = orientation();
    Matrix turn{};  // R_new * R_old^T: what carries the viewer
    switch (axis) {
        case VexRotateAxis_Psi:
        case VexRotateAxis_Theta:
        case VexRotateAxis_Alpha: {
            double& angle = axis == VexRotateAxis_Psi     ? psi_
                            : axis == VexRotateAxis_Theta ? theta_
                                                          : alpha_;
            angle = normalizeAngle(angle + degrees);
            turn = multiply(orientation(), transpose(oldR));
            break;
        }
        case VexRotateAxis_X:
        case VexRotateAxis_Y:
        case VexRotateAxis_Z:
        case VexRotateAxis_AboutVector: {
            Vector u = {0, 0, 0};
            if (axis == VexRotateAxis_AboutVector) {
                const double length = std::sqrt(vector[0] * vector[0] + vector[1] * vector[1] +
                                                vector[2] * vector[2]);
                if (!(length > 0) || !std::isfinite(length))
                    return false;
                u = {vector[0] / length, vector[1] / length, vector[2] / length};
            } else {
                u[static_cast<int>(axis)] = 1;
            }
            turn = rotationAbout(u, degrees);
            const Matrix r = multiply(turn, oldR);
            // Angles of R = Rz(theta) Rx(psi) Rz(alpha): R[2][2] = cos psi,
            // (R[0][2], R[1][2]) = sin psi (sin theta, -cos theta),
            // (R[2][0], R[2][1]) = sin psi (sin alpha, cos alpha).
            const double sinPsi = std::hypot(r[2], r[5]);
            double psi = std::atan2(sinPsi, r[8]), theta, alpha;
            if (sinPsi > 1e-12) {
                theta = std::atan2(r[2], -r[5]);
                alpha = std::atan2(r[6], r[7]);
            } else {
                // Looking along z: only theta + alpha (or theta - alpha) is fixed; alpha is 0.
                theta = std::atan2(r[3], r[0]);
                alpha = 0;
            }
            psi /= Radians;
            theta /= Radians;
            alpha /= Radians;
            // (psi, theta, alpha) and (-psi, theta + 180, alpha + 180) are the same orientation:
            // keep the sign of psi the view had, so a small turn changes the angles a little.
            if (normalizeAngle(psi_) < 0 && sinPsi > 1e-12) {
                psi = -psi;
                theta += 180;
                alpha += 180;
            }
            psi_ = normalizeAngle(psi);
            theta_ = normalizeAngle(theta);
            alpha_ = normalizeAngle(alpha);
            break;
        }
        default:
            return false;
    }
    if (originLocation == VexRotateOriginLocation_DefinedOrigin) {
        const Vector d = {position_[0] - origin_[0], position_[1] - origin_[1],
                          position_[2] - origin_[2]};
        const Vector moved = apply(turn, d);
        position_ = {origin_[0] + moved[0], origin_[1] + moved[1], origin_[2] + moved[2]};
    }
    return true;
}

bool View3D::operator==(const View3D& other) const {
    return position_ == other.position_ && psi_ == other.psi_ && theta_ == other.theta_ &&
           alpha_ == other.alpha_ && width_ == other.width_ && fieldOfView_ == other.fieldOfView_ &&
           perspective_ == other.perspective_ && origin_ == other.origin_;
}

}  // namespace vexhost
