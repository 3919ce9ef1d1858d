#include "addon/OnIdleManager.h"

#include <stdexcept>

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

OnIdleManager::OnIdleManager() = default;

OnIdleManager::~OnIdleManager() = default;

bool OnIdleManager::queueCallback(const boost::function<void()>& callable) {
    if (callable.empty())
        throw std::invalid_argument("OnIdleManager::queueCallback(): empty callable");
    if (!pending_.empty())
        return false;
    pending_ = callable;
    if (!VexUtilOnIdleQueueAddCallback(&OnIdleManager::idleCallback, this)) {
        pending_.clear();
        return false;
    }
    return true;
}

void OnIdleManager::idleCallback(void* clientData) {
    auto* manager = static_cast<OnIdleManager*>(clientData);
    if (manager->pending_.empty())
        throw std::logic_error("OnIdleManager::idleCallback(): no callable pending");

    // Cleared only after the call, so requests made while the work runs are dropped; cleared on
    // the way out of an exception too, or the manager would refuse every later request.
    struct ClearOnExit {
        boost::function<void()>& pending;
        ~ClearOnExit() { pending.clear(); }
    } clearOnExit{manager->pending_};
    manager->pending_();
}

}  // namespace vexutiltools
}  // namespace vexplot
