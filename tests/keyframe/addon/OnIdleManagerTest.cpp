#include "addon/OnIdleManager.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"
#include "vexhost/IdleQueue.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class OnIdleManagerTest : public vextest::AddOnFixture {
protected:
    OnIdleManager manager;
    std::vector<std::string> ran;
};

TEST_F(OnIdleManagerTest, TwoRequestsBeforeTheHostIsIdleRunOnlyTheFirst) {
    EXPECT_TRUE(manager.queueCallback([this] { ran.push_back("first"); }));
    EXPECT_FALSE(manager.queueCallback([this] { ran.push_back("second"); }));
    EXPECT_EQ(1u, host().idleQueue().pending());
    host().idleQueue().runUntilEmpty();
    EXPECT_EQ(std::vector<std::string>{"first"}, ran);
}

TEST_F(OnIdleManagerTest, AfterTheWorkRanTheNextRequestIsQueued) {
    manager.queueCallback([this] { ran.push_back("first"); });
    host().idleQueue().runUntilEmpty();
    EXPECT_FALSE(manager.isPending());
    EXPECT_TRUE(manager.queueCallback([this] { ran.push_back("second"); }));
    host().idleQueue().runUntilEmpty();
    EXPECT_EQ((std::vector<std::string>{"first", "second"}), ran);
}

TEST_F(OnIdleManagerTest, RequestMadeByTheRunningWorkIsDropped) {
    bool requeued = true;
    manager.queueCallback([this, &requeued] {
        ran.push_back("work");
        requeued = manager.queueCallback([this] { ran.push_back("again"); });
    });
    EXPECT_EQ(1u, host().idleQueue().runUntilEmpty());
    EXPECT_FALSE(requeued);
    EXPECT_EQ(std::vector<std::string>{"work"}, ran);
    EXPECT_FALSE(manager.isPending());
}

TEST_F(OnIdleManagerTest, QueuesTheIdleCallbackOnceAndTakesNoLockWhenIdle) {
    host().callLog().setEnabled(true);
    manager.queueCallback([this] { ran.push_back("work"); });
    manager.queueCallback([this] { ran.push_back("dropped"); });
    EXPECT_EQ(std::vector<std::string>{vextest::callLine("VexUtilOnIdleQueueAddCallback")},
              host().callLog().take());
    host().idleQueue().runUntilEmpty();
    EXPECT_TRUE(host().callLog().take().empty());
}

TEST_F(OnIdleManagerTest, EmptyCallableIsAProgrammingError) {
    try {
        manager.queueCallback(boost::function<void()>());
        FAIL() << "an empty callable was accepted";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ("OnIdleManager::queueCallback(): empty callable", error.what());
    }
    EXPECT_FALSE(manager.isPending());
    EXPECT_EQ(0u, host().idleQueue().pending());
}

TEST_F(OnIdleManagerTest, IdleCallbackWithNothingPendingFailsLoudly) {
    try {
        OnIdleManager::idleCallback(&manager);
        FAIL() << "the idle callback ran without a pending callable";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ("OnIdleManager::idleCallback(): no callable pending", error.what());
    }
}

TEST_F(OnIdleManagerTest, WorkThatThrowsIsClearedSoTheNextRequestIsQueued) {
    manager.queueCallback([] { throw std::runtime_error("work failed"); });
    EXPECT_THROW(host().idleQueue().runUntilEmpty(), std::runtime_error);
    EXPECT_FALSE(manager.isPending());
    EXPECT_TRUE(manager.queueCallback([this] { ran.push_back("next"); }));
    host().idleQueue().runUntilEmpty();
    EXPECT_EQ(std::vector<std::string>{"next"}, ran);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
