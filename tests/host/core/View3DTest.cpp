#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "support/HostFixture.h"
#include "support/RegisteredAddOnFixture.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/View3D.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexhost::View3D;
using vextest::ScopedLock;
using Matrix = std::array<double, 9>;
using Vector = std::array<double, 3>;

constexpr double Pi = 3.14159265358979323846;
// The add-on's own conversion of the host's radians.
constexpr double DegreesPerRadian = 57.29577951308232;

// Rotation matrices written out here, independently of the host's.
Matrix rz(double degrees) {
    const double c = std::cos(degrees * Pi / 180), s = std::sin(degrees * Pi / 180);
    return {c, -s, 0, s, c, 0, 0, 0, 1};
}
Matrix rx(double degrees) {
    const double c = std::cos(degrees * Pi / 180), s = std::sin(degrees * Pi / 180);
    return {1, 0, 0, 0, c, -s, 0, s, c};
}
Matrix ry(double degrees) {
    const double c = std::cos(degrees * Pi / 180), s = std::sin(degrees * Pi / 180);
    return {c, 0, s, 0, 1, 0, -s, 0, c};
}
Matrix mul(const Matrix& a, const Matrix& b) {
    Matrix m{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k)
                m[i * 3 + j] += a[i * 3 + k] * b[k * 3 + j];
    return m;
}
Matrix transpose(const Matrix& m) {
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}
Vector mul(const Matrix& m, const Vector& v) {
    return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
            m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}
Matrix orientation(double psi, double theta, double alpha) {
    return mul(mul(rz(theta), rx(psi)), rz(alpha));
}
double distance(const Vector& a, const Vector& b) {
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) +
                     (a[2] - b[2]) * (a[2] - b[2]));
}

