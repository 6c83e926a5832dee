#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"
#include "ui/rules/frmRuleEdit.h"

namespace kvex::test {
namespace {

class RuleEditor : public ComponentTest {
protected:
    static std::vector<int> ticked(User &user, const char16_t *name) {
        return tickedRows(user.get<ListView>(name));
    }
    static std::vector<int> greyed(User &user, const char16_t *name) {
        std::vector<int> rows;
        auto &list = user.get<ListView>(name);
        for (int row = 1; row <= list.rowCount(); ++row) {
            if (list.rowColour(row) == RowColour::greyText) {
                rows.push_back(row);
            }
        }
        return rows;
    }
    static bool enabled(User &user, const char16_t *button) {
        return user.get<CommandButton>(button).enabled();
    }
    static std::u16string description(User &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }
    static std::u16string name(User &user) { return user.get<TextBox>(u"txtRuleName").text(); }
};

using Rows = std::vector<int>;

constexpr auto fullQuery = "<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><CON><ANY>98;99</PEOPLE>"
                           "<ACCOUNT><CON><ANY>2</ACCOUNT><WORD><CON><ANY>STOP</WORD>"
                           "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>";
constexpr auto fullAction =
    "<DIST>3</DIST><REPLY>Hi;2</REPLY><ALERT>Look;2;97</ALERT><DELETE>NO</DELETE>"
    "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";

TEST_F(RuleEditor, ShowsItsCaptionsRowsAndTabOrder) {
    playNewRule([](User &user) {
        EXPECT_EQ(user.window().caption(), u"New Rule");
        EXPECT_EQ(user.rows(conditions),
                  (Texts{u"Ignore this Rule for Service messages",
                         u"Where the message is From specified people",
                         u"Where the message is received through specified Accounts",
                         u"Where the message content contains specified Words",
                         u"Where the message is received within specified Date/Time",
                         u"For All Messages"}));
        EXPECT_EQ(user.rows(actions),
                  (Texts{u"Distribute to specific users", u"Send an Automatic Reply",
                         u"Send an Alert to specified people", u"Delete it",
                         u"Do not process any more Rules"}));
        EXPECT_EQ(user.get<Label>(u"Label5").caption(),
                  u"Select your Conditions and Actions first, then specify their values in "
                  u"Description");
        EXPECT_FALSE(user.get<CommandButton>(u"cmdShow").visible());
        EXPECT_EQ(user.tabOrder(), (Texts{conditions, actions, u"rtRuleDesc", u"txtRuleName",
                                          u"cmdOK", u"cmdCancel"}));
        EXPECT_EQ(user.focused(), conditions);
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, AccessKeysReachEveryNumberedPart) {
    playNewRule([](User &user) {
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.focused(), actions);
        user.pressAccessKey(u'D');
        EXPECT_EQ(user.focused(), u"rtRuleDesc");
        user.pressAccessKey(u'N');
        EXPECT_EQ(user.focused(), u"txtRuleName");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, ANewRuleOnAnEmptyTableIsTheFirst) {
    playNewRule([](User &user) {
        EXPECT_EQ(name(user), u"New Rule #1");
        EXPECT_EQ(description(user), u"Apply this Rule after the message arrives");
        EXPECT_EQ(ticked(user, conditions), Rows());
        EXPECT_EQ(ticked(user, actions), Rows());
        EXPECT_FALSE(session().blnChanged);
        EXPECT_EQ(session().strSQL, u"SELECT MAX(ID) MAXID FROM SMS_RULES");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, ButtonsAreDisabledWhenTheirRowIsNoLongerSelected) {
    struct List {
        const char16_t *list, *button;
    };
    playRule(database.addRule("Full", fullQuery, fullAction), [](User &user) {
        for (const auto &[list, button] :
             {List{conditions, u"cmdEditCondition"}, List{actions, u"cmdConfigureAction"}}) {
            user.clickRow(list, 2);
            EXPECT_TRUE(enabled(user, button));
            user.clickBesideRows(list);
            EXPECT_EQ(user.get<ListView>(list).selectedRow(), 0);
            EXPECT_FALSE(enabled(user, button));
        }
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, ANewRuleIsNamedByTheHighestIdWhateverWasDeleted) {
    database.execute("INSERT INTO SMS_RULES (ID, Name, QueryParam, ActionParam, DELETED) VALUES "
                     "(41, 'gone', '', '', 1)");
    playNewRule([](User &user) {
        EXPECT_EQ(name(user), u"New Rule #42");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, ANewRuleIsNumberedAfterAnIdBeyondThirtyTwoBits) {
    database.execute("INSERT INTO SMS_RULES (ID, Name) VALUES (3000000000, 'Far')");
    playNewRule([](User &user) {
        EXPECT_EQ(name(user), u"New Rule #3000000001");
        EXPECT_EQ(user.rows(conditions).size(), 6U);
        EXPECT_EQ(user.rows(actions).size(), 5U);
        user.press(Key::escape);
    });
    expectLog({});
}

TEST_F(RuleEditor, AfterTheHighestPossibleIdLoadingANewRuleOverflows) {
    database.execute("INSERT INTO SMS_RULES (ID, Name) VALUES (9223372036854775807, 'Last')");
    playNewRule([](User &user) { user.press(Key::escape); });
    expectLog({u"Sub: Form_Load, Module: frmRuleEdit"});
    EXPECT_EQ(logged.at(0).number, error_number::overflow);
}

TEST_F(RuleEditor, AStoredRuleIsShownOnItsRows) {
    database.addUser(3, "Asha");
    database.addAccount(2, "Main");
    const auto id = database.addRule("Full", fullQuery, fullAction);
    playRule(id, [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Modify Rule");
        EXPECT_EQ(name(user), u"Full");
        EXPECT_EQ(ticked(user, conditions),
                  (Rows{row::ignoreForService, row::fromPeople, row::throughAccounts,
                        row::containsWords, row::withinDates}));
        EXPECT_EQ(ticked(user, actions),
                  (Rows{row::distribute, row::reply, row::alert, row::noMoreRules}));
        EXPECT_EQ(greyed(user, conditions), Rows());
        EXPECT_EQ(greyed(user, actions), Rows());
        EXPECT_EQ(user.get<ListView>(conditions).selectedRow(), 1);
        EXPECT_EQ(user.get<ListView>(actions).selectedRow(), 1);
        EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
        EXPECT_TRUE(enabled(user, u"cmdConfigureAction"));
        EXPECT_FALSE(session().blnChanged);
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, ARuleForAllMessagesLocksTheOtherConditions) {
    const auto id = database.addRule("All", "<ALLMESSAGES>", "<DELETE>NO</DELETE>");
    playRule(id, [](User &user) {
        EXPECT_EQ(ticked(user, conditions), Rows{row::forAllMessages});
        EXPECT_EQ(greyed(user, conditions),
                  (Rows{row::ignoreForService, row::fromPeople, row::throughAccounts,
                        row::containsWords, row::withinDates}));
        EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
        EXPECT_FALSE(enabled(user, u"cmdConfigureAction"));
        EXPECT_FALSE(session().blnChanged);
        user.tickRow(conditions, row::fromPeople);
        EXPECT_EQ(ticked(user, conditions), Rows{row::forAllMessages});
        EXPECT_EQ(ruleState().strPeople, u"");
        EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, TickingForAllMessagesUnticksTheOthersAndKeepsTheirValues) {
    const auto id = database.addRule("Full", fullQuery, fullAction);
    playRule(id, [](User &user) {
        user.tickRow(conditions, row::forAllMessages);
        EXPECT_EQ(ticked(user, conditions), Rows{row::forAllMessages});
        EXPECT_TRUE(ruleState().blnAllMessages);
        EXPECT_EQ(ruleState().strPeople, u"98;99");
        EXPECT_EQ(ruleState().strWords, u"STOP");
        user.tickRow(conditions, row::forAllMessages);
        EXPECT_FALSE(ruleState().blnAllMessages);
        EXPECT_EQ(greyed(user, conditions), Rows());
        EXPECT_EQ(ticked(user, conditions), Rows());
        EXPECT_EQ(ruleState().strPeople, u"98;99");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, UntickingAConditionClearsItsValue) {
    const auto id = database.addRule("Full", fullQuery, fullAction);
    playRule(id, [](User &user) {
        for (int row = 1; row < row::forAllMessages; ++row) {
            user.tickRow(conditions, row);
            EXPECT_EQ(user.get<ListView>(conditions).selectedRow(), row);
        }
        const RuleState &rule = ruleState();
        EXPECT_EQ(rule.strIgnoreIfService, u"NO");
        EXPECT_EQ(rule.strPeople + rule.varAccounts + rule.strWords + rule.strDateTime, u"");
        user.tickRow(conditions, row::ignoreForService);
        EXPECT_EQ(rule.strIgnoreIfService, u"YES");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, UntickingAnActionClearsAllOfItsValues) {
    const auto id = database.addRule("Full", fullQuery, fullAction);
    playRule(id, [](User &user) {
        const RuleState &rule = ruleState();
        user.tickRow(actions, row::distribute);
        EXPECT_EQ(rule.strDistribution, u"");
        user.tickRow(actions, row::reply);
        EXPECT_EQ(rule.strReplyText + rule.strReplyAccount, u"");
        user.tickRow(actions, row::alert);
        EXPECT_EQ(rule.strAlertText + rule.strAlertAccount + rule.strAlertRecipients, u"");
        user.tickRow(actions, row::alert);
        EXPECT_EQ(rule.strAlertText + rule.strAlertAccount + rule.strAlertRecipients, u"");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, DeleteItHoldsTheLastAction) {
    playNewRule([](User &user) {
        user.tickRow(actions, row::deleteIt);
        EXPECT_EQ(ticked(user, actions), (Rows{row::deleteIt, row::noMoreRules}));
        EXPECT_EQ(greyed(user, actions), Rows{row::noMoreRules});
        EXPECT_EQ(ruleState().varDelete, u"YES");
        EXPECT_EQ(ruleState().strIgnoreFurtherRules, u"YES");
        user.tickRow(actions, row::noMoreRules);
        EXPECT_EQ(ticked(user, actions), (Rows{row::deleteIt, row::noMoreRules}));
        EXPECT_EQ(ruleState().strIgnoreFurtherRules, u"YES");
        user.tickRow(actions, row::deleteIt);
        EXPECT_EQ(ticked(user, actions), Rows{row::noMoreRules});
        EXPECT_EQ(greyed(user, actions), Rows());
        EXPECT_EQ(ruleState().varDelete, u"NO");
        EXPECT_EQ(ruleState().strIgnoreFurtherRules, u"YES");
        user.tickRow(actions, row::noMoreRules);
        EXPECT_EQ(ruleState().strIgnoreFurtherRules, u"NO");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, AStoredDeleteItIsGreyFromTheStart) {
    const auto id = database.addRule(
        "D", "<ALLMESSAGES>", "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    playRule(id, [](User &user) {
        EXPECT_EQ(ticked(user, actions), (Rows{row::deleteIt, row::noMoreRules}));
        EXPECT_EQ(greyed(user, actions), Rows{row::noMoreRules});
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, TheConditionButtonServesTickedConditionsWithValuesOnly) {
    playNewRule([](User &user) {
        for (int row = 1; row < row::forAllMessages; ++row) {
            user.clickRow(conditions, row);
            EXPECT_FALSE(enabled(user, u"cmdEditCondition")) << row;
            user.tickRow(conditions, row);
            EXPECT_EQ(enabled(user, u"cmdEditCondition"), row >= row::fromPeople) << row;
            user.clickRow(conditions, row);
            EXPECT_EQ(enabled(user, u"cmdEditCondition"), row >= row::fromPeople) << row;
            user.tickRow(conditions, row);
            EXPECT_FALSE(enabled(user, u"cmdEditCondition")) << row;
        }
        user.tickRow(conditions, row::forAllMessages);
        EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
        user.clickRow(conditions, row::forAllMessages);
        EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, TheActionButtonServesTickedActionsWithValuesOnly) {
    playNewRule([](User &user) {
        for (int row = 1; row <= row::noMoreRules; ++row) {
            user.clickRow(actions, row);
            EXPECT_FALSE(enabled(user, u"cmdConfigureAction")) << row;
            user.tickRow(actions, row);
            EXPECT_EQ(enabled(user, u"cmdConfigureAction"), row <= row::alert) << row;
            user.clickRow(actions, row);
            EXPECT_EQ(enabled(user, u"cmdConfigureAction"), row <= row::alert) << row;
            user.tickRow(actions, row);
            EXPECT_FALSE(enabled(user, u"cmdConfigureAction")) << row;
        }
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, TheDescriptionFollowsEveryTick) {
    playNewRule([](User &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(actions, row::noMoreRules);
        EXPECT_EQ(description(user), u"Apply this Rule after the message arrives\r\nFor ALL "
                                     u"Messages\r\nThen do not process any more Rules");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, AKeystrokeInTheNameSetsTheChangeFlagAndNotTheRule) {
    playNewRule([](User &user) {
        user.focusOn(u"txtRuleName");
        user.type(u"x");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(ruleState().strRuleName, u"New Rule #1");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, TheNameTakesFiftyCharactersAndShowsALongerStoredOneWhole) {
    const auto id = database.addRule(std::string(60, 'n'));
    playRule(id, [](User &user) {
        EXPECT_EQ(name(user).size(), 60U);
        user.focusOn(u"txtRuleName");
        user.press(Key::selectAll);
        user.type(std::u16string(60, u'm'));
        EXPECT_EQ(name(user), std::u16string(50, u'm'));
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, CancelAfterEditsWritesNothingAndLeavesTheFlagSet) {
    const auto id = database.addRule("Full", fullQuery, fullAction);
    const std::int32_t result = playRule(id, [](User &user) {
        user.tickRow(conditions, row::fromPeople);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
    EXPECT_EQ(database.value("SELECT QueryParam FROM SMS_RULES"), fullQuery);
}

TEST_F(RuleEditor, LoadingDiscardsAFlagThatTheRulesWindowSet) {
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    database.addRule("B", "<ALLMESSAGES>", "", 2);
    const std::int32_t result = playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveUp");
        EXPECT_TRUE(session().blnChanged);
        whenShown(u"frmRuleEdit", [](User &editor) { editor.press(Key::escape); });
        user.click(u"cmdModify");
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(database.rows("SELECT Name FROM SMS_RULES ORDER BY PRIORITY"),
              (std::vector<std::string>{"B", "A"}));
}

TEST_F(RuleEditor, TheStringValuesAreShownOnRequest) {
    const auto id = database.addRule("Full", fullQuery, fullAction);
    playRule(id, [](User &user) {
        user.get<CommandButton>(u"cmdShow").onClick();
        user.tickRow(conditions, row::forAllMessages);
        user.get<CommandButton>(u"cmdShow").onClick();
        user.press(Key::escape);
    });
    expectMessages({{u"IGNOREServiceMessages : YES\rPEOPLEList : 98;99\rACCOUNTList : 2\r"
                     u"WORDList : STOP\rDATETIMEList : 20240301 09:00:00,20240331 18:30:00\r"
                     u"DISTRIBUTIONList : 3\rREPLYText : Hi\rALERTText : Look\rALERTList : 97\r"
                     u"DELETEMessage : NO\rIGNOREFurtherRules : YES",
                     48},
                    {u"<ALL>", 48}});
}

TEST_F(RuleEditor, AnIdOfBlanksIsANewRule) {
    openSession();
    whenShown(u"frmRuleEdit", [](User &user) {
        EXPECT_EQ(user.window().caption(), u"New Rule");
        EXPECT_EQ(name(user), u"New Rule #1");
        user.press(Key::escape);
    });
    frmRuleEdit editor;
    editor.RuleID = u"  ";
    editor.Show();
}

/// The user cannot press these buttons on a row without a dialog, or without a row.
TEST_F(RuleEditor, TheDialogButtonsOfOtherRowsOnlyDescribeTheRule) {
    playNewRule([](User &user) {
        const auto press = [&](const char16_t *list, int row, const char16_t *button) {
            if (row == 0) {
                user.get<ListView>(list).deselect(user.get<ListView>(list).selectedRow());
            } else {
                user.get<ListView>(list).select(row);
            }
            ruleState().blnAllMessages = true;
            user.get<CommandButton>(button).onClick();
            EXPECT_EQ(description(user),
                      u"Apply this Rule after the message arrives\r\nFor ALL Messages");
            ruleState().blnAllMessages = false;
            user.get<CommandButton>(button).onClick();
            EXPECT_EQ(description(user), u"Apply this Rule after the message arrives");
        };
        for (const int row : {1, 6, 0}) {
            press(conditions, row, u"cmdEditCondition");
        }
        for (const int row : {4, 5, 0}) {
            press(actions, row, u"cmdConfigureAction");
        }
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, UntickingAStoredDeleteItLeavesTheLastActionUnticked) {
    const auto id = database.addRule("A", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [](User &user) {
        user.tickRow(actions, row::deleteIt);
        EXPECT_EQ(ticked(user, actions), Rows());
        EXPECT_EQ(greyed(user, actions), Rows());
        EXPECT_EQ(ruleState().varDelete, u"NO");
        user.press(Key::escape);
    });
}

TEST_F(RuleEditor, BeginsOnTheFirstRowsWhateverIsTicked) {
    for (const char *query : {fullQuery, "<ALLMESSAGES>"}) {
        closeSession();
        playRule(database.addRule(query, query, "<DIST>3</DIST>"), [](User &user) {
            for (const auto *list : {conditions, actions}) {
                EXPECT_EQ(user.get<ListView>(list).selectedRow(), 1);
            }
            EXPECT_FALSE(enabled(user, u"cmdEditCondition"));
            EXPECT_TRUE(enabled(user, u"cmdConfigureAction"));
            user.press(Key::escape);
        });
    }
}

TEST_F(RuleEditor, AFailureWhileLoadingIsLoggedAndTheWindowStaysOpenAsFarAsItWasFilled) {
    database.addRule("A");
    playRules([this](User &user) {
        database.execute("ALTER TABLE SMS_RULES RENAME TO AWAY");
        whenShown(u"frmRuleEdit", [](User &editor) {
            EXPECT_EQ(editor.get<ListView>(conditions).rowCount(), 0);
            editor.press(Key::escape);
        });
        user.click(u"cmdNew");
        database.execute("ALTER TABLE AWAY RENAME TO SMS_RULES");
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleEdit"});
    EXPECT_LT(logged.at(0).number, 0);
}

} // namespace
} // namespace kvex::test
