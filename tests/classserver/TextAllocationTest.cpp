#include "kvex/ClassServer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;

TEST(TextAllocation, KeepsLengthAndNulCharactersAndAddsATerminatingNul) {
    constexpr auto text = u"a\0b"sv;
    const BSTR copy = SysAllocStringLen(text.data(), 3);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(SysStringLen(copy), 3U);
    EXPECT_EQ(std::u16string_view(copy, 3), text);
    EXPECT_EQ(copy[3], u'\0');
    SysFreeString(copy);
}

TEST(TextAllocation, WithoutTextTheCharactersAreZero) {
    const BSTR zeros = SysAllocStringLen(nullptr, 2);
    ASSERT_NE(zeros, nullptr);
    EXPECT_EQ(std::u16string_view(zeros, 3), u"\0\0\0"sv);
    SysFreeString(zeros);
}

TEST(TextAllocation, AnEmptyTextIsATextOfItsOwn) {
    const BSTR empty = SysAllocStringLen(u"", 0);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0U);
    EXPECT_EQ(empty[0], u'\0');
    SysFreeString(empty);
}

TEST(TextAllocation, NullIsAnEmptyTextThatNeedsNoFreeing) {
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    SysFreeString(nullptr);
}

TEST(TextAllocation, ReadsUtf8AndMarksWhatIsNone) {
    constexpr auto bytes = "a\0\xC3\xA4\xF0\x9F\x98\x80\xFF"sv;
    const BSTR text = SysAllocUtf8(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    EXPECT_EQ(std::u16string_view(text, SysStringLen(text)), u"a\0ä😀\uFFFD"sv);
    SysFreeString(text);
    const BSTR empty = SysAllocUtf8(nullptr, 7);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0U);
    SysFreeString(empty);
}

TEST(TextAllocation, WritesUtf8OnlyWhereItHasRoom) {
    constexpr auto units = u"a\0ä😀\xD800"sv;
    constexpr auto bytes = "a\0\xC3\xA4\xF0\x9F\x98\x80\xEF\xBF\xBD"sv;
    const BSTR text = SysAllocStringLen(units.data(), static_cast<std::uint32_t>(units.size()));
    std::string target(bytes.size(), '-');
    EXPECT_EQ(SysGetUtf8(text, nullptr, 0), bytes.size());
    EXPECT_EQ(SysGetUtf8(text, target.data(), static_cast<std::uint32_t>(bytes.size()) - 1),
              bytes.size());
    EXPECT_EQ(target, std::string(bytes.size(), '-'));
    EXPECT_EQ(SysGetUtf8(text, target.data(), static_cast<std::uint32_t>(bytes.size())),
              bytes.size());
    EXPECT_EQ(target, bytes);
    SysFreeString(text);
    EXPECT_EQ(SysGetUtf8(nullptr, nullptr, 0), 0U);
}

TEST(TextAllocation, ALengthWhoseBytesCannotBeCountedIsRefused) {
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x80000000U), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFU), nullptr);
}

} // namespace
