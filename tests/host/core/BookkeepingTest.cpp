#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/HostErrors.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexhost::Bookkeeping;

class BookkeepingTest : public vextest::HostFixture {};

TEST_F(BookkeepingTest, HostStringIsOutstandingUntilFreed) {
    char* text = VexUtilStringAlloc(10, "test");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::strlen(text), 0u) << "handed out empty";
    std::strcpy(text, "0123456789");
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::String), 1u);
    VexUtilStringDealloc(&text);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::String), 0u);
    EXPECT_EQ(host().bookkeeping().handedOut(Bookkeeping::Kind::String), 1u);
}

TEST_F(BookkeepingTest, FreeingTwiceOrAForeignStringIsAHostErrorAndTouchesNothing) {
    char* text = VexUtilStringAlloc(3, "test");
    char* copy = text;
    VexUtilStringDealloc(&text);
    VexUtilStringDealloc(&copy);
    char foreign[] = "mine";
    char* pointer = foreign;
    VexUtilStringDealloc(&pointer);
    EXPECT_EQ(pointer, foreign);
    EXPECT_STREQ(foreign, "mine");
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilStringDealloc: the string was not handed out by the host, or was freed "
                  "already",
                  "VexUtilStringDealloc: the string was not handed out by the host, or was freed "
                  "already"}));
}

TEST_F(BookkeepingTest, FreeingNullIsAllowed) {
    char* text = nullptr;
    VexUtilStringDealloc(&text);
    VexSet_pa set = nullptr;
    VexUtilSetDealloc(&set);
    void* array = nullptr;
    VexUtilArrayDealloc(&array);
    EXPECT_TRUE(host().errors().empty());
}

TEST_F(BookkeepingTest, TheKthStringAllocationFailsWhenAsked) {
    host().bookkeeping().failStringAllocation(2);
    char* first = VexUtilStringAlloc(5, "one");
    char* second = VexUtilStringAlloc(5, "two");
    char* third = VexUtilStringAlloc(5, "three");
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    VexUtilStringDealloc(&first);
    VexUtilStringDealloc(&third);
}

TEST_F(BookkeepingTest, FailingAllocationReachesStringsHandedOutByGetters) {
    host().bookkeeping().failStringAllocation(1);
    std::string name = "kept";
    EXPECT_EQ(vexplot::toolbox::StyleValue("ExportSetup", "ExportFName").get(name),
              VexGetValue_ContextError);
    EXPECT_EQ(name, "kept");
}

TEST_F(BookkeepingTest, NegativeLengthIsAHostError) {
    EXPECT_EQ(VexUtilStringAlloc(-1, "bad"), nullptr);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilStringAlloc: the length -1 is negative"});
}

TEST_F(BookkeepingTest, StringListKeepsItsEntriesAndHandsOutCopies) {
    {
        vexplot::toolbox::StringList list{"&Use Width of Image on Screen", "&Enter Width:"};
        EXPECT_EQ(list.count(), 2);
        EXPECT_EQ(list.get(2), "&Enter Width:");
        EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::StringList), 1u);
        EXPECT_EQ(VexUtilStringListGetString(list.handle(), 3), nullptr);
        EXPECT_EQ(takeHostErrors(), std::vector<std::string>{"VexUtilStringListGetString: there "
                                                             "is no entry 3 (the list has 2)"});
    }
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::StringList), 0u);
}

TEST_F(BookkeepingTest, ArraysHandedOutAreFreedWithArrayDealloc) {
    void* array = host().bookkeeping().allocateArray(4 * sizeof(int32_t));
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::Array), 1u);
    VexUtilArrayDealloc(&array);
    EXPECT_EQ(array, nullptr);
    int local = 0;
    void* foreign = &local;
    VexUtilArrayDealloc(&foreign);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilArrayDealloc: the array was not handed out by the "
                                       "host, or was freed already"});
}

TEST_F(BookkeepingTest, ResetFreesEverythingOutstanding) {
    VexUtilStringAlloc(4, "left");
    VexUtilStringListAlloc();
    host().bookkeeping().createSet({1, 2});
    host().bookkeeping().allocateArray(8);
    EXPECT_EQ(host().bookkeeping().outstandingTotal(), 4u);
    host().reset();
    EXPECT_EQ(host().bookkeeping().outstandingTotal(), 0u);
}

}  // namespace
