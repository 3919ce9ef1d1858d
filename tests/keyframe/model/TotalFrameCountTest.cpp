#include "model/TotalFrameCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace vexplot {
namespace vexutiltools {
namespace {

struct TotalFrameCountCase {
    std::string name;
    std::vector<uint64_t> frameCounts;
    uint64_t expected;
};

std::vector<KeyFrame_s> keyFramesWithCounts(const std::vector<uint64_t>& frameCounts) {
    std::vector<KeyFrame_s> keyFrames;
    for (uint64_t count : frameCounts) {
        KeyFrame_s keyFrame;
        keyFrame.frameCount = count;
        keyFrames.push_back(keyFrame);
    }
    return keyFrames;
}

// Test names and failures show the row's name rather than its bytes.
void PrintTo(const TotalFrameCountCase& row, std::ostream* out) {
    *out << row.name;
}

class TotalFrameCountTest : public ::testing::TestWithParam<TotalFrameCountCase> {};

TEST_P(TotalFrameCountTest, IsOnePlusTheFrameCountsOfAllButTheLastKeyFrame) {
    const TotalFrameCountCase& row = GetParam();
    EXPECT_EQ(row.expected, totalFrameCount(keyFramesWithCounts(row.frameCounts)));
}

const uint64_t Big = std::numeric_limits<uint64_t>::max() / 2;

INSTANTIATE_TEST_SUITE_P(
    Lists, TotalFrameCountTest,
    ::testing::Values(
        TotalFrameCountCase{"OneKeyFrameIsOneFrame", {30}, 1},
        TotalFrameCountCase{"LastFrameCountNeverCounts", {10, 99}, 11},
        // Frame count 1: the key frame's own frame only, the next key frame follows at once.
        TotalFrameCountCase{"FrameCountOneIsTheKeyFrameAlone", {1, 50}, 2},
        TotalFrameCountCase{"ThreeKeyFrames", {3, 2, 7}, 6},
        TotalFrameCountCase{"AllFrameCountsOne", {1, 1, 1, 1}, 4},
        TotalFrameCountCase{"EmptyListIsTheEmptySumPlusOne", {}, 1},
        TotalFrameCountCase{"SumsInUnsigned64Bit", {Big, Big, 7}, 2 * Big + 1}),
    [](const ::testing::TestParamInfo<TotalFrameCountCase>& info) { return info.param.name; });

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
