#include "adapters/terminal/io/ShownText.h"

#include <gtest/gtest.h>

namespace {

using kvex::terminal::Characters;
using kvex::terminal::ShownCluster;
using kvex::terminal::shownCluster;
using kvex::terminal::shownColumns;

ShownCluster ascii(std::u16string text) {
    const int columns = static_cast<int>(text.size());
    return {std::move(text), columns, true};
}

TEST(ShownCluster, IsTheClusterItself) {
    EXPECT_EQ(shownCluster(u"a", Characters::unicode), ascii(u"a"));
    EXPECT_EQ(shownCluster(u"\\", Characters::unicode), ascii(u"\\"));
    EXPECT_EQ(shownCluster(u"é", Characters::unicode), (ShownCluster{u"é", 1}));
    EXPECT_EQ(shownCluster(u"हि", Characters::unicode), (ShownCluster{u"हि", 2}));
    EXPECT_EQ(shownCluster(u"中", Characters::unicode), (ShownCluster{u"中", 2}));
}

TEST(ShownCluster, IsAnEscapeWhereTheTerminalWouldBeDeceived) {
    EXPECT_EQ(shownCluster(u"\x1b", Characters::unicode), ascii(u"\\u{1b}"));
    EXPECT_EQ(shownCluster(u"\t", Characters::unicode), ascii(u"\\t"));
    EXPECT_EQ(shownCluster(u"\r\n", Characters::unicode), ascii(u"\\r\\n"));
    EXPECT_EQ(shownCluster(u"\x9b", Characters::unicode), ascii(u"\\u{9b}"));
    EXPECT_EQ(shownCluster(u"\u202E", Characters::unicode), ascii(u"\\u{202e}"));
    const std::u16string lone(1, char16_t{0xD83D});
    EXPECT_EQ(shownCluster(lone, Characters::unicode), ascii(u"\\u{d83d}"));
}

TEST(ShownCluster, IsAnEscapeWhereTheLocaleHasOnlyAscii) {
    EXPECT_EQ(shownCluster(u"é", Characters::ascii), ascii(u"\\u{e9}"));
    EXPECT_EQ(shownCluster(u"हि", Characters::ascii), ascii(u"\\u{939}\\u{93f}"));
    EXPECT_EQ(shownCluster(u"😀", Characters::ascii), ascii(u"\\u{1f600}"));
    EXPECT_EQ(shownCluster(u"e\u0301", Characters::ascii), ascii(u"e\\u{301}"));
    EXPECT_EQ(shownCluster(u"a", Characters::ascii), ascii(u"a"));
}

TEST(ShownCluster, OfAnAccentWithoutALetterStandsOnItsOwn) {
    EXPECT_EQ(shownCluster(u"\u0301", Characters::unicode), (ShownCluster{u"\u00A0\u0301", 1}));
    EXPECT_EQ(shownCluster(u"\u200E", Characters::unicode), (ShownCluster{}));
}

TEST(ShownColumns, AreThoseOfAllClusters) {
    EXPECT_EQ(shownColumns(u"", Characters::unicode), 0);
    EXPECT_EQ(shownColumns(u"हिन्दी", Characters::unicode), 5);
    EXPECT_EQ(shownColumns(u"a😀\t", Characters::unicode), 5);
    EXPECT_EQ(shownColumns(u"aé", Characters::ascii), 7);
}

} // namespace
