#include "platform/Utf16.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<char32_t> charactersOf(std::u16string_view text) {
    std::vector<char32_t> characters;
    for (std::size_t at = 0; at < text.size();) {
        characters.push_back(kvex::nextCharacter(text, at));
    }
    return characters;
}

TEST(Utf16, APairOfSurrogatesIsOneCharacter) {
    EXPECT_EQ(charactersOf(u"a\U00010400\U0010FFFFb"),
              (std::vector<char32_t>{U'a', 0x10400, 0x10FFFF, U'b'}));
}

TEST(Utf16, AnUnpairedSurrogateIsACharacterOfItsOwn) {
    const std::u16string text{0xDC00, 0xD800, u'a', 0xD800, 0xD800, 0xDC00, 0xD800};
    EXPECT_EQ(charactersOf(text),
              (std::vector<char32_t>{0xDC00, 0xD800, U'a', 0xD800, 0x10000, 0xD800}));
}

TEST(Utf16, AppendingWritesWhatWasRead) {
    const std::u16string text = u"aé￿\U00010000\U0010FFFF";
    std::u16string copy;
    for (const char32_t character : charactersOf(text)) {
        kvex::appendCharacter(copy, character);
    }
    EXPECT_EQ(copy, text);
}

} // namespace
