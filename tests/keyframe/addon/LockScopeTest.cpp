#include "addon/LockScope.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "addon/AddOn.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class LockScopeTest : public vextest::AddOnFixture {};

TEST_F(LockScopeTest, HoldsTheHostLockWithTheAddOnIdentifier) {
    {
        LockScope lock;
        EXPECT_EQ(1, host().lock().depth());
        EXPECT_EQ(AddOn::getIdentifier(), host().lock().innermostOwner());
    }
    EXPECT_EQ(0, host().lock().depth());
}

TEST_F(LockScopeTest, NestedScopesStartAndFinishOncePerScope) {
    host().callLog().setEnabled(true);
    {
        LockScope outer;
        LockScope inner;
        EXPECT_EQ(2, host().lock().depth());
    }
    EXPECT_EQ((std::vector<std::string>{vextest::addOnLockStart(), vextest::addOnLockStart(),
                                        vextest::addOnLockFinish(), vextest::addOnLockFinish()}),
              host().callLog().take());
}

TEST_F(LockScopeTest, ReleasesTheLockWhenAnExceptionPasses) {
    try {
        LockScope lock;
        throw std::runtime_error("failed inside the lock");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(0, host().lock().depth());
}

TEST_F(LockScopeTest, IsNotCopyable) {
    static_assert(!std::is_copy_constructible<LockScope>::value, "a lock is held once");
    static_assert(!std::is_copy_assignable<LockScope>::value, "a lock is held once");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