void expectNear(const Matrix& actual, const Matrix& expected, double tolerance) {
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
}
void expectNear(const Vector& actual, const Vector& expected, double tolerance) {
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

class View3DTest : public vextest::RegisteredAddOnFixture {
protected:
    void SetUp() override {
        RegisteredAddOnFixture::SetUp();
        frame_ = &createFrame3D();
    }

    View3D& view() { return frame_->view(); }

    bool rotate(VexRotateAxis_e axis, double degrees,
                VexRotateOriginLocation_e origin = VexRotateOriginLocation_DefinedOrigin,
                Vector vector = {0, 0, 0}) {
        ScopedLock lock(addOn_);
        return VexUtilViewRotate3D(axis, degrees, vector[0], vector[1], vector[2], origin);
    }

    vexhost::Frame* frame_ = nullptr;
};

TEST_F(View3DTest, NewFrameLooksAtTheOriginFromTwentyUnitsAlongItsAxis) {
    EXPECT_EQ(view().psi(), 60);
    EXPECT_EQ(view().theta(), 30);
    EXPECT_EQ(view().alpha(), 0);
    EXPECT_EQ(view().width(), 10);
    EXPECT_EQ(view().fieldOfView(), 30);
    EXPECT_FALSE(view().perspective());
    EXPECT_EQ(view().rotateOrigin(), (Vector{0, 0, 0}));
    const Matrix r = orientation(60, 30, 0);
    expectNear(view().position(), {20 * r[2], 20 * r[5], 20 * r[8]}, 1e-12);
}

struct AngleCase {
    double psi, theta, alpha;
};

TEST_F(View3DTest, OrientationIsRzThetaTimesRxPsiTimesRzAlpha) {
    const std::vector<AngleCase> cases = {{0, 0, 0},     {60, 30, 0},      {-45, 120, 10},
                                          {90, -90, 45}, {170, 179, -179}, {33.3, 0, 250}};
    for (const AngleCase& c : cases)
        expectNear(View3D::orientation(c.psi, c.theta, c.alpha),
                   orientation(c.psi, c.theta, c.alpha), 1e-14);
}

struct AxisCase {
    const char* name;
    VexRotateAxis_e axis;
    double degrees;
};

TEST_F(View3DTest, RotationChangesExactlyItsAngleAndCarriesTheViewerAboutTheOrigin) {
    const std::vector<AxisCase> cases = {{"psi", VexRotateAxis_Psi, 12.5},
                                         {"theta", VexRotateAxis_Theta, -40},
                                         {"alpha", VexRotateAxis_Alpha, 7}};
    for (const AxisCase& c : cases) {
        SCOPED_TRACE(c.name);
        view().setPsi(50);
        view().setTheta(-20);
        view().setAlpha(5);
        view().setRotateOrigin({1, -2, 3});
        view().setPosition({4, 5, 6});
        view().setWidth(7);
        const View3D before = view();
        ASSERT_TRUE(rotate(c.axis, c.degrees));
        const View3D& after = view();
        EXPECT_EQ(after.psi(), before.psi() + (c.axis == VexRotateAxis_Psi ? c.degrees : 0));
        EXPECT_EQ(after.theta(), before.theta() + (c.axis == VexRotateAxis_Theta ? c.degrees : 0));
        EXPECT_EQ(after.alpha(), before.alpha() + (c.axis == VexRotateAxis_Alpha ? c.degrees : 0));
        EXPECT_NEAR(distance(after.position(), after.rotateOrigin()),
                    distance(before.position(), before.rotateOrigin()), 1e-12);
        // P' = O + R_new * R_old^T * (P - O), with matrices computed here.
        const Matrix turn =
            mul(orientation(after.psi(), after.theta(), after.alpha()),
                transpose(orientation(before.psi(), before.theta(), before.alpha())));
        const Vector d = {4 - 1, 5 + 2, 6 - 3};
        const Vector moved = mul(turn, d);
        expectNear(after.position(), {1 + moved[0], -2 + moved[1], 3 + moved[2]}, 1e-12);
        EXPECT_EQ(after.width(), 7);
        EXPECT_EQ(after.rotateOrigin(), (Vector{1, -2, 3}));
        EXPECT_FALSE(after.perspective());
    }
}

TEST_F(View3DTest, RotationsComposeAsTheOrientationDefines) {
    view().setPosition({3, -4, 12});
    const Vector p0 = view().position();
    const Matrix r0 = view().orientation();
    // The add-on's order: alpha, psi, theta.
    ASSERT_TRUE(rotate(VexRotateAxis_Alpha, 15));
    ASSERT_TRUE(rotate(VexRotateAxis_Psi, -25));
    ASSERT_TRUE(rotate(VexRotateAxis_Theta, 100));
    EXPECT_EQ(view().psi(), 35);
    EXPECT_EQ(view().theta(), 130);
    EXPECT_EQ(view().alpha(), 15);
    const Matrix r1 = orientation(35, 130, 15);
    expectNear(view().orientation(), r1, 1e-14);
    // Each step carries the viewer rigidly, so the whole run does as well.
    expectNear(view().position(), mul(mul(r1, transpose(r0)), p0), 1e-12);
}

TEST_F(View3DTest, RotatedAngleIsKeptInMinus180To180) {
    view().setPsi(170);
    ASSERT_TRUE(rotate(VexRotateAxis_Psi, 20));
    EXPECT_DOUBLE_EQ(view().psi(), -170);
    view().setTheta(0);
    ASSERT_TRUE(rotate(VexRotateAxis_Theta, -180));
    EXPECT_EQ(view().theta(), 180);
    view().setAlpha(350);
    ASSERT_TRUE(rotate(VexRotateAxis_Alpha, 0));
    EXPECT_EQ(view().alpha(), -10);
}

TEST_F(View3DTest, RotationAboutTheViewerLeavesThePosition) {
    const Vector before = view().position();
    ASSERT_TRUE(rotate(VexRotateAxis_Theta, 45, VexRotateOriginLocation_Viewer));
    EXPECT_EQ(view().position(), before);
    EXPECT_EQ(view().theta(), 75);
}

struct WorldAxisCase {
    const char* name;
    VexRotateAxis_e axis;
    Vector vector;
    Matrix (*matrix)(double);
};

Matrix aboutX(double d) {
    return rx(d);
}
Matrix aboutY(double d) {
    return ry(d);
}
Matrix aboutZ(double d) {
    return rz(d);
}

TEST_F(View3DTest, WorldAxisRotationTurnsTheOrientationAndDerivesTheAngles) {
    const std::vector<WorldAxisCase> cases = {
        {"X", VexRotateAxis_X, {0, 0, 0}, &aboutX},
        {"Y", VexRotateAxis_Y, {0, 0, 0}, &aboutY},
        {"Z", VexRotateAxis_Z, {0, 0, 0}, &aboutZ},
        {"vector along y", VexRotateAxis_AboutVector, {0, 2, 0}, &aboutY}};
    for (const WorldAxisCase& c : cases) {
        SCOPED_TRACE(c.name);
        view().setPsi(-40);
        view().setTheta(25);
        view().setAlpha(10);
        view().setPosition({2, 3, 4});
        const Matrix before = view().orientation();
        ASSERT_TRUE(rotate(c.axis, 30, VexRotateOriginLocation_DefinedOrigin, c.vector));
        const Matrix turn = c.matrix(30);
        expectNear(view().orientation(), mul(turn, before), 1e-12);
        expectNear(view().position(), mul(turn, Vector{2, 3, 4}), 1e-12);
        EXPECT_LT(view().psi(), 0) << "keeps the sign of psi";
        EXPECT_GT(view().psi(), -180);
        EXPECT_LE(view().psi(), 180);
    }
}

TEST_F(View3DTest, RotationAboutAZeroVectorIsAHostError) {
    EXPECT_FALSE(rotate(VexRotateAxis_AboutVector, 30));
    ASSERT_EQ(takeHostErrors().size(), 1u);
    EXPECT_EQ(view().psi(), 60);
}

TEST_F(View3DTest, RotationWithoutAFrameIsAHostError) {
    host().frames().removeAll();
    EXPECT_FALSE(rotate(VexRotateAxis_Psi, 3));
    EXPECT_EQ(takeHostErrors(), std::vector<std::string>{"VexUtilViewRotate3D: there is no frame"});
}

TEST_F(View3DTest, RotationSendsTheViewStateChange) {
    ASSERT_TRUE(rotate(VexRotateAxis_Psi, 1));
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_View), 1u);
}

