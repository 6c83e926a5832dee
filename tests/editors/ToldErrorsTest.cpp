// Which of the component's own errors the suite's utility object shows, and which it only logs.
#include "host/suite/SuiteState.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/editors/Editors.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {
namespace {

const std::u16string listFailed = u"Sub: ListRules, Module: frmRules";
const std::u16string loadFailed = u"Sub: LoadRuleFromDB, Module: General";

class ToldErrors : public TwoEditors {
protected:
    ToldErrors() : TwoEditors(sqliteMemory()) {}

    /// The log entries since the last call, without their fixed beginning.
    Texts takeLog() {
        Texts texts;
        for (const LogEntry &entry : std::exchange(mine.utility.log, {})) {
            texts.push_back(entry.text.substr(entry.text.find(u"Sub: ")));
        }
        return texts;
    }
    /// The messages since the last call, without the paragraph that names the log.
    Texts takeTold() {
        const std::u16string logged = u"\r\n\r\nThe error is logged in " +
                                      fromUtf8(host::suiteState().log.lastFile().string()) + u".";
        Texts texts;
        for (const Message &message : std::exchange(mine.utility.messages, {})) {
            EXPECT_EQ(message.style, message_box::exclamation);
            EXPECT_TRUE(message.text.ends_with(logged)) << toUtf8(message.text);
            texts.push_back(message.text.substr(0, message.text.size() - logged.size()));
        }
        return texts;
    }
    void expectOnlyLogged(const Texts &entries) {
        EXPECT_EQ(takeLog(), entries);
        EXPECT_EQ(takeTold(), Texts());
    }
    /// Expects one message, whose second paragraph begins with `description`.
    void expectTold(const Texts &entries, const std::u16string &description) {
        EXPECT_EQ(takeLog(), entries);
        const Texts told = takeTold();
        ASSERT_EQ(told.size(), 1U);
        const std::size_t begin = told[0].find(u"\r\n\r\n") + 4;
        EXPECT_TRUE(told[0].substr(begin).starts_with(description + u" ")) << toUtf8(told[0]);
    }
    /// Removes the record from the session, while its row stays in the windows.
    static void takeRecordAway(const std::u16string &id) {
        findRecordById(*session().rsRules, id);
        session().rsRules->deleteCurrent();
    }
    /// Opens and cancels the dialog of a condition or an action of the only rule.
    void openDialog(const char16_t *list, int part, const char16_t *button,
                    const char16_t *dialog) {
        const auto cancel = [](User &user) { user.click(u"cmdCancel"); };
        mine.inRulesWindow([&](User &window) {
            mine.toolkit.whenShown(u"frmRuleEdit", [&](User &editor) {
                mine.toolkit.whenShown(dialog, cancel);
                editor.clickRow(list, part);
                editor.click(button);
                cancel(editor);
            });
            window.clickRow(u"lvwRules", 1);
            window.click(u"cmdModify");
            cancel(window);
        });
    }
    void openAccounts() {
        openDialog(conditions, row::throughAccounts, u"cmdEditCondition", u"frmRuleAccount");
    }
    void openUsers() {
        openDialog(actions, row::distribute, u"cmdConfigureAction", u"frmRuleDistribute");
    }
    std::u16string addRuleWith(const std::u16string &queryParam,
                               const std::u16string &actionParam) {
        std::u16string id = addRule(u"A");
        run(u"UPDATE SMS_RULES SET QueryParam = '" + queryParam + u"', ActionParam = '" +
            actionParam + u"'");
        return id;
    }
};

} // namespace

TEST_F(ToldErrors, ARuleReadInPartIsToldWhenItsEditorOpensAndOnlyLoggedByAClick) {
    addThree();
    run(u"UPDATE SMS_RULES SET QueryParam = '<PEOPLE><CON><ANY>98' WHERE Name = 'B'");
    const std::u16string id = idOf(u"B");
    mine.inRulesWindow([&](User &user) {
        user.clickRow(u"lvwRules", 2);
        expectOnlyLogged({loadFailed});
        const auto modify = [&](const Texts &expected) {
            mine.toolkit.whenShown(u"frmRuleEdit", [&](User &editor) {
                EXPECT_EQ(takeLog(), Texts{loadFailed});
                EXPECT_EQ(takeTold(), expected);
                editor.click(u"cmdCancel");
            });
            user.click(u"cmdModify");
        };
        modify(
            {u"Not all of this rule could be read.\r\n\r\n"
             u"Invalid procedure call or argument. Parts of the rule with the ID " +
             id +
             u", \"B\", could not be read. "
             u"The editor shows what was read before the error. OK in the editor replaces the "
             u"whole rule with what it shows. To keep the rule, press Cancel and correct its row "
             u"in the database. The columns QueryParam and ActionParam of SMS_RULES hold its "
             u"texts; kvexrules show ID prints them."});
        // Once is enough for each rule.
        modify({});
        run(u"UPDATE SMS_RULES SET ActionParam = '<DIST>' WHERE Name = 'C'");
        user.click(u"cmdCancel");
    });
    // The next session tells it again, for each of the rules.
    for (const char16_t *name : {u"B", u"C"}) {
        mine.inEditor(idOf(name), [&](User &editor) {
            // The row was clicked before its editor opened.
            expectTold({loadFailed, loadFailed},
                       u"Invalid procedure call or argument. Parts of the rule with the ID " +
                           idOf(name) + u", \"" + name + u"\", could not be read.");
            editor.click(u"cmdCancel");
        });
    }
}

