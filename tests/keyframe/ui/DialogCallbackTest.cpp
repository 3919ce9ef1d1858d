#include "ui/DialogCallback.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "addon/KeyFrameError.h"
#include "support/AddOnFixture.h"
#include "vexgui.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// A dialog stand-in: each member notes what it was called with and the lock depth it ran at.
class Probe {
public:
    void press() { depths.push_back(depth()); }
    void choose(int32_t value) {
        values.push_back(value);
        depths.push_back(depth());
    }
    void enter(const std::string& text) {
        texts.push_back(text);
        depths.push_back(depth());
    }
    void fail() { throw KeyFrameError("The probe failed."); }

    std::vector<int> depths;
    std::vector<int32_t> values;
    std::vector<std::string> texts;

private:
    static int depth() { return vexhost::Host::instance().lock().depth(); }
};

class DialogCallbackTest : public vextest::AddOnFixture {
protected:
    Probe probe;
};

TEST_F(DialogCallbackTest, RunsTheMemberOnTheClientDataUnderTheLock) {
    const VexGUIVoidCallback_pf callback = &dialogCallback<&Probe::press>;
    callback(&probe);
    EXPECT_EQ(probe.depths, std::vector<int>{1});
}

TEST_F(DialogCallbackTest, WithoutLockingTheMemberRunsOutsideTheLock) {
    const VexGUIVoidCallback_pf callback = &dialogCallback<&Probe::press, CallbackLocking::NoLock>;
    callback(&probe);
    EXPECT_EQ(probe.depths, std::vector<int>{0});
}

TEST_F(DialogCallbackTest, AnIntegerCallbackPassesTheValueOrDropsIt) {
    const VexGUIIntCallback_pf choose = &dialogCallback<&Probe::choose>;
    const VexGUIIntCallback_pf press = &dialogCallback<&Probe::press>;
    choose(3, &probe);
    press(4, &probe);
    EXPECT_EQ(probe.values, std::vector<int32_t>{3});
    EXPECT_EQ(probe.depths, (std::vector<int>{1, 1}));
}

TEST_F(DialogCallbackTest, ATextCallbackPassesTheTextAndANullTextAsEmpty) {
    const VexGUITextCallback_pf callback = &dialogCallback<&Probe::enter>;
    callback("12", &probe);
    callback(nullptr, &probe);
    EXPECT_EQ(probe.texts, (std::vector<std::string>{"12", ""}));
}

TEST_F(DialogCallbackTest, AFailureEndsInTheHostsErrorDialogWithTheLockGivenBack) {
    const VexGUIVoidCallback_pf callback = &dialogCallback<&Probe::fail>;
    callback(&probe);
    EXPECT_EQ(host().userDialogs().errorMessages(), std::vector<std::string>{"The probe failed."});
    EXPECT_EQ(host().lock().depth(), 0);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
