// Two users change one rule. The second overwrites nothing that they have not seen, and sees a
// message.
#include "tests/editors/Editors.h"

namespace kvex::test {
namespace {

constexpr std::u16string_view changedByAnother =
    u"was not stored. Another user changed or removed it meanwhile.";

} // namespace

TEST_P(Editors, TheSecondOfTwoWhoRenameARuleGetsAMessageAndKeepsTheInput) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        meanwhile([&] {
            theirs.inEditor(id, [](User &other) {
                rename(other, u"Theirs");
                other.click(u"cmdOK");
                EXPECT_FALSE(other.isOpen());
            });
        });
        rename(user, u"Mine");
        for (int attempt = 1; attempt <= 3; ++attempt) {
            user.click(u"cmdOK");
            mine.expectTold({saveFailed}, rowChangedByAnother,
                            u"The change of record ID " + id + u" " +
                                std::u16string(changedByAnother));
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), u"Mine");
            EXPECT_EQ(idOf(u"Theirs"), id);
        }
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(idOf(u"Theirs"), id);
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(Editors, OpeningTheRuleAgainInTheSameSessionOverwritesNothingEither) {
    const std::u16string id = addRule(u"A");
    const auto renameInVain = [this](User &editor) {
        rename(editor, u"Mine");
        editor.click(u"cmdOK");
        mine.expectTold({saveFailed}, rowChangedByAnother, changedByAnother);
        editor.click(u"cmdCancel");
    };
    mine.inRulesWindow([&](User &user) {
        run(u"UPDATE SMS_RULES SET Name = 'Theirs'");
        for (int opening = 1; opening <= 2; ++opening) {
            mine.toolkit.whenShown(u"frmRuleEdit", renameInVain);
            user.click(u"cmdModify");
            EXPECT_EQ(user.rows(u"lvwRules"), Texts{u"A"});
        }
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(idOf(u"Theirs"), id);
}

TEST_P(Editors, ANewSessionSeesWhatTheOtherStoredAndCanChangeIt) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        run(u"UPDATE SMS_RULES SET Name = 'Theirs'");
        rename(user, u"Mine");
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, rowChangedByAnother, changedByAnother);
        user.click(u"cmdCancel");
    });
    mine.inEditor(id, [](User &user) {
        EXPECT_EQ(typedName(user), u"Theirs");
        rename(user, u"Mine");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(idOf(u"Mine"), id);
}

TEST_P(Editors, TheSecondOfTwoWhoChangeTheConditionsGetsAMessageAndKeepsTheInput) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        meanwhile([&] {
            theirs.inEditor(id, [](User &other) {
                setWord(other, u"THEIRS");
                other.click(u"cmdOK");
            });
        });
        const std::u16string afterwards = stored(u"QueryParam", u"A");
        EXPECT_NE(afterwards.find(u"THEIRS"), std::u16string::npos);
        setWord(user, u"MINE");
        for (int attempt = 1; attempt <= 2; ++attempt) {
            user.click(u"cmdOK");
            mine.expectTold({saveFailed}, rowChangedByAnother, changedByAnother);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(ruleState().strWords, u"MINE");
            EXPECT_EQ(stored(u"QueryParam", u"A"), afterwards);
        }
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, ANameAndTheConditionsChangedByTwoAreBothStored) {
    const std::u16string id = addRule(u"A");
    mine.inRulesWindow([&](User &user) {
        mine.toolkit.whenShown(u"frmRuleEdit", [&](User &editor) {
            meanwhile([&] {
                theirs.inEditor(id, [](User &other) {
                    setWord(other, u"THEIRS");
                    other.click(u"cmdOK");
                });
            });
            rename(editor, u"Mine");
            editor.click(u"cmdOK");
            EXPECT_FALSE(editor.isOpen());
        });
        user.click(u"cmdModify");
        EXPECT_EQ(user.rows(u"lvwRules"), Texts{u"Mine"});
        // The save has read the record again, so the editor shows what the other user stored.
        mine.toolkit.whenShown(u"frmRuleEdit", [](User &editor) {
            EXPECT_EQ(ruleState().strWords, u"THEIRS");
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdModify");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(idOf(u"Mine"), id);
    EXPECT_NE(stored(u"QueryParam", u"Mine").find(u"THEIRS"), std::u16string::npos);
}

TEST_P(Editors, SwitchingARuleOffDoesNotDisturbAnotherUserWhoEditsIt) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        meanwhile([&] {
            theirs.inRulesWindow([](User &other) {
                other.tickRow(u"lvwRules", 1);
                other.click(u"cmdCancel");
            });
        });
        rename(user, u"Mine");
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(idOf(u"Mine"), id);
    EXPECT_EQ(stored(u"ACTIVE", u"Mine"), u"0");
}

TEST_P(Editors, ATickIsRefusedWhenAnotherHasSwitchedTheRuleAlready) {
    addRule(u"A");
    mine.inRulesWindow([&](User &user) {
        run(u"UPDATE SMS_RULES SET ACTIVE = 0");
        for (int attempt = 1; attempt <= 2; ++attempt) {
            user.tickRow(u"lvwRules", 1);
            mine.expectLeftHandler(rowChangedByAnother, changedByAnother);
            // This tick returns to the value that was read, so nothing is sent.
            user.tickRow(u"lvwRules", 1);
            EXPECT_EQ(stored(u"ACTIVE", u"A"), u"0");
        }
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, TwoUsersWhoAddRulesOfTheSameNameAddTwoRules) {
    addRule(u"A");
    const auto save = [](User &editor) {
        completeRule(editor);
        rename(editor, u"Same");
        editor.click(u"cmdOK");
        EXPECT_FALSE(editor.isOpen());
    };
    mine.inEditor(u"", [&](User &user) {
        meanwhile([&] { theirs.inEditor(u"", save); });
        save(user);
    });
    EXPECT_EQ(ruleCount(), u"3");
    // The next session refuses the name, which is taken now.
    mine.inEditor(u"", [this](User &user) {
        completeRule(user);
        rename(user, u"Same");
        user.click(u"cmdOK");
        EXPECT_EQ(mine.utility.messages.size(), 1U);
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    mine.utility.messages.clear();
    EXPECT_EQ(ruleCount(), u"3");
}

} // namespace kvex::test
