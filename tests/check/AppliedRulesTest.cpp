// The rules that take messages, compared with a search through all earlier rules.
#include "host/check/AppliedRules.h"

#include "platform/Text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace kvex::host {
namespace {

class RandomList {
public:
    explicit RandomList(unsigned seed) : random_(seed) {}

    ReadRule next(std::int64_t priority) {
        RuleValues rule;
        rule.allMessages = upTo(60) == 0;
        rule.ignoreIfService = upTo(4) == 0 ? u"YES" : u"NO";
        rule.people = list();
        rule.accounts = list();
        rule.words = list();
        rule.asCommand = upTo(3) == 0;
        if (upTo(4) == 0) {
            rule.dateTime = u"20240101 00:00:00,2024010" + entry() + u" 00:00:00";
        }
        rule.ignoreFurtherRules = upTo(2) == 0 ? u"YES" : u"NO";
        rule.deleteIt = upTo(4) == 0 ? u"YES" : u"NO";
        ReadRule read{{}, {rule, {}}, {}};
        read.row.isActive = upTo(20) != 0;
        read.row.priority = upTo(30) == 0 ? u"x" : toText(priority);
        if (upTo(20) == 0) {
            read.read.end = EarlyEnd{5, u"ALERT"};
        }
        // The reading lost this tag.
        read.row.queryParam = upTo(20) == 0 ? u"<PEOPLE>" : u"";
        return read;
    }
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

private:
    std::u16string entry() { return std::u16string(1, static_cast<char16_t>(u'1' + upTo(5))); }
    RuleList list() {
        RuleList list{upTo(3) == 0, upTo(3) == 0, {}};
        if (upTo(2) == 0) {
            return {};
        }
        for (unsigned count = 1 + upTo(3); count > 0; --count) {
            list.entries.push_back(entry());
        }
        return list;
    }

    std::mt19937 random_;
};

bool isSound(const ReadRule &rule) {
    return !rule.read.end && (rule.row.queryParam.empty() || rule.read.values.allMessages);
}

/// True when one rule takes all messages of the other, without any index.
bool takes(const ReadRule &earlier, const ReadRule &later) {
    if (!earlier.row.isActive || !later.row.isActive || earlier.row.priority == u"x" ||
        later.row.priority == u"x" ||
        toInt64(earlier.row.priority) >= toInt64(later.row.priority) || !isSound(earlier)) {
        return false;
    }
    const RuleValues &values = earlier.read.values;
    if (values.allMessages) {
        return values.ignoreFurtherRules == u"YES" || values.deleteIt == u"YES";
    }
    Vocabulary vocabulary;
    const Conditions outer = outerConditions(values, vocabulary);
    return values.ignoreFurtherRules == u"YES" && !later.read.end &&
           contains(outer, innerConditions(later.read.values, vocabulary));
}

TEST(AppliedRules, FindATakerExactlyWhereOneOfAllEarlierRulesIsOne) {
    int found = 0;
    int foundOfAll = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        RandomList random(seed);
        AppliedRules applied;
        std::vector<ReadRule> rules;
        for (std::int64_t priority = 0; rules.size() < 60;) {
            priority += random.upTo(3);
            const ReadRule &rule = rules.emplace_back(random.next(priority));
            const auto taker = applied.takerOf(rule.row, rule.read);
            const auto takerOfAll = applied.takerOfAll(rule.row);
            const auto isTaker = [&](const ReadRule &other) { return takes(other, rule); };
            const auto isTakerOfAll = [&](const ReadRule &other) {
                return other.read.values.allMessages && takes(other, rule);
            };
            ASSERT_EQ(taker.has_value(), std::ranges::any_of(rules, isTaker)) << seed;
            ASSERT_EQ(takerOfAll.has_value(), std::ranges::any_of(rules, isTakerOfAll)) << seed;
            if (taker) {
                ++found;
                ASSERT_TRUE(takes(rules[*taker], rule)) << seed;
            }
            if (takerOfAll) {
                ++foundOfAll;
                ASSERT_TRUE(isTakerOfAll(rules[*takerOfAll])) << seed;
            }
            applied.add(rules.size() - 1, rule);
        }
    }
    EXPECT_GT(found, 1000);
    EXPECT_GT(foundOfAll, 500);
    EXPECT_GT(found, foundOfAll + 500);
}

TEST(AppliedRules, AreEmptyUntilOneTakesMessages) {
    ReadRule rule{{}, {}, {}};
    rule.row.isActive = true;
    rule.row.priority = u"1";
    rule.read.values.words = {false, false, {u"a"}};
    rule.read.values.deleteIt = u"YES";
    AppliedRules applied;
    applied.add(0, rule);
    EXPECT_TRUE(applied.isEmpty());
    rule.read.values.ignoreFurtherRules = u"YES";
    rule.read.values.dateTime = u"in doubt";
    applied.add(1, rule);
    EXPECT_TRUE(applied.isEmpty());
    rule.read.values.dateTime.clear();
    applied.add(2, rule);
    EXPECT_FALSE(applied.isEmpty());
}

} // namespace
} // namespace kvex::host
