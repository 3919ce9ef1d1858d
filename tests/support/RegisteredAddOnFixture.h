// vextest::RegisteredAddOnFixture: a clean host (vextest::HostTest) with one add-on registered
// through the SDK, as an add-on's entry point registers itself, for host tests that make SDK calls
// under an add-on's lock (ScopedLock lock(addOn_)).
#ifndef VEXTEST_REGISTEREDADDONFIXTURE_H
#define VEXTEST_REGISTEREDADDONFIXTURE_H

#include "support/HostTest.h"

namespace vextest {

class RegisteredAddOnFixture : public HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        addOn_ = registerAddOn();
    }

    VexAddOn_pa addOn_ = nullptr;
};

}  // namespace vextest

#endif
