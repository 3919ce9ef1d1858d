// The 3D view of one frame: viewer position P, view angles psi, theta, alpha (degrees), view width
// W, field of view, perspective flag and rotation origin O.
//
// The orientation is R = Rz(theta) * Rx(psi) * Rz(alpha); the viewer looks along -R*z from P.
// Setters store what they are given (angles are not normalised), so a view applied value by value
// reads back unchanged. Only rotate() moves the viewer and keeps its angles in (-180, 180].
#ifndef VEXHOST_VIEW3D_H
#define VEXHOST_VIEW3D_H

#include <array>

#include "vxsdkbase.h"

namespace vexhost {

class View3D {
public:
    using Vector = std::array<double, 3>;
    using Matrix = std::array<double, 9>;  // row-major

    // Defaults of a new frame: O = (0, 0, 0), psi 60, theta 30, alpha 0, viewer 20 units from O
    // along R*z, width 10, field of view 30 degrees, perspective off.
    static constexpr double DefaultPsi = 60;
    static constexpr double DefaultTheta = 30;
    static constexpr double DefaultAlpha = 0;
    static constexpr double DefaultViewerDistance = 20;
    static constexpr double DefaultWidth = 10;
    static constexpr double DefaultFieldOfView = 30;

    View3D();

    const Vector& position() const { return position_; }
    double psi() const { return psi_; }
    double theta() const { return theta_; }
    double alpha() const { return alpha_; }
    double width() const { return width_; }
    double fieldOfView() const { return fieldOfView_; }
    bool perspective() const { return perspective_; }
    const Vector& rotateOrigin() const { return origin_; }

    void setPosition(const Vector& position) { position_ = position; }
    void setPositionComponent(int axis, double value) { position_.at(axis) = value; }
    void setPsi(double degrees) { psi_ = degrees; }
    void setTheta(double degrees) { theta_ = degrees; }
    void setAlpha(double degrees) { alpha_ = degrees; }
    void setWidth(double width) { width_ = width; }
    void setFieldOfView(double degrees) { fieldOfView_ = degrees; }
    void setPerspective(bool on) { perspective_ = on; }
    void setRotateOrigin(const Vector& origin) { origin_ = origin; }
    void setRotateOriginComponent(int axis, double value) { origin_.at(axis) = value; }

    // R(psi, theta, alpha) of the current angles.
    Matrix orientation() const;
    static Matrix orientation(double psi, double theta, double alpha);

    // Turns the view by `degrees`. Psi, theta, alpha: adds to that angle (kept in (-180, 180]).
    // X, Y, Z, about vector: turns the orientation about that world axis (the vector need not be
    // unit length) and derives the angles again. With the defined origin the viewer is carried
    // rigidly about O (P' = O + R_new * R_old^T * (P - O)); with the viewer origin P stays. W, O
    // and perspective never change. False, with nothing changed, for an unknown axis or origin
    // location or a zero vector.
    bool rotate(VexRotateAxis_e axis, double degrees, const Vector& vector,
                VexRotateOriginLocation_e originLocation);

    // The angle brought into (-180, 180].
    static double normalizeAngle(double degrees);

    bool operator==(const View3D& other) const;
    bool operator!=(const View3D& other) const { return !(*this == other); }

private:
    Vector position_;
    double psi_ = DefaultPsi;
    double theta_ = DefaultTheta;
    double alpha_ = DefaultAlpha;
    double width_ = DefaultWidth;
    double fieldOfView_ = DefaultFieldOfView;
    bool perspective_ = false;
    Vector origin_ = {0, 0, 0};
};

}  // namespace vexhost

#endif
