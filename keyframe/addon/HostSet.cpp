#include "addon/HostSet.h"

namespace vexplot {
namespace vexutiltools {

HostSet::~HostSet() {
    reset();
}

VexSet_pa* HostSet::receive() {
    reset();
    return &set_;
}

VexSetIndex_t HostSet::getNextMember(VexSetIndex_t member) const {
    // An empty holder is walked as an empty set rather than handed to the host as a bad handle.
    if (set_ == nullptr)
        return VEX_SET_NO_MEMBER;
    return VexUtilSetGetNextMember(set_, member);
}

void HostSet::reset() {
    if (set_ != nullptr)
        VexUtilSetDealloc(&set_);
    set_ = nullptr;
}

}  // namespace vexutiltools
}  // namespace vexplot
