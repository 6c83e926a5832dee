#include "host/addressbook/TextEncoding.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace kvex::host {
namespace {

using namespace std::string_literals;

/// Writes each unit as two bytes, with the lower byte first or last.
std::string bytesOf(std::u16string_view text, bool lowFirst) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += lowFirst ? std::string{low, high} : std::string{high, low};
    }
    return bytes;
}

std::string decoded(std::string_view bytes) {
    const DecodedText text = decodeText(bytes);
    EXPECT_FALSE(text.isGuess);
    return text.text;
}

std::string refusal(const std::function<void()> &read) {
    try {
        read();
    } catch (const std::invalid_argument &error) {
        return error.what();
    }
    return "nothing was refused";
}

const std::u16string hindi = u"नाम;मोबाइल\nअनिल 🚨;9811100011\n";

TEST(TextEncoding, TakesUtf8WithAndWithoutAMark) {
    EXPECT_EQ(decoded("Ren\xC3\xA9"), "René");
    EXPECT_EQ(decoded("\xEF\xBB\xBFRen\xC3\xA9"), "René");
    EXPECT_EQ(decoded(""), "");
}

TEST(TextEncoding, DecodesUtf16WithAndWithoutAMark) {
    for (const bool lowFirst : {true, false}) {
        EXPECT_EQ(decoded(bytesOf(u"\uFEFF" + hindi, lowFirst)), toUtf8(hindi));
        EXPECT_EQ(decoded(bytesOf(hindi, lowFirst)), toUtf8(hindi));
    }
}

TEST(TextEncoding, RecognisesUtf16ByThePositionOfItsZeroBytes) {
    // U+4E00 has its zero in the other byte than the digits.
    EXPECT_EQ(decoded(bytesOf(u"一1234", true)), "一1234");
    EXPECT_EQ(decoded(bytesOf(u"一1234", false)), "一1234");
    // One zero in eight bytes is enough.
    EXPECT_EQ(decoded(bytesOf(u"अअअ1", true)), "अअअ1");
}

TEST(TextEncoding, DecodesMoreThanFitsIntoOneStep) {
    std::u16string text;
    for (int i = 0; i < 5000; ++i) {
        text += u"न1";
    }
    EXPECT_EQ(decoded(bytesOf(text, true)), toUtf8(text));
}

TEST(TextEncoding, LeavesABrokenCharacterOfUtf16InItsLine) {
    EXPECT_EQ(decoded(bytesOf(u"\uFEFF"
                              u"a\xD83D\nb\xDE00\nc",
                              true)),
              "a\xFF\nb\xFF\nc");
    EXPECT_EQ(decoded(bytesOf(u"\uFEFF"
                              u"ab\n",
                              false) +
                      "\0"s),
              "ab\n\xFF");
    EXPECT_EQ(decoded(bytesOf(u"\uFEFF"
                              u"a\xD83D",
                              true)),
              "a\xFF");
}

TEST(TextEncoding, GuessesWindows1252WhereUtf8Fails) {
    const DecodedText text = decodeText("Ren\xE9 \x80\x93 M\xFCller\n");
    EXPECT_TRUE(text.isGuess);
    EXPECT_EQ(text.text, "René €“ Müller\n");
}

TEST(TextEncoding, DoesNotGuessWhereACharacterIsUtf8) {
    EXPECT_EQ(decoded("अ\nRen\xE9\n"), "अ\nRen\xE9\n");
    EXPECT_EQ(decoded("\xEF\xBB\xBFRen\xE9\n"), "Ren\xE9\n");
}

TEST(TextEncoding, DoesNotGuessWhereWindows1252HasNoSuchByte) {
    EXPECT_EQ(decoded("a\x81\n"), "a\x81\n");
}

TEST(TextEncoding, RefusesBytesThatAreNoText) {
    const std::string sentence = "It is not text: it holds bytes of value 0.";
    EXPECT_EQ(refusal([] { static_cast<void>(decodeText("Name,Mobile\nA\0,98111\n"s)); }),
              sentence);
    EXPECT_EQ(refusal([] {
                  static_cast<void>(decodeText("\x7F"
                                               "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0>\0"s));
              }),
              sentence);
    EXPECT_EQ(refusal([] { static_cast<void>(decodeText("\xFF\xFE\0\0N\0\0\0"s)); }), sentence);
    EXPECT_EQ(refusal([] { static_cast<void>(decodeText("\0\1\1\1\0\1\1\0"s)); }), sentence);
    EXPECT_EQ(refusal([] { static_cast<void>(decodeText("\0"s + std::string(39, 'a'))); }),
              sentence);
}

TEST(TextEncoding, DecodesACharacterSetByItsName) {
    EXPECT_EQ(decodeAs("ISO-8859-1", "Ren\xE9"), "René");
    EXPECT_EQ(decodeAs("utf-8", "Ren\xC3\xA9"), "René");
    EXPECT_EQ(decodeAs("", "Ren\xC3\xA9"), "René");
    EXPECT_EQ(decodeAs("", "Ren\xE9"), "René");
}

TEST(TextEncoding, RefusesAnUnknownCharacterSet) {
    const std::string reason = "the character set is not known";
    EXPECT_EQ(refusal([] { static_cast<void>(decodeAs("KLINGON", "a")); }), reason);
    EXPECT_EQ(refusal([] { static_cast<void>(decodeAs("UTF-8//IGNORE", "a")); }), reason);
}

TEST(TextEncoding, RefusesBytesThatAreInvalidInTheirCharacterSet) {
    const std::string reason = "the text is not valid in its character set";
    EXPECT_EQ(refusal([] { static_cast<void>(decodeAs("UTF-8", "Ren\xE9")); }), reason);
    EXPECT_EQ(refusal([] { static_cast<void>(decodeAs("", "\x81")); }), reason);
}

} // namespace
} // namespace kvex::host
