// What is proved about two rules, compared with what holds for every message.
#include "host/check/Containment.h"
#include "tests/check/ReferenceMatch.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace kvex::host {
namespace {

using test::matches;
using test::ReferenceMessage;

const std::vector<std::u16string> entries{u"1", u"2", u"3"};

/// The entries whose bits are set.
Entries subset(unsigned bits) {
    Entries result;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if ((bits >> i & 1U) != 0) {
            result.push_back(entries[i]);
        }
    }
    return result;
}

std::set<std::u16string> set(unsigned bits) {
    const Entries some = subset(bits);
    return {some.begin(), some.end()};
}

std::vector<RuleList> everyList() {
    std::vector<RuleList> lists;
    for (unsigned bits = 1; bits < 8; ++bits) {
        for (const bool negated : {false, true}) {
            for (const bool all : {false, true}) {
                lists.push_back({negated, all, subset(bits)});
            }
        }
    }
    return lists;
}

std::vector<ReferenceMessage> everyMessage() {
    std::vector<ReferenceMessage> messages;
    for (unsigned bits = 0; bits < 8; ++bits) {
        messages.push_back({.senders = set(bits),
                            .account = bits < 3 ? entries[bits] : u"9",
                            .words = set(bits),
                            .commands = set(7 - bits),
                            .moment = u"20240101 00:00:00"});
    }
    return messages;
}

bool isProved(const RuleValues &outer, const RuleValues &inner) {
    Vocabulary vocabulary;
    const Conditions conditions = outerConditions(outer, vocabulary);
    return contains(conditions, innerConditions(inner, vocabulary));
}

bool holds(const RuleValues &outer, const RuleValues &inner,
           const std::vector<ReferenceMessage> &messages) {
    return std::ranges::all_of(messages, [&](const ReferenceMessage &message) {
        return !matches(inner, message) || matches(outer, message);
    });
}

std::string inWords(const RuleList &list) {
    std::string text = list.negated ? "not " : "";
    text += list.all ? "all" : "any";
    for (const std::u16string &entry : list.entries) {
        text += " " + std::string(entry.begin(), entry.end());
    }
    return text;
}

using Pair = std::function<void(const RuleList &, const RuleList &)>;
void forEachPair(const Pair &visit) {
    for (const RuleList &outer : everyList()) {
        for (const RuleList &inner : everyList()) {
            SCOPED_TRACE(inWords(outer) + " contains " + inWords(inner));
            visit(outer, inner);
        }
    }
}

RuleValues withPeople(const RuleList &list) {
    RuleValues rule;
    rule.people = list;
    return rule;
}

RuleValues withAccounts(const RuleList &list) {
    RuleValues rule;
    rule.accounts = list;
    return rule;
}

RuleValues withWords(const RuleList &list, bool asCommand = false) {
    RuleValues rule;
    rule.words = list;
    rule.asCommand = asCommand;
    return rule;
}

RuleValues withDates(const std::u16string &range) {
    RuleValues rule;
    rule.dateTime = range;
    return rule;
}

RuleValues forAll() {
    RuleValues rule;
    rule.allMessages = true;
    return rule;
}

TEST(Containment, OfPeopleIsProvedExactlyWhenItHolds) {
    const auto messages = everyMessage();
    forEachPair([&](const RuleList &outer, const RuleList &inner) {
        EXPECT_EQ(isProved(withPeople(outer), withPeople(inner)),
                  holds(withPeople(outer), withPeople(inner), messages));
    });
}

TEST(Containment, OfWordsIsProvedExactlyWhenItHolds) {
    const auto messages = everyMessage();
    forEachPair([&](const RuleList &outer, const RuleList &inner) {
        EXPECT_EQ(isProved(withWords(outer), withWords(inner)),
                  holds(withWords(outer), withWords(inner), messages));
    });
}

TEST(Containment, OfCommandsIsProvedExceptForAllOfSeveral) {
    const auto messages = everyMessage();
    const auto isClear = [](const RuleList &list) { return !list.all || list.entries.size() == 1; };
    forEachPair([&](const RuleList &outer, const RuleList &inner) {
        EXPECT_EQ(isProved(withWords(outer, true), withWords(inner, true)),
                  isClear(outer) && isClear(inner) &&
                      holds(withWords(outer, true), withWords(inner, true), messages));
    });
}

