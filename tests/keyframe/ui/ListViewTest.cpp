#include "ui/ListView.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/ListModelKeyFrame.h"
#include "support/AddOnFixture.h"
#include "ui/ListMultiSelectionModel.h"
#include "ui/ListSelectionModelObserverInterface.h"
#include "ui/ListSingleSelectionModel.h"
#include "vexgui.h"
#include "vexhost/GuiControl.h"
#include "vexhost/GuiModel.h"

namespace vexplot {
namespace vexutiltools {
namespace {

KeyFrame_s keyFrame(const std::string& name) {
    KeyFrame_s frame;
    frame.name = name;
    frame.frameCount = 30;
    return frame;
}

std::vector<KeyFrame_s> keyFrames(std::initializer_list<const char*> names) {
    std::vector<KeyFrame_s> frames;
    for (const char* name : names)
        frames.push_back(keyFrame(name));
    return frames;
}

class SelectionRecorder : public ListSelectionModelObserverInterface {
public:
    void selectionChanged(const std::vector<int64_t>& selected) override {
        selections.push_back(selected);
    }
    std::vector<std::vector<int64_t>> selections;
};

// A list control in a dialog of its own, shown by a ListView over a key frame list.
class ListViewTest : public vextest::AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        dialogId = VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 4000, 3000, "Lists",
                                              nullptr, nullptr, nullptr, nullptr);
        listId = VexGUIListAdd(dialogId, 100, 100, 2000, 1400, true, nullptr, nullptr);
        singleListId = VexGUIListAdd(dialogId, 2200, 100, 1500, 1400, false, nullptr, nullptr);
    }

    const vexhost::GuiControl& list(int32_t id) const { return *host().guiModel().control(id); }
    const vexhost::GuiControl& list() const { return list(listId); }
    // Selects lines as the add-on would not: directly in the host's model, as a user's click.
    void userSelects(std::vector<int32_t> lines) {
        host().guiModel().control(listId)->selection = std::move(lines);
    }
    // The list calls in the log, leaving the log empty.
    std::vector<std::string> listCalls() {
        std::vector<std::string> calls;
        for (const std::string& call : takeCallLog()) {
            if (call.rfind("VexGUI", 0) == 0)
                calls.push_back(call.substr(0, call.find('(')));
        }
        return calls;
    }

    int32_t dialogId = VEXGUI_BAD_ID;
    int32_t listId = VEXGUI_BAD_ID;
    int32_t singleListId = VEXGUI_BAD_ID;
    ListModelKeyFrame model;
};

using Lines = std::vector<std::string>;
using Selection = std::vector<int32_t>;

TEST_F(ListViewTest, AnEmptyModelShowsItsEmptyListTextInAnInsensitiveControl) {
    ListView view(listId, true);
    view.setModel(&model);
    EXPECT_EQ(list().items, Lines{"No Key Frames established."});
    EXPECT_FALSE(list().sensitive);
}

TEST_F(ListViewTest, TheFirstItemRebuildsTheControlInsteadOfFollowingThePlaceholder) {
    ListView view(listId, true);
    view.setModel(&model);
    startCallLog();
    model.insertItem(0, keyFrame("View 1"));
    EXPECT_EQ(list().items, Lines{"View 1"});
    EXPECT_TRUE(list().sensitive);
    const std::vector<std::string> calls = listCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "VexGUIListDeleteAllItems"), calls.end());
}

TEST_F(ListViewTest, AppendingAtTheEndAppendsLinesWithoutRebuilding) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    startCallLog();
    model.insertItems(2, keyFrames({"C", "D"}));
    EXPECT_EQ(list().items, (Lines{"A", "B", "C", "D"}));
    EXPECT_EQ(listCalls(),
              (std::vector<std::string>{"VexGUIListGetItemCount", "VexGUIListAppendItem",
                                        "VexGUIListAppendItem"}));
}

TEST_F(ListViewTest, InsertingBeforeTheLastLineRebuildsAndKeepsTheSelectedLine) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    userSelects({2});
    startCallLog();
    model.insertItem(1, keyFrame("New"));
    EXPECT_EQ(list().items, (Lines{"A", "New", "B"}));
    const std::vector<std::string> calls = listCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(), "VexGUIListDeleteAllItems"), calls.end());
    // The selection is kept by line number, not by item.
    EXPECT_EQ(list().selection, Selection{2});
}

