#include "vexhost/CallLog.h"

namespace vexhost {

std::vector<std::string> CallLog::take() {
    std::vector<std::string> taken;
    taken.swap(entries_);
    return taken;
}

void CallLog::reset() {
    enabled_ = false;
    calls_ = 0;
    entries_.clear();
}

}  // namespace vexhost
