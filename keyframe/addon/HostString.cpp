#include "addon/HostString.h"

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

HostString::~HostString() {
    reset();
}

HostString HostString::allocate(int32_t maxLength, const char* debugInfo) {
    return HostString(VexUtilStringAlloc(maxLength, debugInfo));
}

char** HostString::receive() {
    reset();
    return &string_;
}

char* HostString::release() {
    char* string = string_;
    string_ = nullptr;
    return string;
}

void HostString::reset() {
    if (string_ != nullptr)
        VexUtilStringDealloc(&string_);
    string_ = nullptr;
}

}  // namespace vexutiltools
}  // namespace vexplot
