// What the dialogs for people, accounts and words have in common: a list below a heading row.
#include "tests/windows/ConditionDialogFixture.h"

#include <functional>

namespace kvex::test {
namespace {

struct ListDialog {
    const char *name;
    Condition condition;
    std::u16string heading;
    /// The rule's entries "98", "99" and "97", and the rows that show them.
    std::u16string RuleState::*entries;
    Texts shown;
    /// The log entry of a question that fails, "" for none.
    std::u16string clearFailure;
    /// The first caption of its options.
    std::u16string optionCaption;
};

const ListDialog dialogs[] = {
    {"People",
     people,
     u"Where the message is from ",
     &RuleState::strPeople,
     {u"    98", u"    99", u"    97"},
     u"Sub: cmdClear_Click, Module: frmRulePeople",
     u"Message is from the People below"},
    {"Accounts",
     accounts,
     u"Where the message is received through ",
     &RuleState::varAccounts,
     {u"    Main", u"    Backup", u"    Night"},
     u"Sub: cmdClear_Click, Module: frmRuleAccount",
     u"Message is received through the Accounts below"},
    {"Words",
     words,
     u"Where the message contains the words ",
     &RuleState::strWords,
     {u"    98", u"    99", u"    97"},
     u"",
     u"Message contains the Words below"},
};

void PrintTo(const ListDialog &dialog, std::ostream *stream) {
    *stream << dialog.name;
}

class ConditionLists : public ConditionDialog, public testing::WithParamInterface<ListDialog> {
protected:
    ConditionLists() {
        database.addAccount(98, "Main");
        database.addAccount(99, "Backup");
        database.addAccount(97, "Night");
        entries() = u"98;99;97";
    }
    static std::u16string &entries() { return ruleState().*GetParam().entries; }
    static const char16_t *list() { return GetParam().condition.list; }
    /// The rows of the stored entries at these positions, below the heading.
    static Texts rowsOf(const std::vector<std::size_t> &places) {
        Texts rows = {GetParam().heading};
        for (const std::size_t place : places) {
            rows.push_back(GetParam().shown.at(place));
        }
        return rows;
    }
    static int selectedRow(User &user) { return user.get<ListView>(list()).selectedRow(); }
    static void remove(User &user, int row) {
        user.clickRow(list(), row);
        user.click(u"cmdRemove");
    }
    void play(Script script) { playDialog(GetParam().condition, std::move(script)); }
};

TEST_P(ConditionLists, OpeningAndOkKeepTheEntriesAndTheChangeFlag) {
    play([](User &user) {
        EXPECT_EQ(user.rows(list()), rowsOf({0, 1, 2}));
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_EQ(selectedRow(user), 0);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(entries(), u"98;99;97");
    EXPECT_FALSE(session().blnChanged);
}

TEST_P(ConditionLists, EveryOpeningBeginsWithTheRulesEntries) {
    play([](User &user) {
        remove(user, 2);
        user.click(u"cmdCancel");
    });
    play([](User &user) {
        EXPECT_EQ(user.rows(list()), rowsOf({0, 1, 2}));
        user.press(Key::escape);
    });
}

TEST_P(ConditionLists, RemoveTakesTheSelectedEntryAndTheNextIsSelected) {
    play([](User &user) {
        remove(user, 3);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(list()), rowsOf({0, 2}));
        EXPECT_EQ(selectedRow(user), 3);
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(list()), rowsOf({0}));
        EXPECT_EQ(selectedRow(user), 0);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(entries(), u"98");
}

TEST_P(ConditionLists, RemoveOnTheHeadingTakesTheFirstEntry) {
    play([](User &user) {
        remove(user, 1);
        EXPECT_EQ(user.rows(list()), rowsOf({1, 2}));
        EXPECT_EQ(selectedRow(user), 2);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(entries(), u"99;97");
}

TEST_P(ConditionLists, RemoveWithoutASelectionOnlySetsTheChangeFlag) {
    play([](User &user) {
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(list()), rowsOf({0, 1, 2}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(entries(), u"98;99;97");
}

TEST_P(ConditionLists, RemovingTheLastEntryDisablesTheButtonsAndKeepsTheHeading) {
    play([](User &user) {
        remove(user, 4);
        remove(user, 2);
        EXPECT_EQ(enabledButtons(user), allButtons);
        remove(user, 1);
        EXPECT_EQ(user.rows(list()), rowsOf({}));
        EXPECT_EQ(enabledButtons(user), noButtons);
        session().blnChanged = false;
        user.clickRow(list(), 1);
        runClick(user, u"cmdRemove");
        EXPECT_EQ(user.rows(list()), rowsOf({}));
        EXPECT_EQ(selectedRow(user), 1);
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::escape);
    });
    EXPECT_EQ(entries(), u"98;99;97");
}

TEST_P(ConditionLists, ClearAsksAndKeepsTheListUnlessTheAnswerIsYes) {
    utility.onMessage = [] { EXPECT_TRUE(session().blnChanged); };
    utility.answers = {message_box::no, message_box::ok, 0};
    play([this](User &user) {
        for (int asked = 1; asked <= 3; ++asked) {
            session().blnChanged = false;
            user.click(u"cmdClear");
            expectMessages({clearQuestion});
            EXPECT_EQ(user.rows(list()), rowsOf({0, 1, 2}));
            EXPECT_EQ(enabledButtons(user), allButtons);
            EXPECT_TRUE(session().blnChanged);
        }
        user.click(u"cmdOK");
    });
    EXPECT_EQ(entries(), u"98;99;97");
}

TEST_P(ConditionLists, ClearKeepsTheHeadingAloneOnYes) {
    utility.answers = {message_box::yes};
    play([](User &user) {
        user.clickRow(list(), 3);
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(list()), rowsOf({}));
        EXPECT_EQ(enabledButtons(user), noButtons);
        EXPECT_EQ(selectedRow(user), 0);
        EXPECT_TRUE(enabled(user, u"cmdCancel"));
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
    EXPECT_EQ(entries(), u"98;99;97");
    EXPECT_TRUE(session().blnChanged);
}

TEST_P(ConditionLists, AFailingQuestionEndsTheClearing) {
    utility.onMessage = [] { throw Error(error_number::automationError); };
    play([](User &user) {
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(list()), rowsOf({0, 1, 2}));
        user.press(Key::escape);
    });
    if (GetParam().clearFailure.empty()) {
        expectedUnhandledErrors = 1;
    } else {
        expectLog({GetParam().clearFailure});
    }
    expectMessages({clearQuestion});
    EXPECT_TRUE(session().blnChanged);
}

TEST_P(ConditionLists, CancelEscapeAndTheFrameKeepTheRulesEntriesButNotTheFlag) {
    const std::function<void(User &)> leavings[] = {
        [](User &user) { user.click(u"cmdCancel"); },
        [](User &user) { user.press(Key::escape); },
        [](User &user) { user.closeByFrame(); },
    };
    for (const auto &leave : leavings) {
        session().blnChanged = false;
        play([&](User &user) {
            remove(user, 2);
            leave(user);
            EXPECT_FALSE(user.isOpen());
        });
        EXPECT_EQ(entries(), u"98;99;97");
        EXPECT_TRUE(session().blnChanged);
    }
}

TEST_P(ConditionLists, OptionsCommitsTheListAndShowsItOverTheDialog) {
    play([this](User &user) {
        remove(user, 2);
        whenShown(u"frmRuleOptions", [&](User &options) {
            EXPECT_EQ(entries(), u"99;97");
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(options.get<OptionButton>(u"opgConNotmodifier(0)").caption(),
                      GetParam().optionCaption);
            EXPECT_EQ(options.rows(u"lvwRuleCondition"), rowsOf({1, 2}));
            options.press(Key::escape);
        });
        user.click(u"cmdOptions");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.rows(list()), rowsOf({1, 2}));
        remove(user, 2);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(entries(), u"99;97");
}

TEST_P(ConditionLists, OptionsAloneDoNotSetTheChangeFlag) {
    play([this](User &user) {
        whenShown(u"frmRuleOptions", [](User &options) { options.press(Key::enter); });
        user.click(u"cmdOptions");
        user.click(u"cmdOK");
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_P(ConditionLists, TheEditorDescribesWhatOkWroteAndWhatOptionsCommitted) {
    const auto id = database.addRule("Rule", "<PEOPLE><CON><ANY>98;99;97</PEOPLE>"
                                             "<ACCOUNT><CON><ANY>98;99;97</ACCOUNT>"
                                             "<WORD><CON><ANY>98;99;97</WORD>");
    playEditor(id, [this](User &editor) {
        const std::u16string before = description(editor);
        edit(editor, GetParam().condition, [](User &user) {
            remove(user, 2);
            user.click(u"cmdCancel");
        });
        EXPECT_EQ(description(editor), before);
        edit(editor, GetParam().condition, [this](User &user) {
            remove(user, 2);
            whenShown(u"frmRuleOptions", [](User &options) { options.press(Key::escape); });
            user.click(u"cmdOptions");
            user.click(u"cmdCancel");
        });
        const std::u16string committed = description(editor);
        EXPECT_EQ(committed.size() + GetParam().shown[0].size(), before.size());
        edit(editor, GetParam().condition, [](User &user) {
            remove(user, 2);
            user.click(u"cmdOK");
        });
        EXPECT_LT(description(editor).size(), committed.size());
        EXPECT_EQ(entries(), u"97");
    });
}

INSTANTIATE_TEST_SUITE_P(Dialog, ConditionLists, testing::ValuesIn(dialogs),
                         [](const auto &instance) { return std::string(instance.param.name); });

} // namespace
} // namespace kvex::test
