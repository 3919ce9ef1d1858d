#include "vexhost/FrameRange.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vexhost {

FrameRange FrameRange::of(uint64_t frames, int members, int member) {
    if (members < 1 || member < 0 || member >= members)
        throw std::invalid_argument("FrameRange::of(): member " + std::to_string(member) +
                                    " of a team of " + std::to_string(members));
    const uint64_t count = static_cast<uint64_t>(members);
    const uint64_t m = static_cast<uint64_t>(member);
    const uint64_t share = frames / count;
    const uint64_t extra = frames % count;
    // By count, not by cost: frames of one flight cost about the same, and a member's frames are
    // known only at the finish, too late to measure them.
    const uint64_t first = m * share + std::min(m, extra);
    return {first, first + share + (m < extra ? 1 : 0)};
}

}  // namespace vexhost
