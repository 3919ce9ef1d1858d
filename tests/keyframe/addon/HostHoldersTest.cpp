#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "addon/HostArray.h"
#include "addon/HostSet.h"
#include "addon/HostString.h"
#include "support/AddOnFixture.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/Zone.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using Kind = vexhost::Bookkeeping::Kind;

class HostHoldersTest : public vextest::AddOnFixture {
protected:
    std::size_t outstanding(Kind kind) const { return host().bookkeeping().outstanding(kind); }
};

TEST_F(HostHoldersTest, HostStringIsFreedWhenTheScopeEnds) {
    {
        HostString text = HostString::allocate(10, "test");
        ASSERT_FALSE(text.isNull());
        std::strcpy(text.get(), "0123456789");
        EXPECT_EQ("0123456789", text.str());
        EXPECT_EQ(1u, outstanding(Kind::String));
    }
    EXPECT_EQ(0u, outstanding(Kind::String));
}

TEST_F(HostHoldersTest, HostStringIsFreedWhenAnExceptionPasses) {
    try {
        HostString text = HostString::allocate(4, "test");
        throw std::runtime_error("failed while holding a host string");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(0u, outstanding(Kind::String));
}

TEST_F(HostHoldersTest, ReleasedHostStringIsLeftToTheNewOwner) {
    char* handedOver = nullptr;
    {
        HostString text = HostString::allocate(4, "test");
        handedOver = text.release();
        EXPECT_TRUE(text.isNull());
    }
    EXPECT_EQ(1u, outstanding(Kind::String));
    VexUtilStringDealloc(&handedOver);
    EXPECT_EQ(0u, outstanding(Kind::String));
}

TEST_F(HostHoldersTest, ReceiveFreesTheStringHeldBefore) {
    HostString text = HostString::allocate(4, "first");
    *text.receive() = VexUtilStringAlloc(4, "second");
    EXPECT_EQ(1u, outstanding(Kind::String));
}

TEST_F(HostHoldersTest, RefusedAllocationHoldsNothing) {
    host().bookkeeping().failStringAllocation(1);
    HostString text = HostString::allocate(4, "test");
    EXPECT_TRUE(text.isNull());
    EXPECT_EQ("", text.str());
}

TEST_F(HostHoldersTest, HostSetIsWalkedAndFreed) {
    host().frames().create(VexPlotType_Cartesian3D);
    for (double time : {0.0, 1.0, 2.0})
        host().dataSet().addZone(vexhost::Zone{"zone", time, 0, true, nullptr});
    host().dataSet().setZoneEnabled(2, false);
    {
        HostSet zones;
        ASSERT_TRUE(VexUtilZoneGetEnabled(zones.receive()));
        EXPECT_EQ(1u, outstanding(Kind::Set));
        std::vector<VexSetIndex_t> members;
        for (VexSetIndex_t m = zones.getNextMember(VEX_SET_NO_MEMBER); m != VEX_SET_NO_MEMBER;
             m = zones.getNextMember(m))
            members.push_back(m);
        EXPECT_EQ((std::vector<VexSetIndex_t>{1, 3}), members);
    }
    EXPECT_EQ(0u, outstanding(Kind::Set));
}

TEST_F(HostHoldersTest, EmptyHostSetWalksAsAnEmptySet) {
    HostSet zones;
    EXPECT_TRUE(zones.isNull());
    EXPECT_EQ(VEX_SET_NO_MEMBER, zones.getNextMember(VEX_SET_NO_MEMBER));
}

TEST_F(HostHoldersTest, HostArrayIsFreedWhenTheScopeEnds) {
    {
        HostArray<int32_t> array;
        *array.receive() =
            static_cast<int32_t*>(host().bookkeeping().allocateArray(3 * sizeof(int32_t)));
        array.get()[2] = 42;
        EXPECT_EQ(42, array[2]);
        EXPECT_EQ(1u, outstanding(Kind::Array));
    }
    EXPECT_EQ(0u, outstanding(Kind::Array));
}

TEST_F(HostHoldersTest, HoldersAreNotCopyable) {
    static_assert(!std::is_copy_constructible<HostString>::value, "one owner");
    static_assert(!std::is_copy_constructible<HostSet>::value, "one owner");
    static_assert(!std::is_copy_constructible<HostArray<int32_t>>::value, "one owner");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
