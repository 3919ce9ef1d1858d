#include "support/AddOnTest.h"

#include "addon/InitVexAddOn113.h"

namespace vextest {

void AddOnTest::SetUp() {
    HostTest::SetUp();
    InitVexAddOn113();
}

}  // namespace vextest
