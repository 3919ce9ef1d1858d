#include "addon/KeyFrameError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>

namespace vexplot {
namespace vexutiltools {
namespace {

TEST(KeyFrameErrorTest, WhatReturnsTheMessageByteForByte) {
    const KeyFrameError error("Animation canceled.");
    EXPECT_STREQ("Animation canceled.", error.what());
}

TEST(KeyFrameErrorTest, KeepsLineFeedsAndTrailingBlanks) {
    const std::string message = "Error reading key frame settings file.\n\nUnable to read  \n";
    EXPECT_EQ(message, KeyFrameError(message).what());
}

TEST(KeyFrameErrorTest, IsCaughtAsAStandardException) {
    static_assert(std::is_base_of<std::exception, KeyFrameError>::value,
                  "KeyFrameError must derive from std::exception");
    try {
        throw KeyFrameError("The current frame must be in 3D Cartesian mode.");
    } catch (const std::exception& error) {
        EXPECT_STREQ("The current frame must be in 3D Cartesian mode.", error.what());
        return;
    }
    FAIL() << "KeyFrameError was not caught as std::exception";
}

TEST(KeyFrameErrorTest, CopiesCarryTheSameMessage) {
    const KeyFrameError original("Invalid file header.");
    const KeyFrameError copy(original);  // NOLINT(performance-unnecessary-copy-initialization)
    KeyFrameError assigned("something else");
    assigned = original;
    EXPECT_STREQ("Invalid file header.", copy.what());
    EXPECT_STREQ("Invalid file header.", assigned.what());
    EXPECT_NE(original.what(), copy.what()) << "a copy owns its own text";
}

TEST(KeyFrameErrorTest, EmptyMessageIsAnEmptyText) {
    EXPECT_STREQ("", KeyFrameError("").what());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
