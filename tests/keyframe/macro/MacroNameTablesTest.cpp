#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "macro/Command_e.h"
#include "macro/Parameter_e.h"
#include "model/Destination_e.h"
#include "support/Printed.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using vextest::printed;

struct CommandCase {
    Command_e value;
    int32_t number;
    const char* name;
};

TEST(CommandNameTableTest, EveryCommandHasItsNumberAndName) {
    const CommandCase cases[] = {{Command_e::OpenSettingsFile, 0, "OpenSettingsFile"},
                                 {Command_e::SaveSettingsFile, 1, "SaveSettingsFile"},
                                 {Command_e::Animate, 2, "Animate"}};
    const NameTable<Command_e>& table = NameTable<Command_e>::instance();
    for (const CommandCase& c : cases) {
        EXPECT_EQ(c.number, static_cast<int32_t>(c.value));
        EXPECT_EQ(c.name, table.getName(c.value));
        EXPECT_EQ(c.value, table.getValue(c.name));
        EXPECT_EQ(c.name, printed(c.value));
    }
    EXPECT_EQ(Command_e::OpenSettingsFile, table.getValue("opensettingsfile"));
    EXPECT_EQ(Command_e::Animate, table.getValue("ANIMATE"));
}

TEST(CommandNameTableTest, UnknownCommandsAreOutOfRangeAndPrintTheirNumber) {
    const NameTable<Command_e>& table = NameTable<Command_e>::instance();
    EXPECT_THROW(table.getValue("Fly"), std::out_of_range);
    EXPECT_THROW(table.getName(static_cast<Command_e>(3)), std::out_of_range);
    EXPECT_EQ("Command_e(3)", printed(static_cast<Command_e>(3)));
}

TEST(CommandNameTableTest, IsBuiltOnce) {
    EXPECT_EQ(&NameTable<Command_e>::instance(), &NameTable<Command_e>::instance());
}

struct ParameterCase {
    Parameter_e value;
    int32_t number;
    const char* name;
};

TEST(ParameterNameTableTest, EveryParameterHasItsNumberAndName) {
    const ParameterCase cases[] = {{Parameter_e::FileName, 0, "FileName"},
                                   {Parameter_e::AnimationDestination, 1, "AnimationDestination"}};
    const NameTable<Parameter_e>& table = NameTable<Parameter_e>::instance();
    for (const ParameterCase& c : cases) {
        EXPECT_EQ(c.number, static_cast<int32_t>(c.value));
        EXPECT_EQ(c.name, table.getName(c.value));
        EXPECT_EQ(c.value, table.getValue(c.name));
        EXPECT_EQ(c.name, printed(c.value));
    }
    EXPECT_EQ(Parameter_e::AnimationDestination, table.getValue("animationdestination"));
    EXPECT_THROW(table.getValue("Speed"), std::out_of_range);
    EXPECT_EQ("Parameter_e(-1)", printed(static_cast<Parameter_e>(-1)));
}

TEST(DestinationNameTableTest, OnScreenAndToFileInAnyCase) {
    const NameTable<Destination_e>& table = NameTable<Destination_e>::instance();
    EXPECT_EQ("OnScreen", table.getName(Destination_e::OnScreen));
    EXPECT_EQ("ToFile", table.getName(Destination_e::ToFile));
    EXPECT_EQ(Destination_e::OnScreen, table.getValue("onscreen"));
    EXPECT_EQ(Destination_e::ToFile, table.getValue("TOFILE"));
    EXPECT_EQ(Destination_e::ToFile, table.getValue("tofile"));
}

TEST(DestinationNameTableTest, NamesOutsideTheTableAreOutOfRange) {
    const NameTable<Destination_e>& table = NameTable<Destination_e>::instance();
    for (const char* name : {"Screen", "File", "On Screen", ""})
        EXPECT_THROW(table.getValue(name), std::out_of_range) << name;
    try {
        table.getName(static_cast<Destination_e>(2));
        FAIL() << "destination 2 has a name";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("Enumeration out of range.", error.what());
    }
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
