#ifndef VEXUTILTOOLS_HOSTSET_H
#define VEXUTILTOOLS_HOSTSET_H

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Owns one host set (for example the enabled zones) and frees it with VexUtilSetDealloc when the
// scope ends, so no path can leak it.
class HostSet {
public:
    HostSet() = default;
    ~HostSet();

    HostSet(const HostSet&) = delete;
    HostSet& operator=(const HostSet&) = delete;

    // Frees what is held and returns the place where a host call stores a new set.
    VexSet_pa* receive();

    VexSet_pa get() const { return set_; }
    bool isNull() const { return set_ == nullptr; }

    // The member after `member` (VEX_SET_NO_MEMBER starts the walk); VEX_SET_NO_MEMBER at the end
    // and for an empty holder.
    VexSetIndex_t getNextMember(VexSetIndex_t member) const;

private:
    void reset();

    VexSet_pa set_ = nullptr;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
