#include "kvex/Component.h"

#include <gtest/gtest.h>

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

TEST(TextAllocation, ALengthWhoseBytesCannotBeCountedIsRefused) {
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x80000000U), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFU), nullptr);
}

} // namespace
