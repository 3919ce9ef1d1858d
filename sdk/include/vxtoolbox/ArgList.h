/*
 * Vexplot SDK toolbox: ArgList, the named arguments of an X-call.
 *
 * Built on the caller's stack and passed to the host as an array of VexArg_s; the host copies what
 * it keeps, so no host memory is involved. Names and strings are referenced, not copied: they must
 * outlive the call.
 */
#ifndef VXTOOLBOX_ARGLIST_H
#define VXTOOLBOX_ARGLIST_H

#include <cstdint>
#include <stdexcept>

#include "vxsdkbase.h"

namespace vexplot {
namespace toolbox {

class ArgList {
public:
    static constexpr int32_t Capacity = 10;

    ArgList& appendString(const char* name, const char* value) {
        VexArg_s& arg = next(name, VexArgType_String);
        arg.value.s = value;
        return *this;
    }
    ArgList& appendDouble(const char* name, double value) {
        next(name, VexArgType_Double).value.d = value;
        return *this;
    }
    ArgList& appendInt(const char* name, int64_t value) {
        next(name, VexArgType_Int).value.i = value;
        return *this;
    }
    ArgList& appendBool(const char* name, bool value) {
        next(name, VexArgType_Bool).value.b = value;
        return *this;
    }
    ArgList& appendDoublePtr(const char* name, double* value) {
        next(name, VexArgType_DoublePtr).value.dp = value;
        return *this;
    }
    ArgList& appendIntPtr(const char* name, int64_t* value) {
        next(name, VexArgType_IntPtr).value.ip = value;
        return *this;
    }
    ArgList& appendBoolPtr(const char* name, bool* value) {
        next(name, VexArgType_BoolPtr).value.bp = value;
        return *this;
    }
    ArgList& appendStringPtr(const char* name, char** value) {
        next(name, VexArgType_StringPtr).value.sp = value;
        return *this;
    }

    const VexArg_s* data() const { return args_; }
    int32_t size() const { return count_; }

private:
    VexArg_s& next(const char* name, VexArgType_e type) {
        if (count_ == Capacity)
            throw std::length_error("ArgList::next(): more than ArgList::Capacity arguments");
        VexArg_s& arg = args_[count_++];
        arg.name = name;
        arg.type = type;
        return arg;
    }

    VexArg_s args_[Capacity] = {};
    int32_t count_ = 0;
};

} // namespace toolbox
} // namespace vexplot

#endif
