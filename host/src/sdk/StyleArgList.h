// The argument list of a style X-call taken apart: the path words P1..P6 (names in any case, in any
// order in the list, strings, no gaps, each once) and VALUE (once; a value for a set, a non-null
// pointer for a get). A malformed list is recorded as a host error under the call's name, and
// problem() says which return code the call gives for it. Makes no heap allocation for a
// well-formed list.
#ifndef VEXHOST_SDK_STYLEARGLIST_H
#define VEXHOST_SDK_STYLEARGLIST_H

#include <cstdint>

#include "vxsdkbase.h"

namespace vexhost {
namespace sdk {

class SdkCall;

class StyleArgList {
public:
    // Path: the path is malformed (InvalidCommandOption / InvalidPath); Value: the value is
    // (InvalidValue / WrongType).
    enum class Problem { None, Path, Value };
    static constexpr int MaxWords = 6;

    StyleArgList(const SdkCall& call, const VexArg_s* args, int32_t count, bool isSet);

    Problem problem() const { return problem_; }
    // Valid without a problem: the path's words in P1..Pn order, and the VALUE argument.
    const char* const* words() const { return words_; }
    int depth() const { return depth_; }
    const VexArg_s& value() const { return *value_; }

    // 0 to 5 for the argument names P1 to P6 (any case); -1 for any other name.
    static int pathWordIndex(const char* name) {
        if ((name[0] != 'P' && name[0] != 'p') || name[1] < '1' || name[1] > '6' || name[2] != '\0')
            return -1;
        return name[1] - '1';
    }

private:
    Problem parse(const SdkCall& call, const VexArg_s* args, int32_t count, bool isSet);

    const char* words_[MaxWords] = {};
    int depth_ = 0;
    const VexArg_s* value_ = nullptr;
    Problem problem_ = Problem::None;
};

}  // namespace sdk
}  // namespace vexhost

#endif
