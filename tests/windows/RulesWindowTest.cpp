#include "tests/support/ComponentTest.h"
#include "ui/rules/frmRules.h"

namespace kvex::test {
namespace {

constexpr auto storedOrder = "SELECT Name || ' ' || PRIORITY FROM SMS_RULES ORDER BY PRIORITY, ID";
const std::u16string always = u"Apply this Rule after the message arrives\r\nFor ALL Messages";
const std::u16string disabled = u"This Rule is disabled\r\nFor ALL Messages";
const Message removeQuestion{u"Are you sure you want to remove this rule?", 4};

class RulesWindow : public ComponentTest {
protected:
    void addThree(int first = 1, int step = 1) {
        for (const char *name : {"A", "B", "C"}) {
            database.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, first);
            first += step;
        }
    }
    static ListView &list(User &user) { return user.get<ListView>(u"lvwRules"); }
    static std::u16string description(User &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }
    static Texts column(User &user, int subItem) {
        Texts texts;
        for (int row = 1; row <= list(user).rowCount(); ++row) {
            texts.push_back(list(user).subItem(row, subItem));
        }
        return texts;
    }
};

TEST_F(RulesWindow, ShowsItsTitleCaptionsAndTabOrder) {
    addThree();
    playRules([](User &user) {
        EXPECT_EQ(user.window().caption(), u"SMS Rules");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(),
                  u"These rules will be applied to incoming short messages");
        EXPECT_EQ(user.get<Label>(u"Label2").caption(), u"Rule description");
        EXPECT_FALSE(user.get<CommandButton>(u"cmdCopy").visible());
        EXPECT_FALSE(user.get<CommandButton>(u"cmdApply").visible());
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwRules", u"cmdNew", u"cmdModify", u"cmdRemove", u"cmdMoveUp",
                         u"cmdMoveDown", u"rtRuleDesc", u"cmdOK", u"cmdCancel"}));
        EXPECT_EQ(user.focused(), u"lvwRules");
        user.press(Key::escape);
    });
}

TEST_F(RulesWindow, ListsRulesInPriorityOrderWithTheirHiddenColumns) {
    database.addRule("Last", "<ALLMESSAGES>", "", 30);
    database.addRule("First", "<ALLMESSAGES>", "", 5, 0);
    database.addRule("Gone", "<ALLMESSAGES>", "", 1);
    database.execute("UPDATE SMS_RULES SET DELETED = 1 WHERE Name = 'Gone'");
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"First", u"Last"}));
        EXPECT_EQ(column(user, 1), (Texts{u"1", u"2"}));
        EXPECT_EQ(column(user, 2), (Texts{u"2", u"1"}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000005", u"00000030"}));
        EXPECT_EQ(list(user).key(1), u"RU2");
        EXPECT_FALSE(list(user).checked(1));
        EXPECT_TRUE(list(user).checked(2));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), disabled);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, RulesOfOnePriorityStayInTheOrderTheyWereReadIn) {
    database.addRule("Z", "<ALLMESSAGES>", "", 1);
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"Z", u"A"}));
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, WithoutRulesItIsEmptyAndTheButtonsDoNothing) {
    const std::int32_t result = playRules([](User &user) {
        EXPECT_EQ(list(user).columnCount(), 4);
        EXPECT_EQ(list(user).rowCount(), 0);
        EXPECT_EQ(list(user).selectedRow(), 0);
        EXPECT_EQ(description(user), u"");
        user.click(u"cmdModify");
        user.click(u"cmdRemove");
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdMoveUp");
        EXPECT_TRUE(session().blnChanged);
        session().blnChanged = false;
        user.click(u"cmdMoveDown");
        EXPECT_TRUE(session().blnChanged);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(result, 99);
    EXPECT_TRUE(utility.messages.empty());
    expectLog({});
}

TEST_F(RulesWindow, AClickedRowIsDescribedByItsCheckBox) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = 0 WHERE Name = 'B'");
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        EXPECT_EQ(description(user), disabled);
        EXPECT_EQ(ruleState().strRuleName, u"B");
        EXPECT_EQ(ruleState().intRuleActive, 0);
        user.clickRow(u"lvwRules", 3);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, OpensTheEditorOnTheRuleItWasGiven) {
    addThree();
    whenShown(u"frmRuleEdit", [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Modify Rule");
        EXPECT_EQ(user.get<TextBox>(u"txtRuleName").text(), u"B");
        user.press(Key::escape);
    });
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(showRules(u"2"), 1);
}

TEST_F(RulesWindow, ARuleThatDoesNotExistIsLoggedAndTheWindowStays) {
    addThree();
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(list(user).rowCount(), 3);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(showRules(u"99"), 1);
    expectLog({u"Sub: Form_Load, Module: frmRules"});
    EXPECT_EQ(utility.log.at(0).number, error_number::elementNotFound);
}

TEST_F(RulesWindow, TickingStoresAtOnceAndCancelKeepsIt) {
    addThree();
    const std::int32_t result = playRules([this](User &user) {
        user.tickRow(u"lvwRules", 2);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), disabled);
        user.tickRow(u"lvwRules", 3);
        user.tickRow(u"lvwRules", 3);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'C'"), "1");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
    EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
}

TEST_F(RulesWindow, SpaceTicksTheSelectedRule) {
    addThree();
    playRules([this](User &user) {
        user.press(Key::down);
        user.press(Key::space);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        user.press(Key::escape);
    });
}

TEST_F(RulesWindow, ATickThatTheDatabaseRefusesLeavesTheWindowUsable) {
    addThree();
    playRules([this](User &user) {
        database.execute("CREATE TRIGGER refuse BEFORE UPDATE ON SMS_RULES BEGIN "
                         "SELECT RAISE(ABORT, 'refused'); END");
        user.tickRow(u"lvwRules", 2);
        database.execute("DROP TRIGGER refuse");
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "1");
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
    expectedUnhandledErrors = 1;
    expectLog({});
}

TEST_F(RulesWindow, NewAndCancelInTheEditorLeaveTheListUntouched) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        whenShown(u"frmRuleEdit", [](User &editor) { editor.click(u"cmdCancel"); });
        user.click(u"cmdNew");
        EXPECT_EQ(list(user).selectedRow(), 3);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, NewAndASaveListAllRulesAgainAndSelectTheFirst) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleConditions", 6);
            editor.tickRow(u"lvwRuleActions", 4);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #4", u"A", u"B", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), always + u"\r\nThen Delete it\r\nand do not process any more "
                                              u"Rules");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.rows(storedOrder),
              (std::vector<std::string>{"New Rule #4 1", "A 2", "B 3", "C 4"}));
}

