#include "tests/windows/RuleScenarios.h"
#include "ui/rules/frmRules.h"

namespace kvex::test {
namespace {

TEST_P(RulesWindow, RulesOfOnePriorityStayInTheOrderTheyWereReadIn) {
    database.addRule("Z", "<ALLMESSAGES>", "", 1);
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"Z", u"A"}));
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, MoveUpOnTheFirstRowOnlySetsTheChangeFlag) {
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

TEST_P(RulesWindow, MoveDownOnTheLastRowOnlySetsTheChangeFlag) {
    addThree();
    const std::int32_t result = playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
}

TEST_P(RulesWindow, WithoutASelectionMovingOnlySetsTheChangeFlag) {
    addThree();
    playRules([](User &user) {
        list(user).deselect(1);
        for (const char16_t *move : {u"cmdMoveUp", u"cmdMoveDown"}) {
            session().blnChanged = false;
            user.click(move);
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
            EXPECT_EQ(list(user).selectedRow(), 0);
            EXPECT_TRUE(session().blnChanged);
        }
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, MovingDescribesTheSelectedRuleNoFurther) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = 0 WHERE Name = 'B'");
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), disabledForAll);
        EXPECT_EQ(ruleState().strRuleName, u"B");
        EXPECT_EQ(tickedRows(list(user)), (std::vector<int>{2, 3}));
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, AMovedRuleStaysSelectedAndMovesOn) {
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
        EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "B|2", "C|3"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "C|2", "B|3"}));
}

TEST_P(RulesWindow, MoveUpWithKeysThatDoNotAgreeSelectsWhateverStandsThere) {
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
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"C|1", "B|2", "A|3"}));
}

TEST_P(RulesWindow, MoveDownExchangesWithTheRowBelow) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 1);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"B", u"A", u"C"}));
        EXPECT_EQ(column(user, 1), (Texts{u"1", u"2", u"3"}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000001", u"00000002", u"00000003"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, MoveDownReachesTheLastPlace) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C", u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 3);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C", u"B"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "C|2", "B|3"}));
}

TEST_P(RulesWindow, MoveDownWithKeysThatDoNotAgreeSelectsWhateverStandsThere) {
    addThree(10, 10);
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveDown");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"B", u"A"}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000002", u"00000003", u"00000010"}));
        EXPECT_EQ(list(user).selectedRow(), 3);
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, RulesOfOnePriorityKeepTheirOrderWhenTheyAreListedAgain) {
    for (const char *name : {"Z", "M", "A"}) {
        database.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, 1);
    }
    playRules([this](User &user) {
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(conditions, row::forAllMessages);
            editor.tickRow(actions, row::noMoreRules);
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(u"New");
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        // A new rule has the priority 0.
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New", u"Z", u"M", u"A"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"New|1", "Z|2", "M|3", "A|4"}));
}

TEST_P(RulesWindow, CancelWritesNoOrder) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "B|2", "C|3"}));
}

TEST_P(RulesWindow, OkClosesGapsInTheOrderShown) {
    addThree(7, 11);
    playRules([](User &user) { user.press(Key::enter); });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "B|2", "C|3"}));
}

TEST_P(RulesWindow, AnOrderThatTheDatabaseRefusesIsLoggedAndTheWindowStays) {
    addThree(10, 10);
    playRules([this](User &user) {
        database.refuseChanges("B");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        database.permit();
        EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "B|20", "C|30"}));
        user.click(u"cmdOK");
    });
    expectLog({u"Sub: cmdOK_Click, Module: frmRules"});
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "B|2", "C|3"}));
}

TEST_P(RulesWindow, ClosingByTheFrameWritesNothing) {
    addThree(10, 10);
    EXPECT_EQ(playRules([](User &user) { user.closeByFrame(); }), 1);
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|10", "B|20", "C|30"}));
}

TEST_P(RulesWindow, RemembersTheButtonThatClosedItButNotItsFrame) {
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

TEST_P(RulesWindow, ASessionThatBeganEmptyWritesNoOrder) {
    whenShown(u"frmRuleEdit", [](User &editor) {
        editor.tickRow(conditions, row::forAllMessages);
        editor.tickRow(actions, row::noMoreRules);
        editor.click(u"cmdOK");
    });
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #1"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(showRules(u""), 99);
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"New Rule #1|0"}));
}

TEST_P(RulesWindow, APriorityOfNineDigitsIsLoggedByTheList) {
    database.addRule("Far", "<ALLMESSAGES>", "", 123456789);
    playRules([](User &user) {
        EXPECT_EQ(list(user).rowCount(), 0);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
    EXPECT_EQ(logged.at(0).number, error_number::invalidCall);
}

TEST_P(RulesWindow, APriorityWithoutValueIsLoggedByTheList) {
    database.addRule("A");
    database.execute("UPDATE SMS_RULES SET PRIORITY = NULL");
    playRules([](User &user) {
        EXPECT_EQ(list(user).rowCount(), 0);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
    EXPECT_EQ(logged.at(0).number, error_number::invalidUseOfNull);
}

TEST_P(RulesWindow, ARuleThatCannotBeListedLeavesTheOrderOfTheOthersRight) {
    struct Unlistable {
        const char *column;
        std::int32_t number;
    };
    for (const auto &[column, number] :
         {Unlistable{"PRIORITY = 123456789", error_number::invalidCall},
          Unlistable{"ACTIVE = NULL", error_number::invalidUseOfNull}}) {
        database.execute("DELETE FROM SMS_RULES");
        for (const int priority : {1, 2, 3, 4}) {
            database.addRule(std::string(1, static_cast<char>('Z' - priority)), "<ALLMESSAGES>", "",
                             priority);
        }
        database.execute(std::string("UPDATE SMS_RULES SET ") + column + " WHERE PRIORITY = 4");
        playRules([](User &user) {
            user.clickRow(u"lvwRules", 3);
            user.click(u"cmdMoveUp");
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"Y", u"W", u"X"}));
            EXPECT_EQ(list(user).selectedRow(), 2);
            user.click(u"cmdOK");
        });
        expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
        EXPECT_EQ(logged.at(0).number, number);
        EXPECT_EQ(database.rows("SELECT Name, PRIORITY FROM SMS_RULES WHERE Name <> 'V' "
                                "ORDER BY PRIORITY"),
                  (std::vector<std::string>{"Y|1", "W|2", "X|3"}));
        closeSession();
    }
}

TEST_P(RulesWindow, ANegativePriorityIsPaddedAsText) {
    database.addRule("A", "<ALLMESSAGES>", "", -1);
    playRules([](User &user) {
        EXPECT_EQ(list(user).subItem(1, 3), u"000000-1");
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, TenThousandRulesAreListedAndReordered) {
    std::string rows;
    for (int i = 1; i <= 10000; ++i) {
        const std::string number = std::to_string(i);
        rows.append(i > 1 ? "," : "")
            .append("('Rule " + number + "', '<ALLMESSAGES>', '', " + number + ")");
    }
    database.execute("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) VALUES " +
                     rows);
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

} // namespace
} // namespace kvex::test
