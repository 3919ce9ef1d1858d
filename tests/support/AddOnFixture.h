// Fixture for tests of the add-on against the host: a clean host (vextest::HostFixture) with the
// add-on loaded as a host loads it.
//
// SetUp resets the add-on's state and the host (HostFixture) and then calls the add-on's entry
// point InitVexAddOn113, so the add-on is registered as "Key Frame Animation" with this host, its
// menu item and macro callback are in place, the identifier that every add-on lock passes belongs
// to this host, and the main dialog's state is fresh (an empty list, default settings). The call
// log is off during the registration (the host reset switches it off), so a test that switches the
// log on sees its own calls only. TearDown is HostFixture's: the add-on's state dropped, then no
// host errors, no lock held, drawing on, no percent-done status open, no host memory outstanding,
// no export running.
#ifndef VEXTEST_ADDONFIXTURE_H
#define VEXTEST_ADDONFIXTURE_H

#include "support/HostFixture.h"

namespace vextest {

class AddOnFixture : public HostFixture {
protected:
    void SetUp() override;
};

}  // namespace vextest

#endif
