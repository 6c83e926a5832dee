#include "platform/LineBreaks.h"

#include <gtest/gtest.h>

namespace kvex {
namespace {

TEST(LineBreaks, LoneOnesBecomeCrLf) {
    EXPECT_EQ(withCrLf(u""), u"");
    EXPECT_EQ(withCrLf(u"a b"), u"a b");
    EXPECT_EQ(withCrLf(u"a\nb\rc\r\nd"), u"a\r\nb\r\nc\r\nd");
    EXPECT_EQ(withCrLf(u"\r\r\n\n"), u"\r\n\r\n\r\n");
}

} // namespace
} // namespace kvex
