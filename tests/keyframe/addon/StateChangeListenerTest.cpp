#include "addon/StateChangeListener.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "addon/AddOn.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using vexplot::toolbox::StateChangeEventInterface;

class StateChangeListenerTest : public vextest::AddOnFixture {
protected:
    // Records each code and whether the add-on's lock was held when it arrived.
    StateChangeListener::Callable recorder() {
        return [this](const StateChangeEventInterface& event) {
            codes.push_back(event.getStateChange());
            lockedByAddOn.push_back(host().lock().depth() == 1 &&
                                    host().lock().innermostOwner() == AddOn::getIdentifier());
        };
    }

    std::vector<int32_t> codes;
    std::vector<bool> lockedByAddOn;
};

TEST_F(StateChangeListenerTest, ForwardsEachNotificationUnderTheAddOnsLock) {
    StateChangeListener listener(recorder());
    listener.startListening();
    host().stateChanges().send(VexStateChange_Style);
    host().stateChanges().send(VexStateChange_NewTopFrame);
    EXPECT_EQ((std::vector<int32_t>{6, 2}), codes);
    EXPECT_EQ((std::vector<bool>{true, true}), lockedByAddOn);
    EXPECT_EQ(0, host().lock().depth());
}

TEST_F(StateChangeListenerTest, HearsNothingBeforeStartOrAfterStop) {
    StateChangeListener listener(recorder());
    host().stateChanges().send(VexStateChange_Style);
    listener.startListening();
    EXPECT_TRUE(listener.isListening());
    listener.stopListening();
    EXPECT_FALSE(listener.isListening());
    host().stateChanges().send(VexStateChange_Style);
    EXPECT_TRUE(codes.empty());
    EXPECT_EQ(0u, host().stateChanges().listenerCount());
}

TEST_F(StateChangeListenerTest, RegistersWithTheHostInMode2UnderTheLock) {
    StateChangeListener listener(recorder());
    host().callLog().setEnabled(true);
    listener.startListening();
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_EQ(3u, log.size());
    EXPECT_EQ(vextest::addOnLockStart(), log[0]);
    EXPECT_EQ(vextest::callLine("VexUtilStateChangeAddCallback", {2}), log[1]);
    EXPECT_EQ(vextest::addOnLockFinish(), log[2]);
    EXPECT_EQ(1u, host().stateChanges().listenerCount());
}

TEST_F(StateChangeListenerTest, StopsListeningAfterTheShutdownCode) {
    StateChangeListener listener(recorder());
    listener.startListening();
    host().shutDown();
    EXPECT_EQ(std::vector<int32_t>{15}, codes) << "the shutdown itself is still forwarded";
    EXPECT_FALSE(listener.isListening());
    EXPECT_EQ(0u, host().stateChanges().listenerCount());
    host().stateChanges().send(VexStateChange_Style);
    EXPECT_EQ(std::vector<int32_t>{15}, codes);
}

TEST_F(StateChangeListenerTest, DestructionWithdrawsTheHostCallback) {
    {
        StateChangeListener listener(recorder());
        listener.startListening();
        EXPECT_EQ(1u, host().stateChanges().listenerCount());
    }
    EXPECT_EQ(0u, host().stateChanges().listenerCount());
}

TEST_F(StateChangeListenerTest, EmptyCallableIsAProgrammingError) {
    EXPECT_THROW(StateChangeListener listener{StateChangeListener::Callable()},
                 std::invalid_argument);
}

TEST_F(StateChangeListenerTest, AFailingCallableIsShownAndGoesNoFurtherThanTheNotification) {
    StateChangeListener listener(
        [](const StateChangeEventInterface&) { throw std::runtime_error("handler failed"); });
    listener.startListening();
    EXPECT_NO_THROW(host().stateChanges().send(VexStateChange_Style));
    EXPECT_EQ(std::vector<std::string>{"handler failed"}, host().userDialogs().errorMessages());
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_TRUE(listener.isListening());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
