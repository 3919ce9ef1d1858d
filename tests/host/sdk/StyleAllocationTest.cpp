// Style calls sit on the hot path of the add-on's view interpolation, so with the call log off they
// must not touch the heap. Counted here by replacing the global allocation functions of this test
// program (the host library's allocations resolve to them as well).
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "support/HostFixture.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {
std::size_t allocations = 0;
}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* p = std::malloc(size > 0 ? size : 1))
        return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}

namespace {

using vexplot::toolbox::ArgList;
using vextest::ScopedLock;

class StyleAllocationTest : public vextest::HostFixture {};

TEST_F(StyleAllocationTest, StyleCallsWithTheLogOffAllocateNothing) {
    createFrame3D();
    VexAddOn_pa addOn = registerAddOn();
    ScopedLock lock(addOn);
    ArgList setAngle;
    setAngle.appendString(VEXARG_P1, "ThreeDView")
        .appendString(VEXARG_P2, "PSIAngle")
        .appendDouble(VEXARG_VALUE, 30);
    ArgList setPosition;
    setPosition.appendString(VEXARG_P1, "threedview")
        .appendString(VEXARG_P2, "ViewerPosition")
        .appendString(VEXARG_P3, "X")
        .appendInt(VEXARG_VALUE, 4);
    bool perspective = true;
    ArgList getPerspective;
    getPerspective.appendString(VEXARG_P1, "ThreeDView")
        .appendString(VEXARG_P2, "DrawInPerspective")
        .appendBoolPtr(VEXARG_VALUE, &perspective);
    double intensity = 0;
    ArgList getIntensity;
    getIntensity.appendString(VEXARG_P1, "GlobalThreeD")
        .appendString(VEXARG_P2, "LightSource")
        .appendString(VEXARG_P3, "Intensity")
        .appendDoublePtr(VEXARG_VALUE, &intensity);

    const std::size_t before = allocations;
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(VexUtilStyleSetLowLevelX(setAngle.data(), setAngle.size()), VexSetValue_Ok);
        ASSERT_EQ(VexUtilStyleSetLowLevelX(setPosition.data(), setPosition.size()), VexSetValue_Ok);
        ASSERT_EQ(VexUtilStyleGetLowLevelX(getPerspective.data(), getPerspective.size()),
                  VexGetValue_Ok);
        ASSERT_EQ(VexUtilStyleGetLowLevelX(getIntensity.data(), getIntensity.size()),
                  VexGetValue_Ok);
        ASSERT_TRUE(VexUtilViewRotate3D(VexRotateAxis_Alpha, 1, 0, 0, 0,
                                        VexRotateOriginLocation_DefinedOrigin));
    }
    EXPECT_EQ(allocations, before);
    EXPECT_FALSE(perspective);
    EXPECT_EQ(intensity, 75);
}

TEST_F(StyleAllocationTest, CountingSeesTheLoggedCallsAllocate) {
    createFrame3D();
    startCallLog();
    const std::size_t before = allocations;
    double x = 0;
    vexplot::toolbox::StyleValue("ThreeDView", "ViewerPosition", "X").get(x);
    EXPECT_GT(allocations, before) << "the counter must see the host library's allocations";
    takeCallLog();
}

}  // namespace