TEST_F(ToldErrors, TheNumberOfARuleReadInPartStays) {
    const std::u16string id = addRuleWith(u"<PEOPLE>", u"");
    mine.inEditor(id, [&](User &editor) {
        ASSERT_EQ(mine.utility.log.size(), 3U);
        for (const LogEntry &entry : mine.utility.log) {
            EXPECT_EQ(entry.number, error_number::invalidCall);
            EXPECT_EQ(entry.source, u"KVEXMessageRules");
        }
        // The first row is clicked when it is listed, and the rule's own when it is selected.
        EXPECT_EQ(mine.utility.log[0].helpContext, HelpContext::none);
        EXPECT_EQ(mine.utility.log[1].helpContext, HelpContext::none);
        EXPECT_EQ(mine.utility.log[2].helpContext, HelpContext::ruleReadInPart);
        takeLog();
        takeTold();
        editor.click(u"cmdCancel");
    });
}

TEST_F(ToldErrors, ARowThatEndsTheListOfRulesIsToldOnce) {
    struct Unlistable {
        const char16_t *change;
        const char16_t *reason;
    };
    for (const Unlistable &row :
         {Unlistable{u"PRIORITY = 123456789", u"Invalid procedure call or argument"},
          Unlistable{u"ACTIVE = NULL", u"Invalid use of Null"},
          Unlistable{u"Name = NULL", u"Invalid use of Null"}}) {
        run(u"DELETE FROM SMS_RULES");
        addThree();
        const std::u16string id = idOf(u"C");
        run(std::u16string(u"UPDATE SMS_RULES SET ") + row.change + u" WHERE Name = 'C'");
        mine.inRulesWindow([&](User &user) {
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B"}));
            // The list is filled at the start, and again after the cancelled editor.
            expectTold({listFailed, listFailed},
                       std::u16string(row.reason) +
                           u". Only 2 of 3 rules could be read: the list ends before the rule with "
                           u"the ID " +
                           id + u".");
            user.click(u"cmdCancel");
        });
    }
}

TEST_F(ToldErrors, APriorityWithoutValueHidesEveryRuleAndIsToldWithWhatToDo) {
    addThree();
    const std::u16string id = idOf(u"B");
    // Null stands before every number.
    run(u"UPDATE SMS_RULES SET PRIORITY = NULL WHERE Name = 'B'");
    mine.inRulesWindow([&](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), Texts());
        takeLog();
        EXPECT_EQ(takeTold(),
                  Texts{u"Not everything is listed.\r\n\r\n"
                        u"Invalid use of Null. Only 0 of 3 rules could be read: the list ends "
                        u"before the rule with the ID " +
                        id +
                        u". "
                        u"Nothing from there on is listed, and OK stores only what is listed. Open "
                        u"the rules again. If the list still ends there, correct that place in the "
                        u"database: each row needs an ID, and a rule also needs a name, a value in "
                        u"ACTIVE and a priority of at most 8 digits."});
        user.click(u"cmdCancel");
    });
}

TEST_F(ToldErrors, ListsOfAccountsAndUsersThatEndEarlyAreTold) {
    addRuleWith(u"<ACCOUNT><CON><ANY>1</ACCOUNT>", u"<DIST>1</DIST>");
    for (const char16_t *table : {u"SMS_ACCOUNT", u"SMS_USERS"}) {
        const std::u16string name = table;
        run(u"DROP TABLE " + name);
        run(u"CREATE TABLE " + name +
            u" (ID INTEGER, NAME TEXT, BIND_MODE TEXT DEFAULT 'TRANSCEIVER', "
            u"DELETED INTEGER DEFAULT 0)");
        run(u"INSERT INTO " + name + u" (ID, NAME) VALUES (1, 'One'), (NULL, 'Two'), (3, 'Three')");
    }
    openAccounts();
    expectTold({u"Sub: Form_Load(), Module: frmRuleAccount"},
               u"Invalid use of Null. Only 1 of 3 accounts could be read: the list ends before the "
               u"account without an ID.");
    openUsers();
    expectTold({u"Sub: Form_Load, Module: frmRuleDistribute"},
               u"Invalid use of Null. Only 1 of 3 users could be read: the list ends before the "
               u"user without an ID.");
}