TEST(Containment, OfAccountsIsProvedOnlyWhenItHoldsAndAlwaysForThoseOfTheEditor) {
    const auto messages = everyMessage();
    forEachPair([&](const RuleList &outer, const RuleList &inner) {
        const bool isProvedNow = isProved(withAccounts(outer), withAccounts(inner));
        const bool isTrue = holds(withAccounts(outer), withAccounts(inner), messages);
        if (outer.all || inner.all) {
            EXPECT_LE(isProvedNow, isTrue);
        } else {
            EXPECT_EQ(isProvedNow, isTrue);
        }
    });
}

TEST(Containment, OfNotAllOfSomeAccountsDoesNotFollowFromOthers) {
    const RuleList two{false, false, {u"2"}};
    EXPECT_TRUE(isProved(withAccounts({true, false, {u"1", u"3"}}), withAccounts(two)));
    EXPECT_TRUE(isProved(withAccounts({true, true, {u"1"}}), withAccounts(two)));
    EXPECT_FALSE(isProved(withAccounts({true, true, {u"1", u"3"}}), withAccounts(two)));
    EXPECT_FALSE(
        isProved(withAccounts({true, false, {u"1"}}), withAccounts({false, true, {u"2", u"3"}})));
}

TEST(Containment, OfWordsSaysNothingAboutCommands) {
    const RuleList stop{false, false, {u"STOP"}};
    EXPECT_FALSE(isProved(withWords(stop), withWords(stop, true)));
    EXPECT_FALSE(isProved(withWords(stop, true), withWords(stop)));
}

TEST(Containment, ComparesEntriesToTheLetter) {
    const RuleList stop{false, false, {u"STOP"}};
    EXPECT_FALSE(isProved(withWords(stop), withWords({false, false, {u"stop"}})));
    EXPECT_FALSE(isProved(withWords(stop), withWords({false, false, {u" STOP"}})));
    EXPECT_FALSE(isProved(withWords(stop), withWords({false, false, {u"STOPPED"}})));
}

TEST(Containment, ComparesIdsAsNumbers) {
    EXPECT_TRUE(
        isProved(withAccounts({false, false, {u"1"}}), withAccounts({false, false, {u"01"}})));
    EXPECT_FALSE(
        isProved(withAccounts({false, false, {u"1", u"x"}}), withAccounts({false, false, {u"1"}})));
}

TEST(Containment, CountsAnEntryOnce) {
    const RuleList b{false, false, {u"b"}};
    const RuleList twiceB{false, true, {u"b", u"b"}};
    EXPECT_TRUE(isProved(withPeople(b), withPeople(twiceB)));
    EXPECT_TRUE(isProved(withPeople(twiceB), withPeople(b)));
    EXPECT_TRUE(isProved(withWords(twiceB, true), withWords(b, true)));
    EXPECT_TRUE(isProved(withWords(b, true), withWords(twiceB, true)));
    EXPECT_FALSE(isProved(withPeople(b), withPeople({false, true, {u"c", u"c"}})));
    EXPECT_TRUE(isProved(withPeople({false, false, {u"b", u"c"}}),
                         withPeople({false, false, {u"b", u"c", u"b"}})));
    EXPECT_TRUE(
        isProved(withAccounts({true, false, {u"1"}}), withAccounts({false, true, {u"2", u"2"}})));
}

TEST(Containment, LooksOnlyAtEntriesThatBothHave) {
    const RuleList b{false, false, {u"b"}};
    EXPECT_TRUE(isProved(withPeople(b), withPeople({false, true, {u"a", u"b", u"c"}})));
    EXPECT_FALSE(isProved(withPeople(b), withPeople({false, false, {u"a", u"b", u"c"}})));
    EXPECT_FALSE(isProved(withWords(b, true), withWords({false, true, {u"a", u"b"}}, true)));
    Vocabulary vocabulary;
    const Conditions people = outerConditions(withPeople(b), vocabulary);
    EXPECT_EQ(people.lists[0]->entries, std::vector<std::uint32_t>{0});
    const auto inner = [&](const RuleList &list) {
        return innerConditions(withPeople(list), vocabulary).lists[0];
    };
    EXPECT_FALSE(inner({false, false, {u"b", u"a"}}));
    EXPECT_FALSE(inner({false, true, {u"c", u"a"}}));
    EXPECT_EQ(inner({false, true, {u"a", u"b"}})->entries, std::vector<std::uint32_t>{0});
    EXPECT_TRUE(inner({false, true, {u"a", u"b"}})->all);
    EXPECT_FALSE(vocabulary.known(ListPart::people, u"a"));
    EXPECT_FALSE(vocabulary.known(ListPart::words, u"b"));
}

