#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StateNotifier.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

class StateNotifierTest : public vextest::HostFixture {};

struct Listener {
    std::string name;
    std::vector<std::string>* heard;
    Listener* toRemove = nullptr;  // removed (possibly itself) on the first notification
    bool removed = false;
};

void hear(int32_t code, void* clientData) {
    auto* self = static_cast<Listener*>(clientData);
    self->heard->push_back(self->name + ":" + std::to_string(code));
    if (self->toRemove != nullptr && !self->toRemove->removed) {
        self->toRemove->removed = true;
        VexUtilStateChangeRemoveCallback(&hear, self->toRemove);
    }
}

Listener* late = nullptr;
void addLateListener(int32_t code, void* clientData) {
    hear(code, clientData);
    if (late != nullptr) {
        VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, late);
        late = nullptr;
    }
}

TEST_F(StateNotifierTest, ListenersHearEachCodeInRegistrationOrder) {
    std::vector<std::string> heard;
    Listener a{"a", &heard}, b{"b", &heard};
    ASSERT_TRUE(VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a));
    ASSERT_TRUE(VexUtilStateChangeAddCallback(VexStateChangeMode_v80, &hear, &b));
    host().stateChanges().send(VexStateChange_Style);
    host().stateChanges().send(VexStateChange_View);
    EXPECT_EQ(heard, (std::vector<std::string>{"a:6", "b:6", "a:7", "b:7"}));
    VexUtilStateChangeRemoveCallback(&hear, &a);
    VexUtilStateChangeRemoveCallback(&hear, &b);
}

TEST_F(StateNotifierTest, ListenerMayRemoveItselfWhileNotified) {
    std::vector<std::string> heard;
    Listener a{"a", &heard}, b{"b", &heard}, c{"c", &heard};
    b.toRemove = &b;
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &b);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &c);
    host().stateChanges().send(1);
    host().stateChanges().send(2);
    EXPECT_EQ(heard, (std::vector<std::string>{"a:1", "b:1", "c:1", "a:2", "c:2"}));
    EXPECT_EQ(host().stateChanges().listenerCount(), 2u);
    VexUtilStateChangeRemoveCallback(&hear, &a);
    VexUtilStateChangeRemoveCallback(&hear, &c);
}

TEST_F(StateNotifierTest, ListenerRemovedByAnotherDuringASendIsNotCalled) {
    std::vector<std::string> heard;
    Listener a{"a", &heard}, b{"b", &heard};
    a.toRemove = &b;
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &b);
    host().stateChanges().send(5);
    EXPECT_EQ(heard, (std::vector<std::string>{"a:5"}));
    VexUtilStateChangeRemoveCallback(&hear, &a);
}

TEST_F(StateNotifierTest, ListenerAddedDuringASendHearsFromTheNextCode) {
    std::vector<std::string> heard;
    Listener a{"a", &heard}, b{"b", &heard};
    late = &b;
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &addLateListener, &a);
    host().stateChanges().send(8);
    host().stateChanges().send(9);
    EXPECT_EQ(heard, (std::vector<std::string>{"a:8", "a:9", "b:9"}));
    VexUtilStateChangeRemoveCallback(&addLateListener, &a);
    VexUtilStateChangeRemoveCallback(&hear, &b);
}

TEST_F(StateNotifierTest, ShutDownSendsQuitProgram) {
    std::vector<std::string> heard;
    Listener a{"a", &heard};
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a);
    host().shutDown();
    EXPECT_EQ(heard, (std::vector<std::string>{"a:15"}));
    VexUtilStateChangeRemoveCallback(&hear, &a);
}

TEST_F(StateNotifierTest, DuplicateRegistrationAndUnknownRemovalAreHostErrors) {
    std::vector<std::string> heard;
    Listener a{"a", &heard};
    EXPECT_TRUE(VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a));
    EXPECT_FALSE(VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a));
    EXPECT_TRUE(VexUtilStateChangeRemoveCallback(&hear, &a));
    EXPECT_FALSE(VexUtilStateChangeRemoveCallback(&hear, &a));
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilStateChangeAddCallback: this callback and client data are registered "
                  "already",
                  "VexUtilStateChangeRemoveCallback: this callback and client data are not "
                  "registered"}));
}

void throwOnStateChange(int32_t code, void*) {
    throw std::runtime_error("listener failed on " + std::to_string(code));
}

TEST_F(StateNotifierTest, AnExceptionOutOfACallbackIsAHostErrorAndTheOthersStillHear) {
    std::vector<std::string> heard;
    Listener a{"a", &heard};
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &throwOnStateChange, nullptr);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &hear, &a);
    EXPECT_NO_THROW(host().stateChanges().send(VexStateChange_Style));
    EXPECT_EQ(heard, (std::vector<std::string>{"a:6"}));
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{"VexUtilStateChangeAddCallback: the callback let an "
                                        "exception out on state change 6: listener failed on 6"}));
    // The send ended properly: a listener removed now is gone at once.
    VexUtilStateChangeRemoveCallback(&throwOnStateChange, nullptr);
    VexUtilStateChangeRemoveCallback(&hear, &a);
    EXPECT_EQ(host().stateChanges().listenerCount(), 0u);
}

class ToolboxListener : public vexplot::toolbox::StateChangeListenerInterface {
public:
    void stateChanged(const vexplot::toolbox::StateChangeEventInterface& event) override {
        codes.push_back(event.getStateChange());
    }
    std::vector<int32_t> codes;
};

TEST_F(StateNotifierTest, ToolboxNotifierRegistersOnceAndLeavesWithItsLastListener) {
    ToolboxListener first, second;
    {
        vexplot::toolbox::StateChangeNotifier notifier;
        notifier.addListener(&first);
        notifier.addListener(&second);
        EXPECT_EQ(host().stateChanges().listenerCount(), 1u);
        host().frames().create();
        notifier.removeListener(&first);
        host().shutDown();
    }
    EXPECT_EQ(host().stateChanges().listenerCount(), 0u);
    EXPECT_EQ(first.codes, (std::vector<int32_t>{VexStateChange_FrameCreated}));
    EXPECT_EQ(second.codes,
              (std::vector<int32_t>{VexStateChange_FrameCreated, VexStateChange_QuitProgram}));
}

}  // namespace
