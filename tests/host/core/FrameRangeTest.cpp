#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

#include "vexhost/FrameRange.h"

namespace {

using vexhost::FrameRange;

TEST(FrameRangeTest, FramesAreSharedByCountTheFirstMembersTakingOneMore) {
    EXPECT_EQ(FrameRange::of(10, 3, 0), (FrameRange{0, 4}));
    EXPECT_EQ(FrameRange::of(10, 3, 1), (FrameRange{4, 7}));
    EXPECT_EQ(FrameRange::of(10, 3, 2), (FrameRange{7, 10}));
    EXPECT_EQ(FrameRange::of(9, 3, 1), (FrameRange{3, 6}));
    EXPECT_EQ(FrameRange::of(91, 1, 0), (FrameRange{0, 91}));
}

TEST(FrameRangeTest, RangesFollowEachOtherAndDifferByOneFrameAtMost) {
    for (uint64_t frames : {1u, 2u, 7u, 64u, 100u, 1001u}) {
        for (int members : {1, 2, 3, 5, 64}) {
            uint64_t next = 0, least = frames, most = 0;
            for (int m = 0; m < members; ++m) {
                const FrameRange range = FrameRange::of(frames, members, m);
                EXPECT_EQ(range.first, next)
                    << frames << " frames, member " << m << " of " << members;
                next = range.end;
                least = std::min(least, range.size());
                most = std::max(most, range.size());
            }
            EXPECT_EQ(next, frames);
            EXPECT_LE(most - least, 1u);
            EXPECT_FALSE(FrameRange::of(frames, members, 0).empty()) << "member 0 has frame 0";
        }
    }
}

TEST(FrameRangeTest, MembersBeyondTheFramesHaveNone) {
    EXPECT_EQ(FrameRange::of(2, 4, 0), (FrameRange{0, 1}));
    EXPECT_EQ(FrameRange::of(2, 4, 1), (FrameRange{1, 2}));
    EXPECT_TRUE(FrameRange::of(2, 4, 2).empty());
    EXPECT_TRUE(FrameRange::of(2, 4, 3).empty());
}

TEST(FrameRangeTest, AMemberOutsideTheTeamIsAProgrammingError) {
    EXPECT_THROW(FrameRange::of(10, 3, 3), std::invalid_argument);
    EXPECT_THROW(FrameRange::of(10, 3, -1), std::invalid_argument);
    EXPECT_THROW(FrameRange::of(10, 0, 0), std::invalid_argument);
}

}  // namespace
