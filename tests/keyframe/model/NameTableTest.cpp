#include "model/NameTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

namespace vexplot {
namespace vexutiltools {
namespace {

enum class Colour_e : int32_t { Red = 0, Green = 1, DarkBlue = 2, Unnamed = 9 };

std::ostream& operator<<(std::ostream& out, Colour_e colour) {
    return out << "Colour_e(" << static_cast<int32_t>(colour) << ")";
}

const NameTable<Colour_e>& colours() {
    static const NameTable<Colour_e> table{
        {Colour_e::Red, "Red"}, {Colour_e::Green, "Green"}, {Colour_e::DarkBlue, "DarkBlue"}};
    return table;
}

template <typename F>
void expectOutOfRange(F f) {
    try {
        f();
        FAIL() << "no std::out_of_range";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("Enumeration out of range.", error.what());
    }
}

TEST(NameTableTest, NamesAreSpelledAsTheTableSpellsThem) {
    EXPECT_EQ("Red", colours().getName(Colour_e::Red));
    EXPECT_EQ("Green", colours().getName(Colour_e::Green));
    EXPECT_EQ("DarkBlue", colours().getName(Colour_e::DarkBlue));
}

struct LookupCase {
    const char* name;
    Colour_e value;
};

TEST(NameTableTest, NameLookupsIgnoreCase) {
    const LookupCase cases[] = {{"Red", Colour_e::Red},           {"red", Colour_e::Red},
                                {"RED", Colour_e::Red},           {"gReEn", Colour_e::Green},
                                {"darkblue", Colour_e::DarkBlue}, {"DARKBLUE", Colour_e::DarkBlue},
                                {"dArKbLuE", Colour_e::DarkBlue}};
    for (const LookupCase& c : cases)
        EXPECT_EQ(c.value, colours().getValue(c.name)) << c.name;
}

TEST(NameTableTest, UnknownNamesAreOutOfRange) {
    for (const char* name : {"", "Blue", "Re", "Reds", "Red ", " Red", "Dark Blue"}) {
        SCOPED_TRACE(name);
        expectOutOfRange([&] { colours().getValue(name); });
    }
}

TEST(NameTableTest, BytesOutsideAsciiAreComparedWithoutHarm) {
    expectOutOfRange([] {
        colours().getValue(
            "R\xC3\xA9"
            "d");
    });
    expectOutOfRange([] { colours().getValue("\xFF\xFE"); });
}

TEST(NameTableTest, UnknownValuesAreOutOfRange) {
    expectOutOfRange([] { colours().getName(Colour_e::Unnamed); });
    EXPECT_FALSE(colours().hasValue(Colour_e::Unnamed));
    EXPECT_TRUE(colours().hasValue(Colour_e::Green));
}

TEST(NameTableTest, DuplicateValuesAreAProgrammingError) {
    EXPECT_THROW((NameTable<Colour_e>{{Colour_e::Red, "Red"}, {Colour_e::Red, "Crimson"}}),
                 std::logic_error);
}

TEST(NameTableTest, NamesEqualButForCaseAreAProgrammingError) {
    try {
        NameTable<Colour_e> table{{Colour_e::Red, "Red"}, {Colour_e::Green, "RED"}};
        FAIL() << "a table with Red and RED was built";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ("NameTable::NameTable: duplicate entry \"RED\"", error.what());
    }
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
