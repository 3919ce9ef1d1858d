// The frames one member of an export team draws (ExportTeam): a contiguous range [first, end) of
// the export's frames, counted from 0.
//
// N frames are shared by count among P members: each gets N / P frames (rounded down) and the
// first N mod P members one more, in member order. Ranges thus differ by at most one frame, each
// starts where the one before ends, member 0's starts at frame 0 and holds it whenever N >= 1, and
// members beyond the N-th (N < P) get an empty range.
#ifndef VEXHOST_FRAMERANGE_H
#define VEXHOST_FRAMERANGE_H

#include <cstdint>

namespace vexhost {

struct FrameRange {
    uint64_t first = 0;
    uint64_t end = 0;  // one past the last frame

    uint64_t size() const { return end - first; }
    bool empty() const { return end == first; }
    bool operator==(const FrameRange& other) const {
        return first == other.first && end == other.end;
    }

    // Member `member` (0 <= member < members) of a team of `members` sharing `frames` frames.
    static FrameRange of(uint64_t frames, int members, int member);
};

}  // namespace vexhost

#endif
