#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/IdleQueue.h"
#include "vxsdkbase.h"

namespace {

class IdleQueueTest : public vextest::HostFixture {};

std::vector<int> ran;

void note(void* clientData) {
    ran.push_back(*static_cast<int*>(clientData));
}

int one = 1, two = 2, three = 3;

void noteAndQueueThree(void* clientData) {
    note(clientData);
    VexUtilOnIdleQueueAddCallback(&note, &three);
}

void requeueForever(void* clientData) {
    VexUtilOnIdleQueueAddCallback(&requeueForever, clientData);
}

TEST_F(IdleQueueTest, CallbacksRunInTheOrderQueued) {
    ran.clear();
    EXPECT_TRUE(VexUtilOnIdleQueueAddCallback(&note, &two));
    EXPECT_TRUE(VexUtilOnIdleQueueAddCallback(&note, &one));
    EXPECT_EQ(host().idleQueue().pending(), 2u);
    EXPECT_TRUE(ran.empty()) << "nothing runs before the host is idle";
    EXPECT_EQ(host().idleQueue().runUntilEmpty(), 2u);
    EXPECT_EQ(ran, (std::vector<int>{2, 1}));
    EXPECT_EQ(host().idleQueue().pending(), 0u);
}

TEST_F(IdleQueueTest, WorkQueuedWhileRunningRunsInTheSamePassAfterTheRest) {
    ran.clear();
    VexUtilOnIdleQueueAddCallback(&noteAndQueueThree, &one);
    VexUtilOnIdleQueueAddCallback(&note, &two);
    EXPECT_EQ(host().idleQueue().runUntilEmpty(), 3u);
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
}

TEST_F(IdleQueueTest, EndlessRequeueingIsCutOffAsAHostError) {
    VexUtilOnIdleQueueAddCallback(&requeueForever, nullptr);
    EXPECT_EQ(host().idleQueue().runUntilEmpty(), vexhost::IdleQueue::MaxCallbacksPerRun);
    EXPECT_EQ(host().idleQueue().pending(), 0u);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilOnIdleQueueAddCallback: the idle queue was still "
                                       "not empty after 100000 callbacks in one run; 1 dropped "
                                       "(a callback keeps queueing itself)"});
}

TEST_F(IdleQueueTest, MissingCallbackIsRefused) {
    EXPECT_FALSE(VexUtilOnIdleQueueAddCallback(nullptr, nullptr));
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilOnIdleQueueAddCallback: the callback is missing"});
}

}  // namespace
