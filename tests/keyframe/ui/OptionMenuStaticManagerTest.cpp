#include "ui/OptionMenuStaticManager.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "addon/KeyFrameError.h"
#include "model/Destination_e.h"
#include "support/AddOnFixture.h"
#include "ui/ExportFormat_e.h"
#include "ui/ListModelPreMapped.h"
#include "vexhost/GuiControl.h"
#include "vexhost/GuiModel.h"

namespace vexplot {
namespace vexutiltools {
namespace {

OptionMenuStaticManager<Destination_e> destinations() {
    return OptionMenuStaticManager<Destination_e>(
        {{"On Screen", Destination_e::OnScreen}, {"To File", Destination_e::ToFile}});
}

class OptionMenuStaticManagerTest : public vextest::AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        dialog = VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 3000, 1000, "Menus", nullptr,
                                            nullptr, nullptr, nullptr);
        menu = VexGUIOptionMenuAdd(dialog, 10, 10, 1000, 145, nullptr, nullptr);
    }
    const vexhost::GuiControl& menuControl() const { return *host().guiModel().control(menu); }

    int32_t dialog = VEXGUI_BAD_ID;
    int32_t menu = VEXGUI_BAD_ID;
};

TEST_F(OptionMenuStaticManagerTest, PopulateFillsTheMenuInTableOrder) {
    auto manager = destinations();
    manager.populate(menu);
    EXPECT_EQ(manager.getControlId(), menu);
    EXPECT_EQ(menuControl().items, (std::vector<std::string>{"On Screen", "To File"}));
}

TEST_F(OptionMenuStaticManagerTest, TheFirstLineAfterPopulateIsTheFirstEntrysValue) {
    auto manager = destinations();
    manager.populate(menu);
    EXPECT_EQ(manager.getSelectedValue(), Destination_e::OnScreen);
}

TEST_F(OptionMenuStaticManagerTest, SetSelectedValueShowsTheValuesEntry) {
    auto manager = destinations();
    manager.populate(menu);
    EXPECT_TRUE(manager.setSelectedValue(Destination_e::ToFile));
    EXPECT_EQ(menuControl().choice, 2);
    EXPECT_EQ(manager.getSelectedValue(), Destination_e::ToFile);
}

TEST_F(OptionMenuStaticManagerTest, AValueNotInTheTableIsRefusedAndTheMenuLeftAlone) {
    auto manager = destinations();
    manager.populate(menu);
    manager.setSelectedValue(Destination_e::ToFile);
    startCallLog();
    EXPECT_FALSE(manager.setSelectedValue(static_cast<Destination_e>(7)));
    EXPECT_TRUE(takeCallLog().empty());
    EXPECT_EQ(menuControl().choice, 2);
}

TEST_F(OptionMenuStaticManagerTest, GetDisplayStringOfAValue) {
    auto manager = destinations();
    EXPECT_EQ(manager.getDisplayString(Destination_e::OnScreen), "On Screen");
    EXPECT_EQ(manager.getDisplayString(uint64_t{1}), "To File");
}

TEST_F(OptionMenuStaticManagerTest, GetDisplayStringOfAMissingValueRaisesTheExactError) {
    OptionMenuStaticManager<Destination_e> manager({{"To File", Destination_e::ToFile}});
    try {
        manager.getDisplayString(Destination_e::OnScreen);
        FAIL() << "no KeyFrameError";
    } catch (const KeyFrameError& error) {
        EXPECT_STREQ(error.what(),
                     "Error in OptionMenuStaticManager::getDisplayString:\nThe requested item "
                     "does not exist in the model.");
    }
}

TEST(ListModelPreMappedTest, IndexOfItemSearchesEveryEntry) {
    ListModelPreMapped<ExportFormat_e> model({{"AVI", ExportFormat_e::AVI},
                                              {"MPEG-4", ExportFormat_e::MPEG4},
                                              {"WMV", ExportFormat_e::WMV}});
    EXPECT_EQ(model.indexOfItem(ExportFormat_e::WMV), 2u);
    EXPECT_EQ(model.indexOfItem(ExportFormat_e::MPEG4), 1u);
    EXPECT_EQ(model.indexOfItem(ExportFormat_e::Flash), model.getInvalidIndex());
    EXPECT_EQ(model.getInvalidIndex(), 4u);
}

TEST(ListModelPreMappedTest, TheTableIsFixed) {
    ListModelPreMapped<ExportFormat_e> model({{"AVI", ExportFormat_e::AVI}});
    model.insertItem(0, ExportFormat_e::WMV);
    model.insertItems(0, {ExportFormat_e::WMV});
    model.replaceItem(0, ExportFormat_e::WMV);
    model.removeItem(0);
    model.removeItems(0, 1);
    EXPECT_EQ(model.getItemCount(), 1u);
    EXPECT_EQ(model.getItem(0), ExportFormat_e::AVI);
    EXPECT_EQ(model.getDisplayString(0), "AVI");
    EXPECT_EQ(model.getEmptyListText(), "No items available.");
    EXPECT_THROW(model.getItem(1), std::out_of_range);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
