#include "model/ListModelChange.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Printed.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using vextest::printed;

TEST(ListModelChangeTest, KindsHaveTheirFixedNumbers) {
    EXPECT_EQ(0u, static_cast<uint32_t>(ListModelChange::Inserted));
    EXPECT_EQ(1u, static_cast<uint32_t>(ListModelChange::Removed));
    EXPECT_EQ(2u, static_cast<uint32_t>(ListModelChange::Changed));
    EXPECT_EQ(3u, static_cast<uint32_t>(ListModelChange::Reset));
    static_assert(sizeof(ListModelChange::Kind_e) == 4, "32-bit kind");
}

TEST(ListModelChangeTest, PrinterShowsKindNamesAndPositions) {
    EXPECT_EQ("Inserted", printed(ListModelChange::Inserted));
    EXPECT_EQ("Removed", printed(ListModelChange::Removed));
    EXPECT_EQ("Changed", printed(ListModelChange::Changed));
    EXPECT_EQ("Reset", printed(ListModelChange::Reset));
    EXPECT_EQ("Kind_e(9)", printed(static_cast<ListModelChange::Kind_e>(9)));
    EXPECT_EQ("Inserted [2, 3]", printed(ListModelChange{ListModelChange::Inserted, {2, 3}}));
    EXPECT_EQ("Reset []", printed(ListModelChange{ListModelChange::Reset, {}}));
}

TEST(ListModelChangeTest, EqualWhenKindAndPositionsAreEqual) {
    EXPECT_EQ((ListModelChange{ListModelChange::Removed, {1}}),
              (ListModelChange{ListModelChange::Removed, {1}}));
    EXPECT_NE((ListModelChange{ListModelChange::Removed, {1}}),
              (ListModelChange{ListModelChange::Changed, {1}}));
    EXPECT_NE((ListModelChange{ListModelChange::Removed, {1}}),
              (ListModelChange{ListModelChange::Removed, {1, 2}}));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