TEST_F(ToldErrors, ListsOfChosenAccountsAndUsersThatEndEarlyAreTold) {
    run(u"INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (1, 'Main', 'TRANSCEIVER')");
    run(u"INSERT INTO SMS_USERS (ID, NAME) VALUES (1, 'Asha')");
    addRuleWith(u"<ACCOUNT><CON><ANY>1;x;1</ACCOUNT>", u"<DIST>1;1;99999999999</DIST>");
    const auto withoutDescriptions = [this] {
        std::erase_if(mine.utility.log, [](const LogEntry &entry) {
            return entry.text.find(u"Module: General") != std::u16string::npos;
        });
    };
    openAccounts();
    withoutDescriptions();
    expectTold({u"Sub: Form_Load(), Module: frmRuleAccount"},
               u"Type mismatch. Only 1 of 3 selected accounts could be read: the list ends before "
               u"\"x\".");
    openUsers();
    withoutDescriptions();
    expectTold({u"Sub: Form_Load, Module: frmRuleDistribute"},
               u"Overflow. Only 2 of 3 selected users could be read: the list ends before "
               u"\"99999999999\".");
}

TEST_F(ToldErrors, ASaveThatEndsInItsTrapIsToldEachTime) {
    addThree();
    mine.inEditor(idOf(u"B"), [this](User &user) {
        rename(user, u"Bob's");
        for (int attempt = 1; attempt <= 2; ++attempt) {
            user.click(u"cmdOK");
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(takeLog(), Texts{saveFailed});
            EXPECT_EQ(takeTold(),
                      Texts{u"OK ended with an error.\r\n\r\n"
                            u"The search criterion Name = 'BOB'S' cannot be read: write COLUMN = "
                            u"number, or COLUMN = 'text' with no apostrophe inside the text. The "
                            u"rule \"Bob's\" was not stored. "
                            u"The editor keeps what you entered. Put that right and press OK "
                            u"again; a new name, for example, may have no apostrophe ('). If that "
                            u"does not help, open the rules again and repeat the change."});
        }
        rename(user, u"Bob");
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_NE(idOf(u"Bob"), u"NONE");
}

TEST_F(ToldErrors, ASaveOfARuleThatIsGoneIsTold) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        takeRecordAway(id);
        user.click(u"cmdOK");
        expectTold({saveFailed}, Error(error_number::noCurrentRecord).description() +
                                     u" The rule \"A\" was not stored.");
        user.click(u"cmdCancel");
    });
    // The rules window looks for the rule's new name.
    expectOnlyLogged({u"Sub: cmdModify_Click, Module: frmRules"});
}

TEST_F(ToldErrors, AnOrderThatEndsInItsTrapIsToldWithWhatIsStored) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        takeRecordAway(idOf(u"B"));
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(takeLog(), Texts{orderFailed});
        EXPECT_EQ(takeTold(),
                  Texts{u"OK ended with an error.\r\n\r\n" +
                        Error(error_number::noCurrentRecord).description() +
                        u" The first rule of the list has its new number; the others keep their "
                        u"old one. "
                        u"Open the rules again to see their order, and repeat what is missing."});
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(priorities(), (Texts{u"1", u"NONE", u"30"}));
}

TEST_F(ToldErrors, ARemovalThatEndsInItsTrapIsToldEachTime) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        takeRecordAway(idOf(u"B"));
        for (int attempt = 1; attempt <= 2; ++attempt) {
            confirmRemoval(mine, user, 2);
            EXPECT_EQ(mine.utility.messages.front().style, message_box::yesNo);
            mine.utility.messages.erase(mine.utility.messages.begin());
            expectTold({loadFailed, removalFailed},
                       Error(error_number::noCurrentRecord).description() +
                           u" The rule \"B\" was not removed.");
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        }
        user.click(u"cmdCancel");
    });
}

TEST_F(ToldErrors, WhatNobodyWaitsForIsOnlyLogged) {
    addThree();
    run(u"UPDATE SMS_RULES SET ActionParam = '<REPLY>Hi;x</REPLY>' WHERE Name = 'B'");
    mine.inRulesWindow([this](User &user) {
        // The answer is No.
        user.clickRow(u"lvwRules", 1);
        user.click(u"cmdRemove");
        mine.utility.messages.clear();
        expectOnlyLogged({removalFailed});
        // The last of several rules is removed.
        confirmRemoval(mine, user, 3);
        mine.utility.messages.clear();
        expectOnlyLogged({removalFailed});
        // A part of the rule cannot be described.
        user.clickRow(u"lvwRules", 2);
        expectOnlyLogged({u"Sub: BuildRuleDescription, Module: General"});
        user.click(u"cmdCancel");
    });
    // No rule has the id.
    mine.toolkit.whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
    mine.showRules(u"99");
    expectOnlyLogged({u"Sub: Form_Load, Module: frmRules"});
}

} // namespace kvex::test
