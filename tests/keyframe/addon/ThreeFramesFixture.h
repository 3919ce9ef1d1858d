// The fixture of the frame popper tests: the add-on loaded into a clean host (vextest::AddOnTest)
// with three 3D frames; the last created is on top and active, so the stack order is 3, 2, 1.
#ifndef VEXTEST_ADDON_THREEFRAMESFIXTURE_H
#define VEXTEST_ADDON_THREEFRAMESFIXTURE_H

#include <cstddef>
#include <vector>

#include "support/AddOnTest.h"
#include "vexhost/Host.h"
#include "vexhost/FrameStack.h"

namespace vextest {

class ThreeFramesFixture : public AddOnTest {
protected:
    void SetUp() override {
        AddOnTest::SetUp();
        for (int i = 0; i < 3; ++i)
            host().frames().create(VexPlotType_Cartesian3D);
    }

    // The frames' unique ids, top of the stack first.
    std::vector<VexUniqueID_t> stackOrder() const {
        std::vector<VexUniqueID_t> ids;
        for (int i = 0; i < host().frames().count(); ++i)
            ids.push_back(host().frames().at(static_cast<std::size_t>(i)).uniqueId());
        return ids;
    }
    VexUniqueID_t activeId() const { return host().frames().active()->uniqueId(); }
};

}  // namespace vextest

#endif