TEST_F(ListViewTest, DeletingTheSelectedLastLineLeavesNoSelection) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    userSelects({3});
    model.removeItem(2);
    EXPECT_EQ(list().items, (Lines{"A", "B"}));
    EXPECT_TRUE(list().selection.empty());
}

TEST_F(ListViewTest, DeletingALineAboveTheSelectionKeepsTheLineNumberWhichNowShowsTheNextItem) {
    // Kept on purpose: the saved selection is not shifted for the deleted line.
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    userSelects({2});
    model.removeItem(0);
    EXPECT_EQ(list().items, (Lines{"B", "C"}));
    EXPECT_EQ(list().selection, Selection{2});
    EXPECT_EQ(list().items[1], "C");
}

TEST_F(ListViewTest, RemovingEveryItemShowsTheEmptyState) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    model.removeItems(0, 2);
    EXPECT_EQ(list().items, Lines{"No Key Frames established."});
    EXPECT_FALSE(list().sensitive);
}

TEST_F(ListViewTest, AChangedItemReplacesItsLineAndKeepsTheSelection) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    userSelects({1, 3});
    startCallLog();
    model.setName(1, "Renamed");
    EXPECT_EQ(list().items, (Lines{"A", "Renamed", "C"}));
    EXPECT_EQ(list().selection, (Selection{1, 3}));
    const std::vector<std::string> calls = listCalls();
    EXPECT_EQ(std::find(calls.begin(), calls.end(), "VexGUIListDeleteAllItems"), calls.end());
}

TEST_F(ListViewTest, AResetRebuildsEveryLineAndKeepsTheSelection) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    userSelects({2});
    model.setItems(keyFrames({"X", "Y", "Z"}));
    EXPECT_EQ(list().items, (Lines{"X", "Y", "Z"}));
    EXPECT_EQ(list().selection, Selection{2});
}

TEST_F(ListViewTest, GetSelectedItemIsMinusOneForNoneAndForSeveralLines) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    EXPECT_EQ(view.getSelectionModel().getSelectedItem(), -1);
    userSelects({2});
    EXPECT_EQ(view.getSelectionModel().getSelectedItem(), 1);
    userSelects({1, 2});
    EXPECT_EQ(view.getSelectionModel().getSelectedItem(), -1);
}

TEST_F(ListViewTest, SelectedItemsAreZeroBasedAndTheHostArrayIsFreed) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    userSelects({1, 3});
    std::vector<int64_t> selected{99};
    view.getSelectionModel().getSelectedItems(selected);
    EXPECT_EQ(selected, (std::vector<int64_t>{0, 2}));
    // The fixture's TearDown fails on a host array left outstanding.
}

TEST_F(ListViewTest, ASingleSelectionModelGivenSeveralPositionsSelectsOnlyTheFirstValidOne) {
    ListView view(singleListId, false);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    view.getSelectionModel().setSelectedItems({-1, 7, 2, 0});
    EXPECT_EQ(list(singleListId).selection, Selection{3});
}

TEST_F(ListViewTest, AMultipleSelectionModelSelectsEveryValidPositionAtOnce) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    startCallLog();
    // 2^32 + 1 narrows to 1.
    view.getSelectionModel().setSelectedItems({2, -3, 5, (int64_t{1} << 32) + 1});
    EXPECT_EQ(list().selection, (Selection{2, 3}));
    const std::vector<std::string> log = takeCallLog();
    EXPECT_NE(std::find(log.begin(), log.end(),
                        "VexGUIListSetSelectedItems(" + std::to_string(listId) + ", [3, 2], 2)"),
              log.end());
}

TEST_F(ListViewTest, SetSelectedItemOutsideTheLinesDeselectsEveryLine) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    view.getSelectionModel().setSelectedItem(1);
    EXPECT_EQ(list().selection, Selection{2});
    view.getSelectionModel().setSelectedItem(2);
    EXPECT_TRUE(list().selection.empty());
    view.getSelectionModel().setSelectedItem(0);
    view.getSelectionModel().setSelectedItem(-1);
    EXPECT_TRUE(list().selection.empty());
}

