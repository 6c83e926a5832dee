// The matcher compared with a plain reading, on rules and messages of few values, so that much
// coincides.
#include "host/matching/Matcher.h"
#include "tests/matching/PlainMatch.h"

#include <gtest/gtest.h>

#include <random>

namespace kvex::test {
namespace {

using host::Entries;
using host::Matcher;
using host::Message;
using host::PlayedRule;
using host::RuleList;

class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    std::vector<PlayedRule> rules() {
        // More than one block of 64 rules.
        std::vector<PlayedRule> rules(below(150));
        for (PlayedRule &rule : rules) {
            rule.read.values = values();
        }
        return rules;
    }
    Message message() {
        return {one(numbers), std::int32_t(below(4)), text(), moment(), below(4) == 0};
    }

private:
    host::RuleValues values() {
        host::RuleValues rule;
        rule.allMessages = below(40) == 0;
        if (!rule.allMessages) {
            rule.ignoreIfService = below(3) == 0 ? u"YES" : u"NO";
            rule.people = list([&] { return one(numbers); });
            rule.accounts = list([&] { return toText(std::int64_t(below(4))); });
            rule.words = list([&] { return word(); });
            rule.asCommand = !rule.words.entries.empty() && below(3) == 0;
            if (below(4) == 0) {
                rule.dateTime = moment() + u"," + moment();
            }
        }
        rule.deleteIt = below(60) == 0 ? u"YES" : u"NO";
        rule.ignoreFurtherRules = below(30) == 0 ? u"YES" : u"NO";
        return rule;
    }
    RuleList list(const auto &entry) {
        RuleList list;
        if (below(2) == 0) {
            list.negated = below(2) == 0;
            list.all = below(2) == 0;
            list.entries.resize(1 + below(4));
            std::ranges::generate(list.entries, entry);
        }
        return list;
    }
    std::u16string word() {
        std::u16string word;
        for (std::size_t left = 1 + below(3); left > 0; --left) {
            word += one(pieces);
        }
        return word;
    }
    std::u16string text() {
        std::u16string text;
        for (std::size_t left = below(12); left > 0; --left) {
            text += one(pieces);
        }
        return text;
    }
    std::u16string moment() {
        return u"2024030" + toText(std::int64_t(1 + below(4))) + u" 0" +
               toText(std::int64_t(below(3))) + u":00:00";
    }
    std::size_t below(std::size_t count) { return random_() % count; }
    std::u16string one(const Entries &choices) { return choices[below(choices.size())]; }

    const Entries numbers{u"1", u"+1", u"01", u" 2 2", u"22", u"Bank", u"BANK", u"", u"++1"};
    const Entries pieces{u"a", u"A", u"b", u" ", u"aa", u"ä", u"Ä", u"ß", u"ſ", u"𐐀", u"𐐨", u"🌙"};
    std::mt19937 random_;
};

TEST(Matcher, PlaysAsAPlainReading) {
    std::size_t hits = 0;
    for (unsigned seed = 0; seed < 150; ++seed) {
        Maker maker(seed);
        Matcher matcher(maker.rules());
        for (int left = 0; left < 40; ++left) {
            const Message message = maker.message();
            const std::vector<std::size_t> places = matcher.play(message);
            ASSERT_EQ(places, plainlyPlayed(matcher.rules(), message)) << "seed " << seed;
            hits += places.size();
        }
    }
    EXPECT_GT(hits, 5'000);
}

TEST(Matcher, ExplainsEachRuleThatItPlays) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        Maker maker(seed);
        Matcher matcher(maker.rules());
        const Message message = maker.message();
        const auto places = matcher.play(message);
        const host::Outcome outcome = matcher.explain(message);
        ASSERT_EQ(outcome.verdicts.size() + outcome.notReached.size(), matcher.rules().size());
        for (std::size_t place = 0; place < outcome.verdicts.size(); ++place) {
            const auto &verdict = outcome.verdicts[place];
            ASSERT_EQ(!verdict.refusal, std::ranges::find(places, place) != places.end());
            ASSERT_TRUE(!verdict.refusal || !verdict.refusal->reason.empty());
        }
    }
}

TEST(Matcher, WithoutRulesTouchesNothing) {
    Matcher matcher({});
    EXPECT_TRUE(matcher.play(Maker(1).message()).empty());
    EXPECT_FALSE(matcher.explain(Maker(1).message()).isEnded);
}

} // namespace
} // namespace kvex::test
