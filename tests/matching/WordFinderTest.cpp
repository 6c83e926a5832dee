// Places of words in texts.
#include "host/matching/WordFinder.h"

#include "platform/Unicode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace kvex::host {
namespace {

using Places = std::vector<std::pair<std::uint32_t, std::size_t>>;

Places found(const std::vector<std::u16string> &words, std::u16string_view text) {
    Places places;
    WordFinder(words).find(
        text, [&](std::uint32_t word, std::size_t start) { places.emplace_back(word, start); });
    std::ranges::sort(places);
    return places;
}

TEST(WordFinder, FindsEveryPlace) {
    EXPECT_EQ(found({u"aa"}, u"aaa"), (Places{{0, 0}, {0, 1}}));
}

TEST(WordFinder, FindsWordsWithinWords) {
    EXPECT_EQ(found({u"he", u"she", u"his", u"hers"}, u"ushers"), (Places{{0, 2}, {1, 1}, {3, 2}}));
}

TEST(WordFinder, IgnoresCase) {
    EXPECT_EQ(found({u"stop", u"äß"}, u"STOP Äß"), (Places{{0, 0}, {1, 5}}));
}

TEST(WordFinder, FindsCharactersBeyondTheFirstPlane) {
    EXPECT_EQ(found({u"🌙", u"𐐨"}, u"a🌙𐐀"), (Places{{0, 1}, {1, 3}}));
}

TEST(WordFinder, WithoutWordsFindsNothing) {
    EXPECT_EQ(found({}, u"anything"), Places());
}

TEST(WordFinder, FindsWhatASearchForEachWordFinds) {
    std::mt19937 random(20240301);
    const auto made = [&](std::size_t longest) {
        std::u16string text(1 + random() % longest, u'a');
        for (char16_t &unit : text) {
            unit = static_cast<char16_t>(u'a' + random() % 3);
        }
        return text;
    };
    for (int left = 0; left < 2000; ++left) {
        std::set<std::u16string> different;
        for (std::size_t more = random() % 12; more > 0; --more) {
            different.insert(made(6));
        }
        const std::vector<std::u16string> words(different.begin(), different.end());
        const std::u16string text = made(30);
        Places expected;
        for (std::uint32_t word = 0; word < words.size(); ++word) {
            for (std::size_t at = text.find(words[word]); at != std::u16string::npos;
                 at = text.find(words[word], at + 1)) {
                expected.emplace_back(word, at);
            }
        }
        ASSERT_EQ(found(words, text), expected);
    }
}

} // namespace
} // namespace kvex::host
