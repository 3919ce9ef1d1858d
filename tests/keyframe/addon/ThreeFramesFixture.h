// The fixture of the frame popper tests: the add-on loaded into a clean host
// (vextest::AddOnFixture) with three 3D frames; the last created is on top and active, so the stack
// order is 3, 2, 1.
#ifndef VEXTEST_ADDON_THREEFRAMESFIXTURE_H
#define VEXTEST_ADDON_THREEFRAMESFIXTURE_H

#include <cstddef>
#include <vector>

#include "support/AddOnFixture.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"

namespace vextest {

class ThreeFramesFixture : public AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
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
