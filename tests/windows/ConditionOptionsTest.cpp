#include "tests/support/RaisedError.h"
#include "tests/windows/ConditionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto list = u"lvwRuleCondition";
const std::u16string is = u"opgConNotmodifier(0)", isNot = u"opgConNotmodifier(1)";
const std::u16string all = u"opgAllAnyModifier(0)", any = u"opgAllAnyModifier(1)";

class ConditionOptions : public ConditionDialog {
protected:
    static OptionButton &option(User &user, const std::u16string &name) {
        return user.get<OptionButton>(name);
    }
    static Texts captions(User &user) {
        Texts texts;
        for (const std::u16string &name : {is, isNot, all, any}) {
            texts.push_back(option(user, name).caption());
        }
        return texts;
    }
    static Texts selected(User &user) {
        Texts names;
        for (const std::u16string &name : {is, isNot, all, any}) {
            if (option(user, name).selected()) {
                names.push_back(name);
            }
        }
        return names;
    }
    static void expectAllAnyEnabled(User &user, bool expected) {
        EXPECT_EQ(option(user, all).enabled(), expected);
        EXPECT_EQ(option(user, any).enabled(), expected);
    }
    static void expectAsDesigned(User &user) {
        EXPECT_EQ(captions(user), (Texts{u"Message contains the words below",
                                         u"Message does not contain the words below",
                                         u"Message matches all of the words below",
                                         u"Message matches any of the words below"}));
        EXPECT_EQ(selected(user), (Texts{is, any}));
        expectAllAnyEnabled(user, true);
        EXPECT_EQ(user.get<ListView>(list).columnCount(), 0);
        EXPECT_EQ(user.rows(list), Texts());
    }
    /// Opens the options of words, leaves them at once, and gives the selected options.
    Texts selectedForWords() {
        Texts names;
        playOptions(u"WORD", [&](User &user) {
            names = selected(user);
            user.press(Key::escape);
        });
        return names;
    }
};