TEST_F(View3DTest, ViewerAngleIsAnsweredInRadians) {
    double psi, theta, alpha;
    VexUtilThreeDViewGetViewerAngle(&psi, &theta, &alpha);
    EXPECT_DOUBLE_EQ(psi, 60 * Pi / 180);
    EXPECT_DOUBLE_EQ(theta, 30 * Pi / 180);
    EXPECT_EQ(alpha, 0);
}

// What the add-on does to apply a view, and then to capture one.
void applyView(VexAddOn_pa addOn, const double (&v)[7]) {
    using vexplot::toolbox::StyleValue;
    ScopedLock lock(addOn);
    VexUtilDrawGraphics(false);
    const StyleValue view("ThreeDView");
    view.set(v[3], "PSIAngle");
    view.set(v[4], "ThetaAngle");
    view.set(v[5], "AlphaAngle");
    view.set(v[0], "ViewerPosition", "X");
    view.set(v[1], "ViewerPosition", "Y");
    view.set(v[2], "ViewerPosition", "Z");
    bool perspective = false;
    view.get(perspective, "DrawInPerspective");
    view.set(false, "DrawInPerspective");
    view.set(v[6], "ViewWidth");
    view.set(perspective, "DrawInPerspective");
    VexUtilDrawGraphics(true);
}

std::array<double, 7> captureView() {
    std::array<double, 7> v{};
    VexUtilThreeDViewGetViewerPos(&v[0], &v[1], &v[2]);
    VexUtilThreeDViewGetViewerAngle(&v[3], &v[4], &v[5]);
    for (int i = 3; i < 6; ++i)
        v[i] *= DegreesPerRadian;
    double fieldOfView;
    bool perspective;
    VexUtilThreeDViewGetProjection(&fieldOfView, &v[6], &perspective);
    return v;
}

TEST_F(View3DTest, AppliedViewIsCapturedAgain) {
    const double views[][7] = {{1, 2, 3, 30, 45, 0, 10},
                               {-5.5, 0.25, 100, 350, -170, 720, 0.5},
                               {0, 0, -20, -89.9, 179.99, 12.34, 1234}};
    view().setPerspective(true);
    for (const auto& v : views) {
        applyView(addOn_, v);
        const std::array<double, 7> captured = captureView();
        for (int i = 0; i < 7; ++i)
            EXPECT_NEAR(captured[i], v[i], 1e-12 * std::max(1.0, std::fabs(v[i]))) << i;
    }
    EXPECT_TRUE(view().perspective()) << "applying leaves perspective as it was";
    EXPECT_EQ(view().fieldOfView(), 30);
}

TEST_F(View3DTest, SettingAnAngleChangesThatAngleOnly) {
    const Vector position = view().position();
    {
        ScopedLock lock(addOn_);
        vexplot::toolbox::StyleValue("ThreeDView", "PSIAngle").set(400.0);
    }
    EXPECT_EQ(view().psi(), 400) << "stored as given";
    EXPECT_EQ(view().theta(), 30);
    EXPECT_EQ(view().position(), position);
}

}  // namespace
