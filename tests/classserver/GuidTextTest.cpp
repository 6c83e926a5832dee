#include "adapters/classserver/GuidText.h"

#include <gtest/gtest.h>

namespace {

using kvex::guidFromText;
using kvex::guidText;

constexpr GUID someGuid{
    0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x01}};

TEST(GuidText, IsWrittenInUpperCaseWithBraces) {
    EXPECT_EQ(guidText(someGuid), "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}");
    EXPECT_EQ(guidText(GUID{}), "{00000000-0000-0000-0000-000000000000}");
}

TEST(GuidText, IsReadInEitherCase) {
    EXPECT_EQ(guidFromText("{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}"), someGuid);
    EXPECT_EQ(guidFromText("{2e9c6a10-5d43-4b7b-8a60-1f0d7c35b201}"), someGuid);
}

TEST(GuidText, OtherTextIsNoGuid) {
    for (const char *text :
         {"", "{}", "2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201", "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201",
          "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B2011}", "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B20G}",
          "{2E9C6A10 5D43-4B7B-8A60-1F0D7C35B201}", "(2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201)",
          "{2E9C6A1005D43-4B7B-8A60-1F0D7C35B201}", "{-E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}"}) {
        EXPECT_FALSE(guidFromText(text)) << text;
    }
}

} // namespace