TEST_F(ConditionOptions, ShowThePeopleWithoutAChoiceOfAll) {
    ruleState().strPeople = u"98;;99";
    ruleState().intPeopleAll = 1;
    playOptions(u"PEOPLE", [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Rule Condition Options");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"Rule Condition");
        EXPECT_EQ(user.get<Label>(u"Label2").caption(), u"Apply Rule if");
        EXPECT_EQ(user.get<Label>(u"Label4").caption(),
                  u"You can further customize this condition by setting the options below");
        EXPECT_EQ(captions(user), (Texts{u"Message is from the People below",
                                         u"Message is not from the People below",
                                         u"Message is from all of the People below",
                                         u"Message is from any one of the People below"}));
        EXPECT_EQ(selected(user), (Texts{is, any}));
        expectAllAnyEnabled(user, false);
        EXPECT_EQ(user.get<ListView>(list).columnCount(), 1);
        EXPECT_EQ(user.rows(list),
                  (Texts{u"Where the message is from ", u"    98", u"    ", u"    99"}));
        EXPECT_EQ(user.focused(), is);
        EXPECT_EQ(user.tabOrder(), (Texts{is, u"cmdcancel", u"cmdOK", list}));
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().intPeopleAll, 1);
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(ConditionOptions, ShowThatPeopleAreExcluded) {
    ruleState().intPeopleNot = 1;
    playOptions(u"PEOPLE", [](User &user) {
        EXPECT_EQ(selected(user), (Texts{isNot, any}));
        EXPECT_EQ(option(user, isNot).caption(), u"Message is not from the People below");
        expectAllAnyEnabled(user, false);
        EXPECT_EQ(user.rows(list), Texts{u"Where the message is from "});
        user.press(Key::enter);
    });
    EXPECT_EQ(ruleState().intPeopleNot, 1);
}

TEST_F(ConditionOptions, ShowTheAccountsByName) {
    database.addAccount(3, " Asha's ");
    ruleState().varAccounts = u"3;9";
    ruleState().intAccountNot = 1;
    playOptions(u"ACCOUNT", [](User &user) {
        EXPECT_EQ(captions(user), (Texts{u"Message is received through the Accounts below",
                                         u"Message is not received through the Accounts below",
                                         u"Message is received through all of the Accounts below",
                                         u"Message is received through any one of the Accounts "
                                         u"below"}));
        EXPECT_EQ(selected(user), (Texts{isNot, any}));
        expectAllAnyEnabled(user, false);
        EXPECT_EQ(user.rows(list),
                  (Texts{u"Where the message is received through ", u"    Asha's", u"    "}));
        user.press(Key::escape);
    });
}

TEST_F(ConditionOptions, ShowTheWordsWithBothChoices) {
    ruleState().strWords = u"STOP;price list";
    playOptions(u"WORD", [](User &user) {
        EXPECT_EQ(captions(user), (Texts{u"Message contains the Words below",
                                         u"Message does not contain the Words below",
                                         u"Message matches all of the Words below",
                                         u"Message matches any one of the Words below"}));
        expectAllAnyEnabled(user, true);
        EXPECT_EQ(user.rows(list), (Texts{u"Where the message contains the words ", u"    STOP",
                                          u"    price list"}));
        EXPECT_EQ(user.focused(), any);
        EXPECT_EQ(user.tabOrder(), (Texts{any, is, u"cmdcancel", u"cmdOK", list}));
        user.press(Key::escape);
    });
}

TEST_F(ConditionOptions, AnEmptyListShowsItsColumnAndHeadingOnly) {
    for (const auto &[kind, heading] : {std::pair{u"PEOPLE", u"Where the message is from "},
                                        {u"ACCOUNT", u"Where the message is received through "},
                                        {u"WORD", u"Where the message contains the words "}}) {
        playOptions(kind, [&heading = heading](User &user) {
            EXPECT_EQ(user.get<ListView>(list).columnCount(), 1);
            EXPECT_EQ(user.rows(list), Texts{heading});
            user.press(Key::escape);
        });
    }
}

TEST_F(ConditionOptions, BeginWithTheWordsOwnModifiers) {
    RuleState &rule = ruleState();
    EXPECT_EQ(selectedForWords(), (Texts{is, any}));
    rule.intWordsNot = 1;
    EXPECT_EQ(selectedForWords(), (Texts{isNot, any}));
    rule.intWordsAll = 1;
    EXPECT_EQ(selectedForWords(), (Texts{isNot, all}));
    rule.intWordsNot = 0;
    EXPECT_EQ(selectedForWords(), (Texts{is, all}));
    rule.intWordsNot = rule.intWordsAll = -1;
    EXPECT_EQ(selectedForWords(), (Texts{isNot, all}));
}

TEST_F(ConditionOptions, ACommandIsMatchedOnAnyWordEvenAfterCancel) {
    ruleState().intAsCommand = 1;
    ruleState().intWordsAll = 1;
    playOptions(u"WORD", [](User &user) {
        EXPECT_EQ(ruleState().intWordsAll, 0);
        EXPECT_EQ(selected(user), (Texts{is, any}));
        expectAllAnyEnabled(user, false);
        user.click(u"cmdcancel");
    });
    EXPECT_EQ(ruleState().intWordsAll, 0);
    EXPECT_FALSE(session().blnChanged);
    playOptions(u"WORD", [](User &user) {
        user.click(isNot);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().intWordsAll, 0);
    EXPECT_EQ(ruleState().intWordsNot, 1);
}

TEST_F(ConditionOptions, PeopleAndAccountsOfACommandKeepTheAllModifierOfTheWords) {
    ruleState().intAsCommand = 1;
    ruleState().intWordsAll = 1;
    for (const char16_t *kind : {u"PEOPLE", u"ACCOUNT", u"DATE"}) {
        playOptions(kind, [](User &user) { user.press(Key::enter); });
    }
    EXPECT_EQ(ruleState().intWordsAll, 1);
}

struct Flags {
    const char16_t *kind;
    std::int16_t RuleState::*isNot;
    std::int16_t RuleState::*all;
};
constexpr Flags allKinds[] = {
    {u"PEOPLE", &RuleState::intPeopleNot, &RuleState::intPeopleAll},
    {u"ACCOUNT", &RuleState::intAccountNot, &RuleState::intAccountAll},
    {u"WORD", &RuleState::intWordsNot, &RuleState::intWordsAll},
    {u"DATE", &RuleState::intOptionNot, &RuleState::intOptionAll},
};

TEST_F(ConditionOptions, OkStoresWhetherTheConditionIsNegated) {
    for (const Flags &flags : allKinds) {
        for (const auto &[chosen, stored] : {std::pair{isNot, 1}, {is, 0}}) {
            session().blnChanged = false;
            playOptions(flags.kind, [&chosen = chosen](User &user) {
                user.click(chosen);
                EXPECT_TRUE(session().blnChanged);
                user.click(u"cmdOK");
            });
            EXPECT_EQ(ruleState().*flags.isNot, stored) << utf8(flags.kind);
        }
    }
}

TEST_F(ConditionOptions, OkStoresThatWordsAndDatesMustAllMatch) {
    for (const Flags &flags : {allKinds[2], allKinds[3]}) {
        for (const auto &[chosen, stored] : {std::pair{all, 1}, {any, 0}}) {
            session().blnChanged = false;
            playOptions(flags.kind, [&chosen = chosen](User &user) {
                user.click(chosen);
                EXPECT_TRUE(session().blnChanged);
                user.click(u"cmdOK");
            });
            EXPECT_EQ(ruleState().*flags.all, stored) << utf8(flags.kind);
        }
    }
}

TEST_F(ConditionOptions, OkTouchesTheModifiersOfItsOwnConditionOnly) {
    for (const Flags &own : allKinds) {
        for (const Flags &flags : allKinds) {
            ruleState().*flags.isNot = ruleState().*flags.all = 7;
        }
        playOptions(own.kind, [](User &user) {
            user.click(is);
            user.click(u"cmdOK");
        });
        for (const Flags &flags : allKinds) {
            const bool isOwn = flags.kind == own.kind;
            EXPECT_EQ(ruleState().*flags.isNot, isOwn ? 0 : 7) << utf8(own.kind);
            EXPECT_EQ(ruleState().*flags.all == 7, !isOwn) << utf8(own.kind);
        }
    }
}

TEST_F(ConditionOptions, OkAlwaysStoresAnyForPeopleAndAccounts) {
    ruleState().intPeopleAll = ruleState().intAccountAll = 1;
    for (const char16_t *kind : {u"PEOPLE", u"ACCOUNT"}) {
        playOptions(kind, [](User &user) { user.press(Key::enter); });
    }
    EXPECT_EQ(ruleState().intPeopleAll, 0);
    EXPECT_EQ(ruleState().intAccountAll, 0);
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(ConditionOptions, LeavingOtherwiseStoresNothingButTheChangeFlag) {
    for (const Flags &flags : allKinds) {
        const Script leavings[] = {[](User &user) { user.click(u"cmdcancel"); },
                                   [](User &user) { user.press(Key::escape); },
                                   [](User &user) { user.closeByFrame(); }};
        for (const Script &leave : leavings) {
            session().blnChanged = false;
            playOptions(flags.kind, [&](User &user) {
                user.click(isNot);
                leave(user);
            });
            EXPECT_EQ(ruleState().*flags.isNot, 0);
            EXPECT_TRUE(session().blnChanged);
        }
    }
}

TEST_F(ConditionOptions, AClickOnTheSelectedOptionIsAChange) {
    playOptions(u"PEOPLE", [](User &user) {
        user.click(is);
        user.press(Key::escape);
    });
    EXPECT_TRUE(session().blnChanged);
}

TEST_F(ConditionOptions, ADateShowsTheDesignedTexts) {
    ruleState().strPeople = ruleState().strWords = u"98";
    ruleState().intOptionNot = ruleState().intOptionAll = 1;
    playOptions(u"DATE", [](User &user) {
        expectAsDesigned(user);
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().intOptionNot, 1);
    playOptions(u"DATE", [](User &user) { user.press(Key::enter); });
    EXPECT_EQ(ruleState().intOptionNot, 0);
    EXPECT_EQ(ruleState().intOptionAll, 0);
}

TEST_F(ConditionOptions, AnUnknownKindConfiguresAndStoresNothing) {
    for (const Flags &flags : allKinds) {
        ruleState().*flags.isNot = ruleState().*flags.all = 1;
    }
    for (const char16_t *kind : {u"people", u"account", u"word", u"date", u"", u"PEOPLE ", u"X"}) {
        playOptions(kind, [](User &user) {
            expectAsDesigned(user);
            user.press(Key::enter);
        });
    }
    for (const Flags &flags : allKinds) {
        EXPECT_EQ(ruleState().*flags.isNot, 1);
        EXPECT_EQ(ruleState().*flags.all, 1);
    }
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(ConditionOptions, AnAccountIdThatIsNoNumberOpensNoWindowAndLogsNothing) {
    openSession();
    ruleState().varAccounts = u"x";
    EXPECT_EQ(errorNumber([] { showConditionOptions(u"ACCOUNT"); }), error_number::typeMismatch);
}

TEST_F(ConditionOptions, ArrowKeysChooseWithinAGroup) {
    playOptions(u"WORD", [](User &user) {
        user.press(Key::up);
        EXPECT_EQ(selected(user), (Texts{is, all}));
        user.press(Key::tab);
        user.press(Key::down);
        EXPECT_EQ(selected(user), (Texts{isNot, all}));
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::enter);
    });
    EXPECT_EQ(ruleState().intWordsNot, 1);
    EXPECT_EQ(ruleState().intWordsAll, 1);
}

} // namespace
} // namespace kvex::test
