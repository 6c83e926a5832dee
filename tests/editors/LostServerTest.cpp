// The server goes away during a session, or refuses one call.
#include "tests/editors/Editors.h"

namespace kvex::test {
namespace {

constexpr std::u16string_view broke = u"The connection to the server broke.";
constexpr std::u16string_view no = u"The server refused.";

} // namespace

TEST_P(Editors, AServerLostWhileASessionOpensGivesAMessageAndANewSessionWorks) {
    addRule(u"A");
    for (int calls = 0; calls <= 6; ++calls) {
        watched.loseAfter(calls);
        EXPECT_EQ(mine.showRules(), 0);
        mine.expectTold({openingFailed}, noConnection, broke);
        watched.comeBack();
        EXPECT_EQ(mine.inRulesWindow([](User &user) { user.click(u"cmdCancel"); }), 1);
    }
}

TEST_P(Editors, ANewRulesEditorOpensWithoutANameWhenTheServerIsGone) {
    addRule(u"A");
    mine.inRulesWindow([this](User &user) {
        watched.loseAfter(0);
        mine.toolkit.whenShown(u"frmRuleEdit", [this](User &editor) {
            mine.expectTold({newEditorFailed}, noConnection, broke);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), Texts{u"A"});
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, WithoutAServerATickGivesAMessageAndTheWindowStaysUsable) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        watched.loseAfter(0);
        user.tickRow(u"lvwRules", 2);
        mine.expectLeftHandler(noConnection, u"was not stored, as far as is known. The "
                                             u"connection to the server broke");
        user.clickRow(u"lvwRules", 3);
        EXPECT_EQ(ruleState().strRuleName, u"C");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"1");
}

TEST_P(Editors, WithoutAServerASaveGivesAMessageAndKeepsTheInput) {
    const std::u16string id = addRule(u"A");
    for (const std::u16string &rule : {id, std::u16string()}) {
        mine.inEditor(rule, [&](User &user) {
            if (rule.empty()) {
                completeRule(user);
            }
            rename(user, u"Mine");
            watched.loseAfter(0);
            for (int attempt = 1; attempt <= 2; ++attempt) {
                user.click(u"cmdOK");
                mine.expectTold({saveFailed}, noConnection,
                                u"was not stored, as far as is known. " + std::u16string(broke));
                EXPECT_TRUE(user.isOpen());
                EXPECT_EQ(typedName(user), u"Mine");
                // For this session the connection stays lost.
                watched.comeBack();
            }
            user.click(u"cmdCancel");
        });
        EXPECT_EQ(ruleCount(), u"1");
        EXPECT_EQ(idOf(u"A"), id);
    }
    mine.inEditor(id, [](User &user) {
        rename(user, u"Mine");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(idOf(u"Mine"), id);
}

TEST_P(Editors, AServerLostAfterTheWriteGivesAMessageThatTheRuleIsStored) {
    const std::u16string id = addRule(u"A");
    for (const std::u16string &rule : {id, std::u16string()}) {
        const std::u16string name = rule.empty() ? u"New" : u"Changed";
        mine.inEditor(rule, [&](User &user) {
            if (rule.empty()) {
                completeRule(user);
            }
            rename(user, name);
            watched.loseAfter(1);
            for (int attempt = 1; attempt <= 2; ++attempt) {
                user.click(u"cmdOK");
                mine.expectTold({saveFailed}, noConnection,
                                u"What was stored before stays stored, but record ID " +
                                    idOf(name) + u" could not be read again. ");
                EXPECT_TRUE(user.isOpen());
                EXPECT_EQ(typedName(user), name);
            }
            user.click(u"cmdCancel");
        });
        // The list cannot show a new rule whose defaults are unknown.
        if (rule.empty()) {
            mine.expectTold({u"Sub: ListRules, Module: frmRules"}, error_number::invalidUseOfNull,
                            u"Only 1 of 2 rules could be read: the list ends before the rule with "
                            u"the ID " +
                                idOf(name));
        } else {
            mine.expectNothingTold();
        }
        watched.comeBack();
    }
    EXPECT_EQ(idOf(u"Changed"), id);
    EXPECT_EQ(ruleCount(), u"2");
    mine.inRulesWindow([](User &user) {
        EXPECT_EQ(user.get<ListView>(u"lvwRules").rowCount(), 2);
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, ARuleThatWasStoredButNotReadAgainIsStoredOnceHoweverOftenOkIsPressed) {
    for (const bool hadRules : {false, true}) {
        mine.inRulesWindow([&](User &user) {
            mine.toolkit.whenShown(u"frmRuleEdit", [&](User &editor) {
                completeRule(editor);
                rename(editor, hadRules ? u"Second" : u"First");
                watched.refuseAfter(1, -5);
                editor.click(u"cmdOK");
                mine.expectTold({saveFailed}, -5, u"could not be read again. The server refused");
                EXPECT_TRUE(editor.isOpen());
                rename(editor, hadRules ? u"Second b" : u"First b");
                editor.click(u"cmdOK");
                EXPECT_FALSE(editor.isOpen());
            });
            user.click(u"cmdNew");
            user.click(u"cmdCancel");
        });
    }
    EXPECT_EQ(ruleCount(), u"2");
    EXPECT_EQ(stored(u"Name", u"First b"), u"First b");
    EXPECT_EQ(stored(u"Name", u"Second b"), u"Second b");
}

TEST_P(Editors, ARuleThatWasStoredButNotReadAgainKeepsItsNameFromOtherRules) {
    addRule(u"A");
    mine.inRulesWindow([this](User &user) {
        mine.toolkit.whenShown(u"frmRuleEdit", [this](User &editor) {
            completeRule(editor);
            rename(editor, u"Mine");
            watched.refuseAfter(1, -5);
            editor.click(u"cmdOK");
            mine.expectTold({saveFailed}, -5, u"could not be read again. The server refused");
            editor.click(u"cmdOK");
            EXPECT_FALSE(editor.isOpen());
        });
        user.click(u"cmdNew");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(Editors, WithoutAServerARemovalGivesAMessageAndKeepsTheRow) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        watched.loseAfter(0);
        for (int attempt = 1; attempt <= 2; ++attempt) {
            confirmRemoval(mine, user, 2);
            mine.expectTold({removalFailed}, noConnection,
                            u"The removal of record ID " + idOf(u"B") +
                                u" was not stored, as far as is known. " + std::u16string(broke));
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        }
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"3");
}

TEST_P(Editors, AnOrderThatIsCutOffAnywhereLeavesTheOldOneAndIsFinishedInANewSession) {
    // Before the transaction, and before each of its three rules.
    for (int calls = 0; calls <= 3; ++calls) {
        run(u"DELETE FROM SMS_RULES");
        addThree(10, 10);
        mine.inRulesWindow([&](User &user) {
            watched.loseAfter(calls);
            for (int attempt = 1; attempt <= 2; ++attempt) {
                user.click(u"cmdOK");
                mine.expectTold({orderFailed}, noConnection,
                                std::u16string(broke) + u" The old order is stored.");
                EXPECT_TRUE(user.isOpen());
                EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
                EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
            }
            user.click(u"cmdCancel");
        });
        watched.comeBack();
        mine.inRulesWindow([](User &user) { user.click(u"cmdOK"); });
        EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
    }
}

TEST_P(Editors, AnOrderThatIsCutOffAtItsEndIsNotKnownToBeStored) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        watched.loseAfter(4);
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, noConnection,
                        std::u16string(broke) + u" Either the old order is stored or the new one, "
                                                u"and nothing in between.");
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    watched.comeBack();
    EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
}

TEST_P(Editors, AnOrderWhoseTransactionIsRefusedLeavesTheOldOneAndIsStoredByTheNextOk) {
    // At its beginning, and at its end.
    for (const int calls : {0, 4}) {
        run(u"DELETE FROM SMS_RULES");
        addThree(10, 10);
        mine.inRulesWindow([&](User &user) {
            watched.refuseAfter(calls, -5);
            user.click(u"cmdOK");
            mine.expectTold({orderFailed}, -5, std::u16string(no) + u" The old order is stored.");
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
            static_cast<void>(watched.takeCalls());
            user.click(u"cmdOK");
            EXPECT_EQ(watched.takeCalls(), (DriverCalls{.executes = 3, .transactions = 2}));
        });
        EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
    }
}

TEST_P(Editors, AnOrderOfWhichTheFirstRuleWasRefusedLeavesTheOldOne) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        watched.refuseAfter(1, -5);
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, -5,
                        u"The change of record ID " + idOf(u"A") + u" was not stored. " +
                            std::u16string(no) + u" The old order is stored.");
        EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, AnOrderWithOneRefusedRuleIsFinishedByTheNextOk) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        watched.refuseAfter(3, -5);
        static_cast<void>(watched.takeCalls());
        user.click(u"cmdOK");
        // The rules before it are stored in a transaction of their own.
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.executes = 5, .transactions = 3}));
        mine.expectTold({orderFailed}, -5,
                        u"The change of record ID " + idOf(u"C") + u" was not stored. " +
                            std::u16string(no) +
                            u" The first 2 rules of the list have their new number; the others "
                            u"keep their old one.");
        EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"30"}));
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.executes = 1, .transactions = 2}));
    });
    EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
}

TEST_P(Editors, AnOrderThatIsRefusedAndThenCutOffLeavesTheOldOne) {
    // While the rules before the refused one are stored: at the beginning, and before a rule.
    for (const int calls : {4, 5}) {
        run(u"DELETE FROM SMS_RULES");
        addThree(10, 10);
        mine.inRulesWindow([&](User &user) {
            watched.refuseAfter(3, -5);
            watched.loseAfter(calls);
            user.click(u"cmdOK");
            mine.expectTold({orderFailed}, noConnection,
                            std::u16string(broke) + u" The old order is stored.");
            user.click(u"cmdCancel");
        });
        watched.comeBack();
        EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
    }
}

} // namespace kvex::test
