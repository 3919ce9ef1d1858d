#include "model/ListModelAbstract.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/RecordingListObserver.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// The smallest real list model over the shared machinery: integers in a vector. It writes its
// hook calls and every change its observer receives into one journal, so the order of hooks and
// deliveries shows.
class IntListModel : public ListModelAbstract<int> {
public:
    explicit IntListModel(std::vector<std::string>& journal) : journal_(journal) {}

    uint64_t getItemCount() const override { return items_.size(); }
    std::string getDisplayString(uint64_t position) const override {
        return std::to_string(items_.at(position));
    }
    const int& getItem(uint64_t position) const override { return items_.at(position); }
    void replaceItem(uint64_t position, const int& item) override {
        items_.at(position) = item;
        queueChange(ListModelChange{ListModelChange::Changed, {position}});
    }
    void insertItem(uint64_t position, const int& item) override { insertItems(position, {item}); }
    void insertItems(uint64_t position, const std::vector<int>& items) override {
        items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), items.begin(),
                      items.end());
        std::vector<uint64_t> positions;
        for (std::size_t i = 0; i < items.size(); ++i)
            positions.push_back(position + i);
        queueChange(ListModelChange{ListModelChange::Inserted, positions});
    }
    void removeItem(uint64_t position) override { removeItems(position, 1); }
    void removeItems(uint64_t, uint64_t) override {}
    void refreshItems() override { journal_.push_back("refreshItems"); }
    void releaseItems() override { journal_.push_back("releaseItems"); }

    void reset() { announceReset(); }

private:
    std::vector<int> items_;
    std::vector<std::string>& journal_;
};

class ListModelAbstractTest : public ::testing::Test {
protected:
    std::vector<std::string> journal;
    IntListModel model{journal};
    vextest::RecordingListObserver first{journal};
    vextest::RecordingListObserver second{journal};
};

TEST_F(ListModelAbstractTest, EmptyListTextIsNoItemsAvailable) {
    EXPECT_EQ("No items available.", model.getEmptyListText());
}

TEST_F(ListModelAbstractTest, ItemsAreRefreshedBeforeTheFirstObserverOnly) {
    model.addObserver(&first);
    model.addObserver(&second);
    EXPECT_EQ((std::vector<std::string>{"refreshItems"}), journal);
}

TEST_F(ListModelAbstractTest, ItemsAreReleasedAfterTheLastObserverLeaves) {
    model.addObserver(&first);
    model.addObserver(&second);
    journal.clear();
    model.removeObserver(&second);
    EXPECT_TRUE(journal.empty());
    model.removeObserver(&first);
    EXPECT_EQ((std::vector<std::string>{"releaseItems"}), journal);
}

TEST_F(ListModelAbstractTest, DeliveryOfAResetRefreshesTheItemsFirst) {
    model.addObserver(&first);
    journal.clear();
    model.reset();
    EXPECT_EQ((std::vector<std::string>{"refreshItems", "Reset []"}), journal);
}

TEST_F(ListModelAbstractTest, PositionalDeliveryDoesNotRefresh) {
    model.addObserver(&first);
    journal.clear();
    model.insertItems(0, {7, 8});
    EXPECT_EQ((std::vector<std::string>{"Inserted [0, 1]"}), journal);
}

TEST_F(ListModelAbstractTest, IndexOfItemFindsTheFirstItemAndAnswersInvalidIndexWhenEmpty) {
    EXPECT_EQ(1u, model.indexOfItem(5));
    model.insertItems(0, {5, 6});
    EXPECT_EQ(0u, model.indexOfItem(5));
}

TEST_F(ListModelAbstractTest, NullObserverIsAProgrammingError) {
    EXPECT_THROW(model.addObserver(nullptr), std::invalid_argument);
    EXPECT_EQ(0u, model.getObserverCount());
}

TEST_F(ListModelAbstractTest, ModelIsReachedAsOneGenericInterface) {
    ListModelGenericInterface& generic = model;
    ListModelInterface<int>& typed = model;
    typed.insertItem(0, 42);
    EXPECT_EQ(1u, generic.getItemCount());
    EXPECT_EQ(2u, generic.getInvalidIndex());
    EXPECT_EQ("42", generic.getDisplayString(0));
    EXPECT_EQ(static_cast<ListModelGenericInterface*>(&typed), &generic);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
