#include "adapters/controls/ListSearch.h"

#include "tests/toolkit/BareList.h"

#include <gtest/gtest.h>

namespace kvex::controls {
namespace {

class ListSearchTest : public testing::Test {
protected:
    ListSearchTest() {
        for (const auto *text : {u"Aachen", u"", u"ABBA", u"b a", u"aBc"}) {
            rows_.addRow(text);
        }
    }

    test::BareList rows_;
    ListSearch search_{rows_};
};

TEST_F(ListSearchTest, RunsFromItsFirstCharacterUntilItIsEnded) {
    EXPECT_FALSE(search_.isRunning());
    EXPECT_EQ(search_.rowAfter(u"x"), 0);
    EXPECT_TRUE(search_.isRunning());
    search_.end();
    EXPECT_FALSE(search_.isRunning());
    EXPECT_EQ(search_.rowAfter(u"b"), 4);
}

TEST_F(ListSearchTest, BeginsBehindTheSelectedRowAndGoesRound) {
    EXPECT_EQ(search_.rowAfter(u"a"), 1);
    search_.end();
    rows_.select(3);
    EXPECT_EQ(search_.rowAfter(u"A"), 5);
    search_.end();
    rows_.select(5);
    EXPECT_EQ(search_.rowAfter(u"a"), 1);
    search_.end();
    rows_.select(4);
    EXPECT_EQ(search_.rowAfter(u"b"), 4);
}

TEST_F(ListSearchTest, StaysAtTheSelectedRowWhileItBeginsWithWhatIsTyped) {
    rows_.select(1);
    EXPECT_EQ(search_.rowAfter(u"a"), 3);
    rows_.select(3);
    EXPECT_EQ(search_.rowAfter(u"b"), 3);
    EXPECT_EQ(search_.rowAfter(u"C"), 5);
    rows_.select(5);
    EXPECT_EQ(search_.rowAfter(u"d"), 0);
}

TEST_F(ListSearchTest, GoesOnFromTheFirstRowWhileNoneIsSelected) {
    EXPECT_EQ(search_.rowAfter(u"a"), 1);
    EXPECT_EQ(search_.rowAfter(u"b"), 3);
}

TEST_F(ListSearchTest, TakesABlankAsACharacter) {
    EXPECT_EQ(search_.rowAfter(u"b"), 4);
    EXPECT_EQ(search_.rowAfter(u" "), 4);
    EXPECT_EQ(search_.rowAfter(u"a"), 4);
}

TEST_F(ListSearchTest, TheSameCharacterAgainGoesToTheNextRowThatBeginsWithIt) {
    rows_.select(1);
    EXPECT_EQ(search_.rowAfter(u"a"), 3);
    rows_.select(3);
    EXPECT_EQ(search_.rowAfter(u"A"), 5);
    rows_.select(5);
    EXPECT_EQ(search_.rowAfter(u"a"), 1);
    rows_.select(1);
    EXPECT_EQ(search_.rowAfter(u"c"), 0);
}

TEST_F(ListSearchTest, ACharacterOfTwoUnitsIsRepeatedWhole) {
    rows_.addRow(u"\U0001F4F1 one");
    rows_.addRow(u"\U0001F4F1\U0001F4F2");
    EXPECT_EQ(search_.rowAfter(u"\U0001F4F1"), 6);
    rows_.select(6);
    EXPECT_EQ(search_.rowAfter(u"\U0001F4F2"), 7);
    search_.end();
    EXPECT_EQ(search_.rowAfter(u"\U0001F4F1"), 7);
    EXPECT_EQ(search_.rowAfter(u"\U0001F4F1"), 7);
}

TEST_F(ListSearchTest, FindsNothingInAnEmptyList) {
    rows_.clearRows();
    EXPECT_EQ(search_.rowAfter(u"a"), 0);
}

} // namespace
} // namespace kvex::controls
