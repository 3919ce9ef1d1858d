// vextest::HostFixture, the fixture for every test that talks to the host.
//
// SetUp resets the host, so each test starts from a clean host (no add-ons, frames, zones, log,
// errors or memory), and the key frame add-on's process-wide state (resetAddOnState: no main
// dialog, no identifier), so a test program run directly leaks nothing from one test into the
// next. TearDown resets the add-on's state again and then checks what every run must leave
// behind:
//   - no host errors (a test that provokes them takes them with takeHostErrors());
//   - no lock held, drawing not suspended, no percent-done status open, no export recording,
//     no modal dialog up;
//   - no host string, array, set or string list outstanding.
// Derive from it; a fixture that overrides SetUp or TearDown calls the base first (SetUp) or last
// (TearDown).
#ifndef VEXTEST_HOSTFIXTURE_H
#define VEXTEST_HOSTFIXTURE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "vexhost/Host.h"
#include "vxsdkbase.h"

namespace vexhost {
class Frame;
}

namespace vextest {

class HostFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    vexhost::Host& host() const { return vexhost::Host::instance(); }

    // A new frame on top of the stack (active), 3D Cartesian unless told otherwise.
    vexhost::Frame& createFrame3D();
    vexhost::Frame& createFrame(VexPlotType_e plotType);
    // Appends an enabled zone without geometry; returns its number.
    int32_t addZone(double solutionTime, int32_t strandId = 0, const std::string& name = "Zone");
    // Registers an add-on through the SDK, as an add-on's entry point does (under the host lock).
    VexAddOn_pa registerAddOn(const char* name = "Test Add-On");

    // The host errors so far, leaving none, for tests that provoke errors on purpose.
    std::vector<std::string> takeHostErrors();
    // Starts the call log afresh (on and empty).
    void startCallLog();
    // The logged calls so far, leaving the log empty.
    std::vector<std::string> takeCallLog();
};

// Holds an add-on's lock for a scope, as the add-on's own lock scope does.
class ScopedLock {
public:
    explicit ScopedLock(VexAddOn_pa addOn) : addOn_(addOn) { VexUtilLockStart(addOn_); }
    ~ScopedLock() { VexUtilLockFinish(addOn_); }
    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;

private:
    VexAddOn_pa addOn_;
};

}  // namespace vextest

#endif
