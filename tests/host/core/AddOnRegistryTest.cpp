#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace {

using vexhost::AddOnRegistry;

class AddOnRegistryTest : public vextest::HostFixture {};

int menuChoices = 0;
void countMenuChoice() {
    ++menuChoices;
}

std::vector<std::string> commandsReceived;

bool acceptCommand(const char* commandString, char** /*errMsg*/) {
    commandsReceived.emplace_back(commandString);
    return true;
}

bool refuseCommand(const char* commandString, char** errMsg) {
    commandsReceived.emplace_back(commandString);
    const char* message = "Test Add-On error:\nNo such command.";
    char* text = VexUtilStringAlloc(static_cast<int32_t>(std::strlen(message)), "error");
    std::strcpy(text, message);
    *errMsg = text;
    return false;
}

char foreignText[] = "not a host string";
bool refuseWithForeignString(const char*, char** errMsg) {
    *errMsg = foreignText;
    return false;
}

TEST_F(AddOnRegistryTest, RegistrationKeepsSdkVersionNameVersionAndAuthor) {
    VexUtilLockOn();
    VexAddOn_pa handle = VexUtilAddOnRegister(110, "Key Frame Animation", "1.0.0", "Maker");
    VexUtilLockOff();
    ASSERT_NE(handle, nullptr);
    ASSERT_EQ(host().addOns().addOnCount(), 1u);
    const AddOnRegistry::AddOn& addOn = host().addOns().addOn(0);
    EXPECT_EQ(addOn.sdkVersion, 110);
    EXPECT_EQ(addOn.name, "Key Frame Animation");
    EXPECT_EQ(addOn.versionText, "1.0.0");
    EXPECT_EQ(addOn.author, "Maker");
    EXPECT_EQ(host().addOns().find(handle), &addOn);
    EXPECT_EQ(host().addOns().findByName("Key Frame Animation"), &addOn);
}

TEST_F(AddOnRegistryTest, RegistrationWithoutNameIsRefused) {
    EXPECT_EQ(VexUtilAddOnRegister(110, nullptr, "1", "M"), nullptr);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilAddOnRegister: the add-on name is missing"});
}

TEST_F(AddOnRegistryTest, MenuItemIsChosenByMenuPathAndLabel) {
    menuChoices = 0;
    ASSERT_TRUE(VexUtilMenuAddOption("Animate", "&Key Frame Animation...", 1, &countMenuChoice));
    ASSERT_EQ(host().addOns().menuOptions().size(), 1u);
    EXPECT_EQ(host().addOns().menuOptions()[0].mnemonic, 1);

    EXPECT_TRUE(host().addOns().chooseMenuOption("Animate", "&Key Frame Animation..."));
    EXPECT_TRUE(host().addOns().chooseMenuOption("Animate", "Key Frame Animation..."));
    EXPECT_EQ(menuChoices, 2);
    EXPECT_FALSE(host().addOns().chooseMenuOption("File", "Key Frame Animation..."));
    EXPECT_FALSE(host().addOns().chooseMenuOption("Animate", "Key Frame"));
    EXPECT_EQ(menuChoices, 2);
}

TEST_F(AddOnRegistryTest, MacroCommandReachesTheAddOnsCallback) {
    commandsReceived.clear();
    ASSERT_TRUE(VexUtilMacroAddCommandCallback("Test Add-On", &acceptCommand));
    const AddOnRegistry::CommandResult result = host().addOns().runMacroCommand(
        "Test Add-On", "Animate AnimationDestination = \"OnScreen\"");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(commandsReceived,
              std::vector<std::string>{"Animate AnimationDestination = \"OnScreen\""});
}

TEST_F(AddOnRegistryTest, FailingMacroCommandGivesItsErrorTextAndTheHostFreesIt) {
    ASSERT_TRUE(VexUtilMacroAddCommandCallback("Test Add-On", &refuseCommand));
    const AddOnRegistry::CommandResult result =
        host().addOns().runMacroCommand("Test Add-On", "Bad");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, "Test Add-On error:\nNo such command.");
    EXPECT_EQ(host().bookkeeping().outstanding(vexhost::Bookkeeping::Kind::String), 0u);
}

TEST_F(AddOnRegistryTest, ErrorTextThatIsNotAHostStringIsAHostError) {
    ASSERT_TRUE(VexUtilMacroAddCommandCallback("Test Add-On", &refuseWithForeignString));
    const AddOnRegistry::CommandResult result = host().addOns().runMacroCommand("Test Add-On", "x");
    EXPECT_EQ(result.error, "not a host string");
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexMacroCommandCallback: the error message returned by "
                                       "the add-on Test Add-On is not a host string "
                                       "(VexUtilStringAlloc)"});
}

TEST_F(AddOnRegistryTest, MacroCommandOfAnAddOnWithoutCallbackFails) {
    const AddOnRegistry::CommandResult result = host().addOns().runMacroCommand("Nobody", "x");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, "No add-on named \"Nobody\" has a macro command callback.");
}

TEST_F(AddOnRegistryTest, SecondMacroCallbackForOneAddOnIsRefused) {
    ASSERT_TRUE(VexUtilMacroAddCommandCallback("Test Add-On", &acceptCommand));
    EXPECT_FALSE(VexUtilMacroAddCommandCallback("Test Add-On", &refuseCommand));
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilMacroAddCommandCallback: the add-on \"Test Add-On\" "
                                       "already has a macro command callback"});
    EXPECT_TRUE(host().addOns().runMacroCommand("Test Add-On", "x").ok);
}

TEST_F(AddOnRegistryTest, ResetForgetsAddOnsMenusAndCallbacks) {
    VexAddOn_pa handle = registerAddOn();
    VexUtilMenuAddOption("Animate", "&Go", 1, &countMenuChoice);
    VexUtilMacroAddCommandCallback("Test Add-On", &acceptCommand);
    host().reset();
    EXPECT_EQ(host().addOns().addOnCount(), 0u);
    EXPECT_EQ(host().addOns().find(handle), nullptr);
    EXPECT_TRUE(host().addOns().menuOptions().empty());
    EXPECT_FALSE(host().addOns().hasMacroCallback("Test Add-On"));
}

}  // namespace
