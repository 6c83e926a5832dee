#include "host/rules/RuleChanges.h"

#include "tests/support/LoadedComponent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using testing::ElementsAre;
using Side = Place::Side;

/// Four rules with the ids 1 to 4, in this order.
Rules fourRules() {
    Rules rules;
    for (const std::u16string id : {u"1", u"2", u"3", u"4"}) {
        rules.push_back({id, u"rule " + id, true, id, u"<ALLMESSAGES>", u"<DELETE>YES</DELETE>"});
    }
    return rules;
}

std::vector<std::u16string> idsOf(const Rules &rules) {
    std::vector<std::u16string> ids;
    for (const StoredRule &rule : rules) {
        ids.push_back(rule.id);
    }
    return ids;
}

std::vector<std::u16string> prioritiesOf(const Rules &rules) {
    std::vector<std::u16string> priorities;
    for (const StoredRule &rule : rules) {
        priorities.push_back(rule.priority);
    }
    return priorities;
}

TEST(RuleChanges, SwitchOnlyTheNamedRules) {
    Rules rules = fourRules();
    rules[3].priority = u"17";
    rules = switched(std::move(rules), {u"2", u"4"}, false);
    EXPECT_TRUE(rules[0].isActive);
    EXPECT_FALSE(rules[1].isActive);
    EXPECT_TRUE(rules[2].isActive);
    EXPECT_FALSE(rules[3].isActive);
    EXPECT_EQ(rules[3].priority, u"17");
}

TEST(RuleChanges, MoveARuleBesideAnother) {
    const auto order = [](std::u16string_view id, Side side, const std::u16string &neighbour) {
        const Rules rules = moved(fourRules(), id, {side, neighbour});
        EXPECT_THAT(prioritiesOf(rules), ElementsAre(u"1", u"2", u"3", u"4"));
        return idsOf(rules);
    };
    EXPECT_THAT(order(u"3", Side::before, u"1"), ElementsAre(u"3", u"1", u"2", u"4"));
    EXPECT_THAT(order(u"1", Side::before, u"4"), ElementsAre(u"2", u"3", u"1", u"4"));
    EXPECT_THAT(order(u"1", Side::behind, u"4"), ElementsAre(u"2", u"3", u"4", u"1"));
    EXPECT_THAT(order(u"4", Side::behind, u"1"), ElementsAre(u"1", u"4", u"2", u"3"));
    EXPECT_THAT(order(u"2", Side::behind, u"1"), ElementsAre(u"1", u"2", u"3", u"4"));
    EXPECT_THAT(order(u"2", Side::before, u"2"), ElementsAre(u"1", u"2", u"3", u"4"));
}

TEST(RuleChanges, NumberTheRulesWhateverTheirPrioritiesWere) {
    Rules rules = fourRules();
    rules[0].priority = u"";
    rules[1].priority = u"-3";
    rules[2].priority = u"abc";
    EXPECT_THAT(prioritiesOf(moved(rules, u"4", {Side::behind, u"4"})),
                ElementsAre(u"1", u"2", u"3", u"4"));
    EXPECT_THAT(prioritiesOf(without(rules, {u"2"})), ElementsAre(u"1", u"2", u"3"));
}

TEST(RuleChanges, LeaveTheNamedRulesOut) {
    EXPECT_THAT(idsOf(without(fourRules(), {u"1", u"3"})), ElementsAre(u"2", u"4"));
    EXPECT_TRUE(without(fourRules(), {u"1", u"2", u"3", u"4"}).empty());
}

TEST(RuleChanges, CopyARuleBehindItAndSwitchTheCopyOff) {
    Rules rules = fourRules();
    rules[1].queryParam = u" <WORD>\r\n;";
    const Rules copied = withCopy(rules, u"2", u"new");
    EXPECT_THAT(idsOf(copied), ElementsAre(u"1", u"2", u"", u"3", u"4"));
    EXPECT_THAT(prioritiesOf(copied), ElementsAre(u"1", u"2", u"3", u"4", u"5"));
    EXPECT_EQ(copied[2].name, u"new");
    EXPECT_FALSE(copied[2].isActive);
    EXPECT_EQ(copied[2].queryParam, u" <WORD>\r\n;");
    EXPECT_EQ(copied[2].actionParam, rules[1].actionParam);
    EXPECT_TRUE(copied[1].isActive);
}

TEST(RuleChanges, RenameOnlyTheNamedRule) {
    const Rules rules = renamed(fourRules(), u"3", u"other");
    EXPECT_EQ(rules[2].name, u"other");
    EXPECT_EQ(rules[1].name, u"rule 2");
}

class NameOfARule : public testing::Test {
protected:
    std::optional<std::u16string> refusal(std::u16string_view name,
                                          Naming naming = Naming::existingRule) {
        return refusalOfName(strings_, rules_, rules_[1], name, naming);
    }

    static constexpr const char16_t *taken =
        u"A Rule already exists in this name, please select a different name.";
    static constexpr const char16_t *apostrophe =
        u"A new name cannot have an apostrophe ('), because the rule editor cannot search for it.";
    test::LoadedComponent component_;
    RuleStrings strings_{component_.object()};
    Rules rules_ = fourRules();
};

TEST_F(NameOfARule, CanBeAnythingThatNoRuleHas) {
    EXPECT_EQ(refusal(u"रात 🌙 \"quoted\""), std::nullopt);
    EXPECT_EQ(refusal(u"रात 🌙 \"quoted\"", Naming::newRule), std::nullopt);
}

TEST_F(NameOfARule, CannotBeThatOfAnotherWhateverTheCase) {
    EXPECT_EQ(refusal(u"Rule 3"), taken);
    EXPECT_EQ(refusal(u"RULE 3", Naming::newRule), taken);
}

TEST_F(NameOfARule, CanStayButNotChangeOnlyItsCase) {
    EXPECT_EQ(refusal(u"rule 2"), std::nullopt);
    EXPECT_EQ(refusal(u"Rule 2"), taken);
    EXPECT_EQ(refusal(u"rule 2", Naming::newRule), taken);
}

TEST_F(NameOfARule, CannotBeEmpty) {
    EXPECT_EQ(refusal(u""), u"Type a name for this Rule.");
}

TEST_F(NameOfARule, CanKeepItsApostropheButNotGetOne) {
    EXPECT_EQ(refusal(u"don't"), apostrophe);
    rules_[1].name = u"don't";
    EXPECT_EQ(refusal(u"don't"), std::nullopt);
    EXPECT_EQ(refusal(u"don't", Naming::newRule), apostrophe);
}

TEST_F(NameOfARule, IsRefusedWithARuleThatTheEditorWouldNotStore) {
    rules_[1].actionParam = u"";
    EXPECT_EQ(refusal(u"new"), u"Please select some actions for this Rule.");
}

} // namespace
} // namespace kvex::host