TEST_F(RulesWindow, ModifyShowsTheNewNameAndLeavesPlaceAndTickAlone) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(u"Renamed");
            editor.tickRow(u"lvwRuleActions", 5);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdModify");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"Renamed", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), always + u"\r\nThen do not process any more Rules");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES WHERE ID = 2"), "Renamed");
}

TEST_F(RulesWindow, AfterACancelledModifyTheUnsavedRuleIsDescribedUntilTheNextClick) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleActions", 4);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdModify");
        EXPECT_NE(description(user), always);
        user.clickRow(u"lvwRules", 2);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, RemoveAnsweredYesDeletesTheRowItself) {
    addThree();
    const std::int32_t result = playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C"}));
        EXPECT_EQ(user.focused(), u"lvwRules");
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(ruleState().strRuleName, u"C");
        EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "2");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(utility.messages, std::vector{removeQuestion});
    expectLog({});
}

TEST_F(RulesWindow, RemoveAnsweredNoEndsWithALoggedErrorAndNoVisibleChange) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 3);
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), always);
        EXPECT_EQ(ruleState().strRuleName, u"B");
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_EQ(utility.log.at(0).number, error_number::indexOutOfBounds);
}

TEST_F(RulesWindow, RemovingTheLastOfSeveralRulesIsLoggedAndSelectsNone) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 0);
        EXPECT_EQ(description(user), always);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
}

TEST_F(RulesWindow, RemovingTheOnlyRuleClearsTheDescription) {
    database.addRule("A");
    playRules([this](User &user) {
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 0);
        EXPECT_EQ(description(user), u"");
        // The window stays whole: a first rule can be saved again.
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleConditions", 6);
            editor.tickRow(u"lvwRuleActions", 5);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #1"}));
        user.click(u"cmdOK");
    });
    expectLog({});
    EXPECT_EQ(database.rows("SELECT ID, Name FROM SMS_RULES"),
              (std::vector<std::string>{"2|New Rule #1"}));
}

TEST_F(RulesWindow, RemovingARuleThatAnotherRemovedIsLoggedAndItsRowStays) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        database.execute("DELETE FROM SMS_RULES WHERE Name = 'B'");
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 3);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_LT(utility.log.at(0).number, 0);
}

TEST_F(RulesWindow, MoveUpOnTheFirstRowOnlySetsTheChangeFlag) {
    addThree();
    const std::int32_t result = playRules([](User &user) {
        user.clickRow(u"lvwRules", 1);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000001", u"00000002", u"00000003"}));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
}

TEST_F(RulesWindow, MoveDownOnTheLastRowOnlySetsTheChangeFlag) {
    addThree();
    const std::int32_t result = playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
}

TEST_F(RulesWindow, AMovedRuleStaysSelectedAndMovesOn) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C", u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"A", u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C", u"B"}));
        EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "B 2", "C 3"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "C 2", "B 3"}));
}

TEST_F(RulesWindow, MoveUpWithKeysThatDoNotAgreeSelectsWhateverStandsThere) {
    addThree(10, 10);
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"B", u"A"}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000002", u"00000003", u"00000010"}));
        EXPECT_EQ(column(user, 1), (Texts{u"2", u"3", u"1"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"C 1", "B 2", "A 3"}));
}

TEST_F(RulesWindow, MoveDownExchangesWithTheRowBelow) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 1);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"B", u"A", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, CancelWritesNoOrder) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "B 2", "C 3"}));
}

