#include "support/AddOnFixture.h"

#include "addon/InitVexAddOn113.h"

namespace vextest {

void AddOnFixture::SetUp() {
    HostFixture::SetUp();
    InitVexAddOn113();
}

}  // namespace vextest
