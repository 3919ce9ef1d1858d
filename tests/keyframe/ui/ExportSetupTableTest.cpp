#include "ui/ExportSetupTable.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "ui/ExportFormat_e.h"
#include "ui/ExportRegion_e.h"
#include "ui/FlashImageType_e.h"

namespace vexplot {
namespace vexutiltools {
namespace {

TEST(ExportSetupTableTest, EachTableNamesItsAttribute) {
    EXPECT_STREQ(ExportSetupTable<ExportFormat_e>::instance().getAttribute(), "ExportFormat");
    EXPECT_STREQ(ExportSetupTable<ExportRegion_e>::instance().getAttribute(), "ExportRegion");
    EXPECT_STREQ(ExportSetupTable<FlashImageType_e>::instance().getAttribute(), "FlashImageType");
}

TEST(ExportSetupTableTest, TheFormatsKeywordsMenuEntriesAndExtensions) {
    const ExportSetupTable<ExportFormat_e>& table = ExportSetupTable<ExportFormat_e>::instance();
    const ExportSetupTable<ExportFormat_e>::Entry& flash = table.getEntry(ExportFormat_e::Flash);
    EXPECT_STREQ(flash.keyword, "FLASH");
    EXPECT_STREQ(flash.menuText, "Flash (SWF)");
    EXPECT_EQ(flash.fileExtension, "swf");
    EXPECT_STREQ(table.getEntry(ExportFormat_e::RasterMetafile).keyword, "RASTERMETAFILE");

    const auto menu = table.getMenuEntries();
    ASSERT_EQ(menu.size(), 6u);
    EXPECT_EQ(menu.front().displayText, "AVI");
    EXPECT_EQ(menu.back().value, ExportFormat_e::WMV);
}

TEST(ExportSetupTableTest, RegionsAndImageTypesHaveKeywordsAndNoExtension) {
    const auto& region =
        ExportSetupTable<ExportRegion_e>::instance().getEntry(ExportRegion_e::CurrentFrame);
    EXPECT_STREQ(region.keyword, "CURRENTFRAME");
    EXPECT_STREQ(region.menuText, "Active Frame");
    EXPECT_EQ(region.fileExtension, "");
    EXPECT_STREQ(
        ExportSetupTable<FlashImageType_e>::instance().getEntry(FlashImageType_e::Color256).keyword,
        "256COLOR");
}

TEST(ExportSetupTableTest, ValuesOutsideTheTableAreOutOfRange) {
    try {
        ExportSetupTable<ExportFormat_e>::instance().getEntry(static_cast<ExportFormat_e>(1));
        FAIL() << "no exception";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "Enumeration out of range.");
    }
}

TEST(ExportSetupTableTest, ThePrintersWriteTheEnumeratorsOrTheNumber) {
    EXPECT_EQ(::testing::PrintToString(ExportFormat_e::RasterMetafile), "RasterMetafile");
    EXPECT_EQ(::testing::PrintToString(ExportFormat_e::Flash), "Flash");
    EXPECT_EQ(::testing::PrintToString(static_cast<ExportFormat_e>(1)), "ExportFormat_e(1)");
    EXPECT_EQ(::testing::PrintToString(ExportRegion_e::WorkArea), "WorkArea");
    EXPECT_EQ(::testing::PrintToString(static_cast<ExportRegion_e>(-1)), "ExportRegion_e(-1)");
    EXPECT_EQ(::testing::PrintToString(FlashImageType_e::Color256), "Color256");
    EXPECT_EQ(::testing::PrintToString(static_cast<FlashImageType_e>(3)), "FlashImageType_e(3)");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
