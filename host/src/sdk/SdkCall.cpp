#include "sdk/SdkCall.h"

#include "sdk/StyleArgList.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/FrameStack.h"

namespace vexhost {
namespace sdk {

void appendArg(std::string& out, const StyleArgs& value) {
    // Path words in P1..P6 order, whatever order the list has them in, then the value of a set.
    const VexArg_s* words[StyleArgList::MaxWords] = {};
    const VexArg_s* valueArg = nullptr;
    for (int32_t n = 0; value.args != nullptr && n < value.count; ++n) {
        const VexArg_s& arg = value.args[n];
        if (arg.name == nullptr)
            continue;
        const int index = StyleArgList::pathWordIndex(arg.name);
        if (index >= 0)
            words[index] = &arg;
        else
            valueArg = &arg;
    }
    bool first = true;
    auto separate = [&] {
        if (!first)
            out += ", ";
        first = false;
    };
    for (const VexArg_s* word : words) {
        if (word == nullptr)
            continue;
        separate();
        text::appendQuoted(out, word->type == VexArgType_String ? word->value.s : nullptr);
    }
    if (!value.withValue || valueArg == nullptr)
        return;
    separate();
    switch (valueArg->type) {
        case VexArgType_String:
            text::appendQuoted(out, valueArg->value.s);
            break;
        case VexArgType_Double:
            text::appendNumber(out, valueArg->value.d);
            break;
        case VexArgType_Int:
            text::appendNumber(out, valueArg->value.i);
            break;
        case VexArgType_Bool:
            out += valueArg->value.b ? "true" : "false";
            break;
        default:
            out += "<pointer>";
            break;
    }
}

void SdkCall::appendHostArg(std::string& out, AddOnArg value) const {
    out += host_.addOns().describe(value.handle);
}

void SdkCall::appendHostArg(std::string& out, FreedString value) const {
    const bool live = value.value != nullptr && host_.bookkeeping().isString(value.value);
    text::appendQuoted(out, live ? value.value : nullptr);
}

Frame* SdkCall::requireActiveFrame() const {
    Frame* frame = host_.frames().active();
    if (frame == nullptr)
        error("there is no frame");
    return frame;
}

Frame* SdkCall::requireCurrentFrame() const {
    Frame* frame = host_.frames().current();
    if (frame == nullptr)
        error("there is no frame");
    return frame;
}

}  // namespace sdk
}  // namespace vexhost