TEST_F(RulesWindow, OkClosesGapsInTheOrderShown) {
    addThree(7, 11);
    playRules([](User &user) { user.press(Key::enter); });
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "B 2", "C 3"}));
}

TEST_F(RulesWindow, AnOrderThatTheDatabaseRefusesIsLoggedAndTheWindowStays) {
    addThree(10, 10);
    playRules([this](User &user) {
        database.execute("CREATE TRIGGER refuse BEFORE UPDATE ON SMS_RULES WHEN OLD.Name = 'B' "
                         "BEGIN SELECT RAISE(ABORT, 'refused'); END");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        database.execute("DROP TRIGGER refuse");
        EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "B 20", "C 30"}));
        user.click(u"cmdOK");
    });
    expectLog({u"Sub: cmdOK_Click, Module: frmRules"});
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 1", "B 2", "C 3"}));
}

TEST_F(RulesWindow, ClosingByTheFrameWritesNothing) {
    addThree(10, 10);
    EXPECT_EQ(playRules([](User &user) { user.closeByFrame(); }), 1);
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"A 10", "B 20", "C 30"}));
}

TEST_F(RulesWindow, RemembersTheButtonThatClosedItButNotItsFrame) {
    openSession();
    const auto closedBy = [this](const Script &script) {
        whenShown(u"frmRuleEdit", [](User &editor) { editor.press(Key::escape); });
        whenShown(u"frmRules", script);
        frmRules window;
        window.LastButtonPressed = u"before";
        window.Show();
        return window.LastButtonPressed;
    };
    EXPECT_EQ(closedBy([](User &user) { user.click(u"cmdOK"); }), u"OK");
    EXPECT_EQ(closedBy([](User &user) { user.press(Key::escape); }), u"CANCEL");
    EXPECT_EQ(closedBy([](User &user) { user.closeByFrame(); }), u"before");
}

TEST_F(RulesWindow, ASessionThatBeganEmptyWritesNoOrder) {
    whenShown(u"frmRuleEdit", [](User &editor) {
        editor.tickRow(u"lvwRuleConditions", 6);
        editor.tickRow(u"lvwRuleActions", 5);
        editor.click(u"cmdOK");
    });
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #1"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(showRules(u""), 99);
    EXPECT_EQ(database.rows(storedOrder), (std::vector<std::string>{"New Rule #1 0"}));
}

TEST_F(RulesWindow, ARowThatCannotBeReadEndsTheListWithoutAHalfRow) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = NULL WHERE Name = 'B'");
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A"}));
        user.click(u"cmdCancel");
    });
    // The list is filled at the start, and again since it differs from the record set after the
    // cancelled editor.
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
}

TEST_F(RulesWindow, APriorityOfNineDigitsIsLoggedByTheList) {
    database.addRule("Far", "<ALLMESSAGES>", "", 123456789);
    playRules([](User &user) {
        EXPECT_EQ(list(user).rowCount(), 0);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
    EXPECT_EQ(utility.log.at(0).number, error_number::invalidCall);
}

TEST_F(RulesWindow, APriorityWithoutValueIsLoggedByTheList) {
    database.addRule("A");
    database.execute("UPDATE SMS_RULES SET PRIORITY = NULL");
    playRules([](User &user) {
        EXPECT_EQ(list(user).rowCount(), 0);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(utility.log.at(0).text,
              u"KVEXMessageRules: Error occured. Sub: ListRules, Module: frmRules");
    EXPECT_EQ(utility.log.at(0).number, error_number::invalidUseOfNull);
}

TEST_F(RulesWindow, ANegativePriorityIsPaddedAsText) {
    database.addRule("A", "<ALLMESSAGES>", "", -1);
    playRules([](User &user) {
        EXPECT_EQ(list(user).subItem(1, 3), u"000000-1");
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, TenThousandRulesAreListedAndReordered) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "10000) INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) "
                     "SELECT 'Rule ' || i, '<ALLMESSAGES>', '', i FROM n");
    playRules([](User &user) {
        EXPECT_EQ(list(user).rowCount(), 10000);
        user.clickRow(u"lvwRules", 10000);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(list(user).text(9999), u"Rule 10000");
        EXPECT_EQ(list(user).selectedRow(), 9999);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES WHERE PRIORITY = 9999"), "Rule 10000");
    EXPECT_EQ(database.value("SELECT COUNT(DISTINCT PRIORITY) FROM SMS_RULES"), "10000");
}

TEST_F(RulesWindow, NamesOfEveryKindAreShownAsStored) {
    database.addRule("O'Brien's", "<ALLMESSAGES>", "", 1);
    database.addRule("  blanks  ", "<ALLMESSAGES>", "", 2);
    database.addRule("नियम", "<ALLMESSAGES>", "", 3);
    database.addRule("\xF0\x9F\x93\xB1 & <b>", "<ALLMESSAGES>", "", 4);
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"),
                  (Texts{u"O'Brien's", u"  blanks  ", u"नियम", u"\U0001F4F1 & <b>"}));
        user.click(u"cmdCancel");
    });
}

} // namespace
} // namespace kvex::test
