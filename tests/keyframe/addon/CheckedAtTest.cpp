#include "addon/CheckedAt.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <vector>

namespace vexplot {
namespace vexutiltools {
namespace {

void expectInvalidSubscript(const std::vector<int>& items, uint64_t position) {
    try {
        checkedAt(items, position);
        ADD_FAILURE() << "position " << position << " of " << items.size() << " was accepted";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
}

TEST(CheckedAtTest, ReturnsTheItemAtAPositionBelowTheSize) {
    std::vector<int> items{4, 5, 6};
    EXPECT_EQ(4, checkedAt(items, 0));
    EXPECT_EQ(6, checkedAt(items, 2));
    checkedAt(items, 1) = 50;
    EXPECT_EQ(50, items[1]);
}

TEST(CheckedAtTest, PositionAtOrPastTheSizeIsAnInvalidVectorSubscript) {
    expectInvalidSubscript({}, 0);
    expectInvalidSubscript({1, 2}, 2);
    expectInvalidSubscript({1, 2}, std::numeric_limits<uint64_t>::max());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
