#include "host/check/Takers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace kvex::host {
namespace {

class RandomList {
public:
    explicit RandomList(unsigned seed) : random_(seed) {}

    AppliedRule next(std::int64_t priority) {
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
        return {priority, conditionsOf(rule, vocabulary_), upTo(2) == 0, upTo(4) == 0,
                upTo(20) != 0};
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
    Vocabulary vocabulary_;
};

/// True when the rule at `earlier` takes all messages of the one at `later`, without any index.
bool takes(const std::vector<AppliedRule> &rules, std::size_t earlier, std::size_t later) {
    const AppliedRule &taker = rules[earlier];
    if (taker.priority >= rules[later].priority || !taker.isRead) {
        return false;
    }
    if (taker.conditions.allMessages) {
        return taker.stops || taker.deletes;
    }
    return taker.stops && rules[later].isRead &&
           contains(taker.conditions, rules[later].conditions);
}

TEST(Takers, AreFoundExactlyWhereOneOfAllEarlierRulesIsOne) {
    int found = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        RandomList random(seed);
        std::vector<AppliedRule> rules;
        for (std::int64_t priority = 0; rules.size() < 60;) {
            priority += random.upTo(3);
            rules.push_back(random.next(priority));
        }
        const auto takers = takersOf(rules);
        ASSERT_EQ(takers.size(), rules.size());
        for (std::size_t later = 0; later < rules.size(); ++later) {
            bool exists = false;
            for (std::size_t earlier = 0; earlier < later; ++earlier) {
                exists = exists || takes(rules, earlier, later);
            }
            ASSERT_EQ(takers[later].has_value(), exists) << seed << " " << later;
            if (takers[later]) {
                ++found;
                ASSERT_TRUE(takes(rules, *takers[later], later)) << seed << " " << later;
            }
        }
    }
    EXPECT_GT(found, 1000);
}

} // namespace
} // namespace kvex::host
