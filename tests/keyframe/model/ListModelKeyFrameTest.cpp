#include "model/ListModelKeyFrame.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/FailingListObserver.h"
#include "support/RecordingListObserver.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using Change = ListModelChange;
using vextest::FailingListObserver;
using vextest::RecordingListObserver;

KeyFrame_s keyFrame(const std::string& name, uint64_t frameCount = 30) {
    KeyFrame_s result;
    result.view = KeyFrameView_s{1, 2, 3, 30, 45, 0, 10};
    result.name = name;
    result.frameCount = frameCount;
    result.solutionTime = 0.5;
    return result;
}

std::vector<std::string> names(const ListModelKeyFrame& model) {
    std::vector<std::string> result;
    for (const KeyFrame_s& item : model.getItems())
        result.push_back(item.name);
    return result;
}

template <typename Operation>
void expectInvalidSubscript(Operation operation) {
    try {
        operation();
        ADD_FAILURE() << "an out-of-range position was accepted";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
}

class ListModelKeyFrameTest : public ::testing::Test {
protected:
    // A model holding A, B, C with one observer attached and nothing recorded yet.
    void fillAndObserve() {
        model.insertItems(0, {keyFrame("A"), keyFrame("B"), keyFrame("C")});
        model.addObserver(&observer);
    }

    ListModelKeyFrame model;
    RecordingListObserver observer;
};

TEST_F(ListModelKeyFrameTest, EmptyListReportsCountZeroInvalidIndexOneAndItsEmptyText) {
    EXPECT_EQ(0u, model.getItemCount());
    EXPECT_EQ(1u, model.getInvalidIndex());
    EXPECT_EQ("No Key Frames established.", model.getEmptyListText());
}

TEST_F(ListModelKeyFrameTest, InvalidIndexIsTheCountPlusOne) {
    fillAndObserve();
    EXPECT_EQ(4u, model.getInvalidIndex());
}

TEST_F(ListModelKeyFrameTest, InsertItemsAtTheCountAppendsAndReportsFromTheCount) {
    fillAndObserve();
    model.insertItems(3, {keyFrame("D"), keyFrame("E")});
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "D", "E"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {3, 4}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, InsertItemsPastTheEndAppendsAndReportsFromThePositionLessOne) {
    fillAndObserve();
    // Deliberate: count + 2 reports count + 1 onwards, not the count where the items went.
    model.insertItems(5, {keyFrame("D"), keyFrame("E")});
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "D", "E"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {4, 5}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, AppendAtTheInvalidIndexReportsThePositionOfTheNewItem) {
    fillAndObserve();
    model.insertItem(model.getInvalidIndex(), keyFrame("D"));
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "D"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {3}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, InsertItemsBeforeAPositionPushesTheLaterItemsDown) {
    fillAndObserve();
    model.insertItems(1, {keyFrame("X"), keyFrame("Y")});
    EXPECT_EQ((std::vector<std::string>{"A", "X", "Y", "B", "C"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {1, 2}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, InsertItemPutsOneItemAtThePosition) {
    fillAndObserve();
    model.insertItem(0, keyFrame("Z"));
    EXPECT_EQ((std::vector<std::string>{"Z", "A", "B", "C"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {0}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, InsertingNoItemsStillReportsAnInsertedChangeWithoutPositions) {
    fillAndObserve();
    model.insertItems(1, {});
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, ReplaceItemCopiesTheItemAndReportsChanged) {
    fillAndObserve();
    model.replaceItem(1, keyFrame("B2", 7));
    EXPECT_EQ(keyFrame("B2", 7), model.getItem(1));
    EXPECT_EQ((std::vector<Change>{{Change::Changed, {1}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, RemoveItemErasesThePositionAndReportsRemoved) {
    fillAndObserve();
    // No bounds check by design: callers pass a position below the count.
    model.removeItem(1);
    EXPECT_EQ((std::vector<std::string>{"A", "C"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Removed, {1}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, RemoveItemsReportsEveryRemovedPosition) {
    fillAndObserve();
    model.insertItems(3, {keyFrame("D")});
    observer.changes.clear();
    model.removeItems(1, 2);
    EXPECT_EQ((std::vector<std::string>{"A", "D"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Removed, {1, 2}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, RemovingNoItemsReportsARemovedChangeWithoutPositions) {
    fillAndObserve();
    model.removeItems(3, 0);
    EXPECT_EQ(3u, model.getItemCount());
    EXPECT_EQ((std::vector<Change>{{Change::Removed, {}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, RemoveItemsOutOfRangeChangesNothing) {
    fillAndObserve();
    expectInvalidSubscript([&] { model.removeItems(2, 2); });
    expectInvalidSubscript([&] { model.removeItems(4, 0); });
    expectInvalidSubscript([&] { model.removeItems(1, ~uint64_t{0}); });
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), names(model));
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameTest, SetFrameCountNotifiesNobody) {
    fillAndObserve();
    model.setFrameCount(2, 12);
    EXPECT_EQ(12u, model.getFrameCount(2));
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameTest, SetSolutionTimeNotifiesNobody) {
    fillAndObserve();
    model.setSolutionTime(0, 2.25);
    EXPECT_EQ(2.25, model.getSolutionTime(0));
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameTest, SetNameNotifiesChanged) {
    fillAndObserve();
    model.setName(2, "Top");
    EXPECT_EQ("Top", model.getName(2));
    EXPECT_EQ("Top", model.getDisplayString(2));
    EXPECT_EQ((std::vector<Change>{{Change::Changed, {2}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, DisplayStringIsTheKeyFrameName) {
    fillAndObserve();
    EXPECT_EQ("A", model.getDisplayString(0));
    EXPECT_EQ("C", model.getDisplayString(2));
}

TEST_F(ListModelKeyFrameTest, SetItemsWithObserversDeliversExactlyOneReset) {
    fillAndObserve();
    model.setItems({keyFrame("P"), keyFrame("Q")});
    EXPECT_EQ((std::vector<std::string>{"P", "Q"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Reset, {}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, NotifyResetDeliversOneResetAndKeepsTheItems) {
    fillAndObserve();
    model.notifyReset();
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), names(model));
    EXPECT_EQ((std::vector<Change>{{Change::Reset, {}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, TwoObserversReceiveTheRecordsInTheOrderOfTheirAddresses) {
    std::vector<std::string> journal;
    RecordingListObserver pair[2] = {RecordingListObserver(journal, "pair[0]"),
                                     RecordingListObserver(journal, "pair[1]")};
    // Attached in the reverse of address order: delivery still follows the addresses.
    model.addObserver(&pair[1]);
    model.addObserver(&pair[0]);
    model.insertItem(0, keyFrame("A"));
    EXPECT_EQ((std::vector<std::string>{"pair[0] Inserted [0]", "pair[1] Inserted [0]"}), journal);
}

TEST_F(ListModelKeyFrameTest, ChangesWithoutObserversAreDroppedNotKept) {
    model.insertItem(0, keyFrame("A"));
    model.setName(0, "A2");
    model.addObserver(&observer);
    model.insertItem(1, keyFrame("B"));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {1}}}), observer.changes);
}

TEST_F(ListModelKeyFrameTest, ResetWithoutObserversDropsLaterChangesUntilTheNextObservedReset) {
    // Kept on purpose: the reset announced with nobody listening stays pending, so the
    // positional changes that follow are dropped even after an observer is attached.
    model.setItems({keyFrame("A")});
    model.addObserver(&observer);
    model.insertItem(1, keyFrame("B"));
    model.setName(0, "A2");
    model.removeItem(1);
    EXPECT_TRUE(observer.changes.empty());

    model.notifyReset();
    model.insertItem(1, keyFrame("C"));
    EXPECT_EQ((std::vector<Change>{{Change::Reset, {}}, {Change::Inserted, {1}}}),
              observer.changes);
}

TEST_F(ListModelKeyFrameTest, AddingAnObserverTwiceDeliversOnce) {
    model.addObserver(&observer);
    model.addObserver(&observer);
    EXPECT_EQ(1u, model.getObserverCount());
    model.insertItem(0, keyFrame("A"));
    EXPECT_EQ(1u, observer.changes.size());
}

TEST_F(ListModelKeyFrameTest, RemovedObserverIsToldNothingMore) {
    fillAndObserve();
    model.removeObserver(&observer);
    EXPECT_EQ(0u, model.getObserverCount());
    model.setName(0, "A2");
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameTest, PositionalAccessorsRaiseInvalidVectorSubscript) {
    fillAndObserve();
    expectInvalidSubscript([&] { model.getItem(3); });
    expectInvalidSubscript([&] { model.getDisplayString(3); });
    expectInvalidSubscript([&] { model.replaceItem(3, keyFrame("X")); });
    expectInvalidSubscript([&] { model.getName(3); });
    expectInvalidSubscript([&] { model.setName(3, "X"); });
    expectInvalidSubscript([&] { model.getFrameCount(3); });
    expectInvalidSubscript([&] { model.setFrameCount(3, 1); });
    expectInvalidSubscript([&] { model.getSolutionTime(3); });
    expectInvalidSubscript([&] { model.setSolutionTime(3, 1.0); });
    expectInvalidSubscript([&] { model.getItem(~uint64_t{0}); });
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), names(model));
    EXPECT_TRUE(observer.changes.empty());
}

TEST_F(ListModelKeyFrameTest, IndexOfItemInAnEmptyListIsTheInvalidIndex) {
    EXPECT_EQ(1u, model.indexOfItem(keyFrame("A")));
}

TEST_F(ListModelKeyFrameTest, IndexOfTheFirstItemIsZero) {
    fillAndObserve();
    EXPECT_EQ(0u, model.indexOfItem(keyFrame("A")));
}

TEST_F(ListModelKeyFrameTest, IndexOfALaterItemNeverReturns) {
    // Deliberate: the search compares with position 0 forever. A child process searches for the
    // second item with an alarm set; being killed by the alarm shows that the search did not end.
    fillAndObserve();
    EXPECT_EXIT(
        {
            alarm(1);
            model.indexOfItem(keyFrame("B"));
            std::exit(0);
        },
        ::testing::KilledBySignal(SIGALRM), "");
}

TEST_F(ListModelKeyFrameTest, GetItemsHoldsEveryKeyFrameInListOrder) {
    fillAndObserve();
    const std::vector<KeyFrame_s> expected{keyFrame("A"), keyFrame("B"), keyFrame("C")};
    EXPECT_EQ(expected, model.getItems());
}

TEST_F(ListModelKeyFrameTest, ObserverExceptionDropsThePendingRecordsAndReachesTheCaller) {
    FailingListObserver thrower("observer failed");
    model.addObserver(&thrower);
    model.addObserver(&observer);
    EXPECT_THROW(model.setItems({keyFrame("A")}), std::runtime_error);
    EXPECT_EQ(1u, model.getItemCount()) << "the mutation itself has happened";

    // The reset-pending flag was cleared: the next change is delivered, alone.
    observer.changes.clear();
    model.insertItem(1, keyFrame("B"));
    EXPECT_EQ((std::vector<Change>{{Change::Inserted, {1}}}), observer.changes);
    EXPECT_EQ(1u, thrower.changes.size());
}

TEST_F(ListModelKeyFrameTest, EveryOtherObserverIsToldWhenOneFails) {
    FailingListObserver thrower("observer failed");
    FailingListObserver secondThrower("observer failed");
    model.addObserver(&thrower);
    model.addObserver(&observer);
    model.addObserver(&secondThrower);
    try {
        model.setItems({keyFrame("A"), keyFrame("B")});
        FAIL() << "the observer's failure did not reach the caller";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ("observer failed", std::string(error.what())) << "the first failure, once";
    }
    EXPECT_EQ((std::vector<Change>{{Change::Reset, {}}}), observer.changes);
}

class MutatingObserver : public ListModelObserverInterface {
public:
    explicit MutatingObserver(ListModelKeyFrame& model) : model_(model) {}
    void listModelChanged(const ListModelChange&) override { model_.setName(0, "changed"); }

private:
    ListModelKeyFrame& model_;
};

TEST_F(ListModelKeyFrameTest, ChangingTheModelFromAnObserverFailsLoudly) {
    MutatingObserver mutator(model);
    model.insertItem(0, keyFrame("A"));
    model.addObserver(&mutator);
    try {
        model.insertItem(1, keyFrame("B"));
        FAIL() << "the nested change was accepted";
    } catch (const std::logic_error& error) {
        EXPECT_EQ(
            "ListModelKeyFrame::setName(): the model was changed while it notified its observers",
            std::string(error.what()));
    }
    EXPECT_EQ("A", model.getName(0));
    model.removeObserver(&mutator);
    model.addObserver(&observer);
    model.setName(1, "B2");
    EXPECT_EQ((std::vector<Change>{{Change::Changed, {1}}}), observer.changes);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