TEST_F(ListViewTest, SelectionObserversHearTheCurrentSelection) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B", "C"}));
    SelectionRecorder recorder;
    view.getSelectionModel().addObserver(&recorder);
    view.getSelectionModel().setSelectedItems({2, 0});
    view.getSelectionModel().setSelectedItem(1);
    EXPECT_EQ(recorder.selections, (std::vector<std::vector<int64_t>>{{0, 2}, {1}}));
    view.getSelectionModel().removeObserver(&recorder);
}

TEST_F(ListViewTest, WithoutAControlNoHostCallIsMadeAtAll) {
    startCallLog();
    {
        ListView view;
        EXPECT_EQ(view.getControlId(), VEXGUI_BAD_ID);
        view.setModel(&model);
        model.insertItem(0, keyFrame("A"));
        model.insertItem(0, keyFrame("B"));
        model.setName(0, "C");
        model.removeItem(1);
        model.setItems(keyFrames({"X", "Y"}));
        std::vector<int64_t> selected;
        view.getSelectionModel().getSelectedItems(selected);
        EXPECT_TRUE(selected.empty());
        EXPECT_EQ(view.getSelectionModel().getSelectedItem(), -1);
        view.getSelectionModel().setSelectedItems({0, 1});
        view.getSelectionModel().setSelectedItem(0);
        view.suspendUpdates();
        view.resumeUpdates();
        view.setMultiSelect(false);
        view.getSelectionModel().setSelectedItems({0});
    }
    EXPECT_TRUE(takeCallLog().empty());
}

TEST_F(ListViewTest, BindingAControlLaterRebuildsIt) {
    ListView view;
    view.setModel(&model);
    model.setItems(keyFrames({"A", "B"}));
    view.setControlId(listId);
    EXPECT_EQ(list().items, (Lines{"A", "B"}));
}

TEST_F(ListViewTest, WhileSuspendedTheControlIsLeftAloneAndResumingRebuildsIt) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A"}));
    view.suspendUpdates();
    EXPECT_EQ(model.getObserverCount(), 0u);
    model.insertItem(1, keyFrame("B"));
    model.setName(0, "Z");
    EXPECT_EQ(list().items, Lines{"A"});
    view.resumeUpdates();
    EXPECT_EQ(list().items, (Lines{"Z", "B"}));
    EXPECT_EQ(model.getObserverCount(), 1u);
}

TEST_F(ListViewTest, BindingTheSameModelAgainDoesNothing) {
    ListView view(listId, true);
    view.setModel(&model);
    model.setItems(keyFrames({"A"}));
    startCallLog();
    view.setModel(&model);
    EXPECT_TRUE(takeCallLog().empty());
}

TEST_F(ListViewTest, AViewLetsGoOfAModelItDoesNotOwn) {
    ListModelKeyFrame other;
    other.setItems(keyFrames({"Other"}));
    {
        ListView view(listId, true);
        view.setModel(&model);
        view.setModel(&other);
        EXPECT_EQ(model.getObserverCount(), 0u);
        EXPECT_EQ(list().items, Lines{"Other"});
    }
    EXPECT_EQ(other.getObserverCount(), 0u);
    EXPECT_EQ(other.getItemCount(), 1u);
}

TEST_F(ListViewTest, AnAdoptedModelIsShownLikeAnyOther) {
    ListView view(listId, true);
    auto* adopted = new ListModelKeyFrame();
    adopted->setItems(keyFrames({"Owned"}));
    view.adoptModel(adopted);
    EXPECT_EQ(view.getModel(), adopted);
    EXPECT_EQ(list().items, Lines{"Owned"});
    // Replacing it destroys it; the view follows the new one.
    view.setModel(&model);
    EXPECT_EQ(list().items, Lines{"No Key Frames established."});
}

TEST_F(ListViewTest, SetMultiSelectChoosesTheKindOfSelectionModel) {
    ListView view(listId, false);
    EXPECT_NE(dynamic_cast<ListSingleSelectionModel*>(&view.getSelectionModel()), nullptr);
    view.setMultiSelect(true);
    EXPECT_NE(dynamic_cast<ListMultiSelectionModel*>(&view.getSelectionModel()), nullptr);
    ListView defaultView;
    EXPECT_NE(dynamic_cast<ListMultiSelectionModel*>(&defaultView.getSelectionModel()), nullptr);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
