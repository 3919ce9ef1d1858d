#include "FlightHost.h"

#include <stdexcept>
#include <vector>

#include "RunScene.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"

namespace vexplot {
namespace path {

FlightHost::FlightHost(const app::RunOptions& scene, const std::string& addOnPath)
    : host_(vexhost::Host::instance()) {
    host_.reset();
    addOn_ = vexhost::AddOnLibrary::load(addOnPath);
    try {
        const std::vector<std::string> errors = host_.errors().take();
        if (!errors.empty())
            throw std::runtime_error("The add-on \"" + addOnPath +
                                     "\" misbehaved while it registered: " + errors.front());
        app::RunScene::show(host_, scene);
        host_.idleQueue().runUntilEmpty();
    } catch (...) {
        // The library closes as this throws: the host must hold nothing of it by then.
        host_.reset();
        throw;
    }
}

FlightHost::~FlightHost() {
    host_.idleQueue().runUntilEmpty();
    host_.shutDown();
    host_.idleQueue().runUntilEmpty();
    host_.reset();
}

const vexhost::View3D& FlightHost::view() const {
    return host_.frames().active()->view();
}

double FlightHost::solutionTime() const {
    return host_.dataSet().solutionTime();
}

flight::FlightViews FlightHost::fly(const std::string& keyFrameFile) const {
    return flight::FlightViews::fly(host_, keyFrameFile);
}

flight::FlightViews FlightHost::open(const std::string& keyFrameFile) const {
    return flight::FlightViews::open(host_, keyFrameFile);
}

}  // namespace path
}  // namespace vexplot