TEST(Containment, OfAccountsOfWhichOneIsNoIdIsInDoubt) {
    const RuleValues some = withAccounts({false, true, {u"1", u"2", u"x"}});
    EXPECT_FALSE(isProved(some, some));
    EXPECT_FALSE(isProved(withAccounts({false, false, {u"1"}}), some));
}

TEST(Containment, OfDatesIsThatOfTheRanges) {
    const RuleValues march = withDates(u"20240301 00:00:00,20240331 23:59:59");
    EXPECT_TRUE(isProved(march, march));
    EXPECT_TRUE(isProved(march, withDates(u"20240310 00:00:00,20240311 00:00:00")));
    EXPECT_FALSE(isProved(march, withDates(u"20240229 23:59:59,20240311 00:00:00")));
    EXPECT_FALSE(isProved(march, withDates(u"20240310 00:00:00,20240401 00:00:00")));
    EXPECT_FALSE(isProved(march, withWords({false, false, {u"a"}})));
    EXPECT_FALSE(isProved(march, withDates(u"20240310,20240311")));
    EXPECT_FALSE(isProved(withDates(u"20240301"), withDates(u"20240301")));
}

TEST(Containment, OfServiceMessagesNeedsBothToLeaveThemOut) {
    RuleValues noService;
    noService.ignoreIfService = u"YES";
    RuleValues word = withWords({false, false, {u"a"}});
    EXPECT_TRUE(isProved(noService, noService));
    EXPECT_FALSE(isProved(noService, word));
    RuleValues quietWord = word;
    quietWord.ignoreIfService = u"YES";
    EXPECT_TRUE(isProved(noService, quietWord));
    EXPECT_TRUE(isProved(word, quietWord));
    EXPECT_FALSE(isProved(quietWord, word));
}

TEST(Containment, AllMessagesContainEverything) {
    EXPECT_TRUE(isProved(forAll(), forAll()));
    EXPECT_TRUE(isProved(forAll(), withWords({false, false, {u"a"}})));
    EXPECT_TRUE(isProved(forAll(), RuleValues{}));
    EXPECT_FALSE(isProved(withWords({false, false, {u"a"}}), forAll()));
}

TEST(Containment, ARuleWithoutConditionsContainsNothing) {
    EXPECT_FALSE(isProved(RuleValues{}, RuleValues{}));
    EXPECT_FALSE(isProved(RuleValues{}, withWords({false, false, {u"a"}})));
}

/// Any of these with about even chances.
class RandomRules {
public:
    RuleValues next() {
        RuleValues rule;
        rule.allMessages = upTo(12) == 0;
        rule.ignoreIfService = upTo(3) == 0 ? u"YES" : u"NO";
        rule.people = list();
        rule.accounts = list();
        rule.words = list();
        rule.asCommand = upTo(3) == 0;
        if (upTo(3) == 0) {
            rule.dateTime = moment() + u"," + moment();
        }
        return rule;
    }
    ReferenceMessage message() {
        return {set(upTo(8)), upTo(3) == 0 ? u"9" : entries[upTo(3)],
                set(upTo(8)), set(upTo(8)),
                moment(),     upTo(2) == 0};
    }
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

private:
    RuleList list() {
        return upTo(2) == 0 ? RuleList{}
                            : RuleList{upTo(2) == 0, upTo(3) == 0, subset(1 + upTo(7))};
    }
    std::u16string moment() { return u"2024010" + entries[upTo(3)] + u" 00:00:00"; }

    std::mt19937 random_{20240315};
};

TEST(Containment, OfWholeRulesHoldsForEveryMessageOfThem) {
    RandomRules random;
    std::vector<ReferenceMessage> messages(300);
    std::ranges::generate(messages, [&] { return random.message(); });
    int proofs = 0;
    for (int round = 0; round < 20000; ++round) {
        const RuleValues outer = random.next();
        const RuleValues inner = random.next();
        if (isProved(outer, inner)) {
            ++proofs;
            ASSERT_TRUE(holds(outer, inner, messages)) << round;
        }
    }
    EXPECT_GT(proofs, 1000);
}

} // namespace
} // namespace kvex::host
