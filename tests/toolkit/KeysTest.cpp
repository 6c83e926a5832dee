#include "adapters/controls/Keys.h"

#include <gtest/gtest.h>

namespace kvex::controls {
namespace {

TEST(Caption, MarksItsAccessKeyByAnAmpersand) {
    struct Case {
        std::u16string_view caption;
        std::u16string_view shown;
        char16_t key;
    };
    for (const auto &[caption, shown, key] : {
             Case{u"&New", u"New", u'N'},
             Case{u"Move &Up", u"Move Up", u'U'},
             Case{u"Plain", u"Plain", 0},
             Case{u"", u"", 0},
             Case{u"Salt && Pepper", u"Salt & Pepper", 0},
             Case{u"R&&&D", u"R&D", u'D'},
             Case{u"&One &Two", u"One Two", u'O'},
             Case{u"Last&", u"Last", 0},
         }) {
        const Caption parsed = parseCaption(caption);
        EXPECT_EQ(parsed.shown, shown);
        EXPECT_EQ(parsed.accessKey, key);
    }
}

TEST(Caption, HasItsAccessKeyWithoutRegardToCase) {
    EXPECT_TRUE(hasAccessKey(u"&New", u'n'));
    EXPECT_TRUE(hasAccessKey(u"&ändern", u'Ä'));
    EXPECT_FALSE(hasAccessKey(u"&New", u'e'));
    EXPECT_FALSE(hasAccessKey(u"New", u'N'));
    EXPECT_FALSE(hasAccessKey(u"New", 0));
}

} // namespace
} // namespace kvex::controls
