// Fixture for tests of the add-on against the host: a clean host (vextest::HostTest) with the
// add-on loaded as a host loads it.
//
// SetUp resets the add-on's state and the host (HostTest) and then calls the add-on's entry point
// InitVexAddOn113, so the add-on is registered as "Key Frame Animation" with this host, its menu
// item and macro callback are in place, the identifier that every add-on lock passes belongs to
// this host, and the main dialog's state is fresh (an empty list, default settings). The call log
// is off during the registration (the host reset switches it off), so a test that switches the log
// on sees its own calls only. TearDown is HostTest's: the add-on's state dropped, then no host
// errors, no lock held, drawing on, no percent-done status open, no host memory outstanding, no
// export running.
#ifndef VEXTEST_ADDONTEST_H
#define VEXTEST_ADDONTEST_H

#include "support/HostTest.h"

namespace vextest {

class AddOnTest : public HostTest {
protected:
    void SetUp() override;
};

}  // namespace vextest

#endif
