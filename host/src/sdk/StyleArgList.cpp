#include "sdk/StyleArgList.h"

#include <string>

#include "core/Text.h"
#include "sdk/SdkCall.h"

namespace vexhost {
namespace sdk {

StyleArgList::StyleArgList(const SdkCall& call, const VexArg_s* args, int32_t count, bool isSet) {
    problem_ = parse(call, args, count, isSet);
}

StyleArgList::Problem StyleArgList::parse(const SdkCall& call, const VexArg_s* args, int32_t count,
                                          bool isSet) {
    if (count < 0 || (count > 0 && args == nullptr)) {
        call.error("the argument list is missing");
        return Problem::Path;
    }
    for (int32_t n = 0; n < count; ++n) {
        const VexArg_s& arg = args[n];
        if (arg.name == nullptr) {
            call.error("argument " + std::to_string(n + 1) + " has no name");
            return Problem::Path;
        }
        const int index = pathWordIndex(arg.name);
        if (index >= 0) {
            if (arg.type != VexArgType_String || arg.value.s == nullptr) {
                call.error(std::string("the path word ") + arg.name + " is not a string");
                return Problem::Path;
            }
            if (words_[index] != nullptr) {
                call.error(std::string("the path word ") + arg.name + " is given twice");
                return Problem::Path;
            }
            words_[index] = arg.value.s;
        } else if (text::equalsIgnoringCase(arg.name, VEXARG_VALUE)) {
            if (value_ != nullptr) {
                call.error("VALUE is given twice");
                return Problem::Value;
            }
            value_ = &arg;
        } else {
            call.error(std::string("unknown argument name \"") + arg.name + "\"");
            return Problem::Path;
        }
    }
    while (depth_ < MaxWords && words_[depth_] != nullptr)
        ++depth_;
    for (int w = depth_; w < MaxWords; ++w) {
        if (words_[w] != nullptr) {
            call.error("path word P" + std::to_string(w + 1) + " without P" +
                       std::to_string(depth_ + 1));
            return Problem::Path;
        }
    }
    if (depth_ == 0) {
        call.error("no path (P1) given");
        return Problem::Path;
    }
    if (value_ == nullptr) {
        call.error("no VALUE given");
        return Problem::Value;
    }
    const bool isPointer = value_->type >= VexArgType_DoublePtr;
    if (value_->type < VexArgType_String || value_->type > VexArgType_StringPtr ||
        isPointer == isSet) {
        call.error(isSet ? "VALUE must be a value, not a pointer"
                         : "VALUE must be a pointer to receive the value");
        return Problem::Value;
    }
    if (!isSet && value_->value.dp == nullptr) {
        call.error("VALUE is a null pointer");
        return Problem::Value;
    }
    return Problem::None;
}

}  // namespace sdk
}  // namespace vexhost
