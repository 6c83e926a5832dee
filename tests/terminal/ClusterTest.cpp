#include "adapters/terminal/io/Cluster.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace {

using kvex::terminal::Cluster;

TEST(Cluster, GivesItsTextBack) {
    EXPECT_EQ(Cluster().text(), u"");
    EXPECT_EQ(Cluster(u"").text(), u"");
    EXPECT_EQ(Cluster(u'x').text(), u"x");
    EXPECT_EQ(Cluster(u"न").text(), u"न");
    EXPECT_EQ(Cluster(u"हि").text(), u"हि");
    EXPECT_EQ(Cluster(u"👩‍👧").text(), u"👩‍👧");
}

TEST(Cluster, IsWrittenInUtf8) {
    std::string bytes = "<";
    for (const Cluster cluster :
         {Cluster(u'x'), Cluster(), Cluster(u'é'), Cluster(u"👩‍👧")}) {
        cluster.appendTo(bytes);
    }
    EXPECT_EQ(bytes, "<xé👩‍👧");
}

TEST(Cluster, EqualsOneOfTheSameText) {
    EXPECT_EQ(Cluster(u'x'), Cluster(u"x"));
    EXPECT_EQ(Cluster(u""), Cluster());
    EXPECT_EQ(Cluster(u"हि"), Cluster(std::u16string(u"हि")));
    EXPECT_NE(Cluster(u"हि"), Cluster(u"ही"));
    EXPECT_NE(Cluster(u"ह"), Cluster(u"हि"));
}

TEST(Cluster, SaysWhatItIs) {
    EXPECT_TRUE(Cluster().isNothing());
    EXPECT_FALSE(Cluster().isAscii());
    EXPECT_FALSE(Cluster(u' ').isNothing());
    EXPECT_TRUE(Cluster(u'~').isAscii());
    EXPECT_TRUE(Cluster(u'\x7F').isAscii());
    EXPECT_FALSE(Cluster(u'\x80').isAscii());
    EXPECT_FALSE(Cluster(u'\uFFFF').isLong());
    EXPECT_TRUE(Cluster(u"e\u0301").isLong());
    EXPECT_TRUE(Cluster(u"🙂").isLong());
}

TEST(Cluster, IsTheSameInAllThreads) {
    constexpr int count = 500;
    const auto make = [](std::vector<Cluster> &made) {
        for (int mark = 0; mark < count; ++mark) {
            made.emplace_back(std::u16string{u'a', static_cast<char16_t>(0x300 + mark % 100),
                                             static_cast<char16_t>(0x300 + mark / 100)});
        }
    };
    std::vector<Cluster> some;
    std::vector<Cluster> others;
    std::thread first(make, std::ref(some));
    std::thread second(make, std::ref(others));
    first.join();
    second.join();
    EXPECT_EQ(some, others);
    EXPECT_EQ(some[123].text(), (std::u16string{u'a', 0x317, 0x301}));
}

} // namespace
