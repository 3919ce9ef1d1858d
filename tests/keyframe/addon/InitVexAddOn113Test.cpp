#include "addon/InitVexAddOn113.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addon/AddOn.h"
#include "support/CallLogLines.h"
#include "support/HostFixture.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class InitVexAddOn113Test : public vextest::HostFixture {};

TEST_F(InitVexAddOn113Test, RegistersMenuAndMacroCallbackInOrderUnderTheHostLock) {
    host().callLog().setEnabled(true);
    InitVexAddOn113();
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_EQ(5u, log.size());
    EXPECT_EQ(vextest::callLine("VexUtilLockOn"), log[0]);
    EXPECT_EQ(vextest::callLine("VexUtilAddOnRegister",
                                {110, "Key Frame Animation", "1.0.0", "Vexplot Add-on Team"}),
              log[1]);
    EXPECT_EQ(vextest::callLine("VexUtilMenuAddOption", {"Animate", "&Key Frame Animation...", 1}),
              log[2]);
    EXPECT_EQ(vextest::callLine("VexUtilMacroAddCommandCallback", {"Key Frame Animation"}), log[3]);
    EXPECT_EQ(vextest::callLine("VexUtilLockOff"), log[4]);
}

TEST_F(InitVexAddOn113Test, HostKnowsTheAddOnByNameWithSdkVersion110) {
    InitVexAddOn113();
    ASSERT_EQ(1u, host().addOns().addOnCount());
    const vexhost::AddOnRegistry::AddOn& addOn = host().addOns().addOn(0);
    EXPECT_EQ("Key Frame Animation", addOn.name);
    EXPECT_EQ(110, addOn.sdkVersion);
    EXPECT_EQ("1.0.0", addOn.versionText);
    EXPECT_EQ("Vexplot Add-on Team", addOn.author);
}

TEST_F(InitVexAddOn113Test, KeepsTheIdentifierThatTheHostReturned) {
    InitVexAddOn113();
    const vexhost::AddOnRegistry::AddOn* addOn = host().addOns().find(AddOn::getIdentifier());
    ASSERT_NE(nullptr, addOn);
    EXPECT_EQ("Key Frame Animation", addOn->name);
}

TEST_F(InitVexAddOn113Test, AddsOneItemToTheAnimateMenu) {
    InitVexAddOn113();
    ASSERT_EQ(1u, host().addOns().menuOptions().size());
    const vexhost::AddOnRegistry::MenuOption& option = host().addOns().menuOptions()[0];
    EXPECT_EQ("Animate", option.menuPath);
    EXPECT_EQ("&Key Frame Animation...", option.label);
    EXPECT_EQ(1, option.mnemonic);
    EXPECT_NE(nullptr, option.callback);
}

TEST_F(InitVexAddOn113Test, RegistersTheMacroCallbackUnderTheAddOnName) {
    InitVexAddOn113();
    EXPECT_TRUE(host().addOns().hasMacroCallback("Key Frame Animation"));
}

TEST_F(InitVexAddOn113Test, LeavesNoLockHeld) {
    InitVexAddOn113();
    EXPECT_EQ(0, host().lock().depth());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
