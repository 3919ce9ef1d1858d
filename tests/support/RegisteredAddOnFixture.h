// vextest::RegisteredAddOnFixture: a clean host (vextest::HostFixture) with one add-on registered
// through the SDK, as an add-on's entry point registers itself, for host tests that make SDK calls
// under an add-on's lock (ScopedLock lock(addOn_)).
#ifndef VEXTEST_REGISTEREDADDONFIXTURE_H
#define VEXTEST_REGISTEREDADDONFIXTURE_H

#include "support/HostFixture.h"

namespace vextest {

class RegisteredAddOnFixture : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        addOn_ = registerAddOn();
    }

    VexAddOn_pa addOn_ = nullptr;
};

}  // namespace vextest

#endif
