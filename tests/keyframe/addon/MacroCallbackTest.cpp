#include "addon/MacroCallback.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addon/HostString.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/Host.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// Fails in the parser whatever executers exist.
const std::string UnknownCommand = "Unknown macro command: Fly";

class MacroCallbackTest : public vextest::AddOnFixture {};

TEST_F(MacroCallbackTest, FailingCommandsReturnTheAddOnsErrorText) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Fly", UnknownCommand},
        {"", "Invalid macro command string."},
        {"Animate Speed=3", "Unknown macro parameter: Speed"}};
    for (const auto& [command, message] : cases) {
        const vexhost::AddOnRegistry::CommandResult result =
            host().addOns().runMacroCommand("Key Frame Animation", command);
        EXPECT_FALSE(result.ok) << command;
        EXPECT_EQ("Key Frame Animation error:\n" + message, result.error) << command;
    }
}

TEST_F(MacroCallbackTest, AllocatesTheMessageLengthPlus29UnderTheLock) {
    host().callLog().setEnabled(true);
    HostString errorText;
    EXPECT_FALSE(macroCallback("Fly", errorText.receive()));
    EXPECT_EQ("Key Frame Animation error:\n" + UnknownCommand, errorText.str());
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_EQ(3u, log.size());
    EXPECT_EQ(vextest::addOnLockStart(), log[0]);
    EXPECT_EQ("VexUtilStringAlloc(" + std::to_string(UnknownCommand.size() + 29) +
                  ", \"Key Frame Animation macro error\")",
              log[1]);
    EXPECT_EQ(vextest::addOnLockFinish(), log[2]);
}

TEST_F(MacroCallbackTest, RefusedAllocationFailsWithNothingStored) {
    host().bookkeeping().failStringAllocation(1);
    char* errorText = nullptr;
    EXPECT_FALSE(macroCallback("Fly", &errorText));
    EXPECT_EQ(nullptr, errorText);
}

TEST_F(MacroCallbackTest, StoreMacroErrorFormatsAnyMessageUnderTheAddOnName) {
    HostString errorText;
    storeMacroError("Unknown macro command: Fly", errorText.receive());
    EXPECT_EQ("Key Frame Animation error:\nUnknown macro command: Fly", errorText.str());
}

TEST_F(MacroCallbackTest, StoreMacroErrorKeepsAnEmptyMessage) {
    HostString errorText;
    storeMacroError("", errorText.receive());
    EXPECT_EQ("Key Frame Animation error:\n", errorText.str());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
