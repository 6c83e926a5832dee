#include "platform/Text.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

const std::u16string saveFailed = u"Sub: cmdOK_Click, Module: frmRuleEdit";

TEST_P(RuleSaving, TheChecksRunInTheirOrder) {
    playNewRule([this](User &user) {
        name(user, u"");
        expectRefused(user, u"Please select some conditions for this Rule.");
        user.tickRow(conditions, row::fromPeople);
        expectRefused(user, u"Please select some actions for this Rule.");
        for (const int condition : {row::throughAccounts, row::containsWords, row::withinDates}) {
            user.tickRow(conditions, condition);
        }
        for (const int action : {row::distribute, row::reply, row::alert}) {
            user.tickRow(actions, action);
        }
        expectRefused(user, u"Type a name for this Rule.", u"txtRuleName");
        user.type(u"Rule");
        RuleState &rule = ruleState();
        expectRefused(user, u"Insufficient information. Please select the People for this rule.");
        rule.strPeople = u" ";
        expectRefused(user, u"Insufficient information. Please select the Accounts for this rule.");
        rule.varAccounts = u"2";
        expectRefused(user, u"Insufficient information. Please select the Words for this rule.");
        rule.strWords = u"STOP";
        expectRefused(user,
                      u"Insufficient information. Please select the Date/Time for this rule.");
        rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
        expectRefused(user, u"Insufficient information. Please configure the Distribution List "
                            u"for this rule.");
        rule.strDistribution = u"3";
        expectRefused(user,
                      u"Insufficient information. Please configure the Reply text for this rule.");
        rule.strReplyText = u"Hi";
        rule.strReplyAccount = u"2";
        expectRefused(user,
                      u"Insufficient information. Please configure the Alerts for this rule.");
        rule.strAlertText = u"Look";
        rule.strAlertAccount = u"2";
        expectRefused(user,
                      u"Insufficient information. Please configure the Alerts for this rule.");
        rule.strAlertText = u"";
        rule.strAlertRecipients = u"97";
        expectRefused(user,
                      u"Insufficient information. Please configure the Alerts for this rule.");
        rule.strAlertText = u"Look";
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    // Blanks alone count as people, but are not stored.
    EXPECT_EQ(rules(),
              (std::vector<std::string>{
                  "Rule|<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><ACCOUNT><CON><ANY>2</ACCOUNT>"
                  "<WORD><CON><ANY>STOP</WORD>"
                  "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>|"
                  "<DIST>3</DIST><REPLY>Hi;2</REPLY><ALERT>Look;2;97</ALERT><DELETE>NO</DELETE>"
                  "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>"}));
}

TEST_P(RuleSaving, AMissingActionIsReportedBeforeAMissingName) {
    playNewRule([this](User &user) {
        name(user, u"");
        user.tickRow(conditions, row::forAllMessages);
        expectRefused(user, u"Please select some actions for this Rule.");
        user.press(Key::escape);
    });
}

TEST_P(RuleSaving, ANameOfBlanksIsNoName) {
    playNewRule([this](User &user) {
        completeRule(user);
        name(user, u"   ");
        expectRefused(user, u"Type a name for this Rule.", u"txtRuleName");
        user.press(Key::escape);
    });
    EXPECT_EQ(rules(), std::vector<std::string>());
}

TEST_P(RuleSaving, ANameIsSavedTrimmed) {
    playNewRule([](User &user) {
        completeRule(user);
        name(user, u"  Boss sms ");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES"), "Boss sms");
}

TEST_P(RuleSaving, ForAllMessagesAndDeleteItAreWrittenToTheCharacter) {
    playNewRule([](User &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(actions, row::deleteIt);
        user.press(Key::enter);
    });
    EXPECT_EQ(rules(), (std::vector<std::string>{"New Rule #1|<ALLMESSAGES>|<DELETE>YES</DELETE>"
                                                 "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"}));
}

TEST_P(RuleSaving, TheDatabaseGivesANewRuleItsIdAndDefaults) {
    playNewRule([this](User &user) {
        completeRule(user);
        user.click(u"cmdOK");
        EXPECT_EQ(std::to_string(session().rsRules->field(u"ID").int32()), idOf("New Rule #1"));
        EXPECT_EQ(session().rsRules->field(u"PRIORITY").int32(), 0);
        EXPECT_EQ(session().rsRules->field(u"ACTIVE").int16(), 1);
        EXPECT_EQ(session().rsRules->recordCount(), 1);
    });
    EXPECT_EQ(database.value("SELECT PRIORITY, ACTIVE, DELETED FROM SMS_RULES"), "0|1|0");
}

TEST_P(RuleSaving, AnExistingRuleIsOverwrittenInPlace) {
    database.addRule("Other", "<ALLMESSAGES>", TestDatabase::deleteNothing, 5);
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", TestDatabase::deleteNothing, 7, 0);
    playRule(id, [](User &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(conditions, row::ignoreForService);
        user.tickRow(actions, row::noMoreRules);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT ID, Name, QueryParam, ActionParam, PRIORITY, ACTIVE FROM "
                             "SMS_RULES WHERE PRIORITY = 7"),
              std::to_string(id) +
                  "|Mine|<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>|<DELETE>NO</DELETE>"
                  "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>|7|0");
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "2");
}

TEST_P(RuleSaving, TheNameOfAnotherRuleIsRefusedWhateverItsCase) {
    database.addRule("Boss sms");
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [this](User &user) {
        for (const char16_t *taken : {u"Boss sms", u"BOSS SMS ", u"boss Sms"}) {
            name(user, taken);
            expectRefused(user,
                          u"A Rule already exists in this name, please select a different name.",
                          u"txtRuleName");
        }
        user.press(Key::escape);
    });
    EXPECT_EQ(idOf("Mine"), std::to_string(id));
}

TEST_P(RuleSaving, NamesInOtherScriptsAreComparedWithoutCaseToo) {
    database.addRule("ÄRGER straße");
    database.addRule("नियम");
    playNewRule([this](User &user) {
        completeRule(user);
        name(user, u"ärger STRAßE");
        expectRefused(user, u"A Rule already exists in this name, please select a different name.",
                      u"txtRuleName");
        name(user, u"नियम");
        expectRefused(user, u"A Rule already exists in this name, please select a different name.",
                      u"txtRuleName");
        name(user, u"ärger STRASSE");
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
}

TEST_P(RuleSaving, AnUnchangedNameIsNotTested) {
    database.addRule("Same", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    const auto id = database.addRule("Same", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [](User &user) {
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
}

TEST_P(RuleSaving, AChangeOfCaseAloneFindsTheRuleItself) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [this](User &user) {
        name(user, u"MINE");
        expectRefused(user, u"A Rule already exists in this name, please select a different name.",
                      u"txtRuleName");
        user.press(Key::escape);
    });
}

TEST_P(RuleSaving, AnApostropheBreaksTheSearchAndIsLogged) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [this](User &user) {
        name(user, u"O'Brien");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.get<TextBox>(u"txtRuleName").text(), u"O'Brien");
        expectLog({saveFailed});
        EXPECT_EQ(logged.at(0).number, error_number::badArgument);
        name(user, u"OBrien");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES"), "OBrien");
}

TEST_P(RuleSaving, ASessionThatBeganEmptyTestsNoNames) {
    const auto save = [](User &editor) {
        completeRule(editor);
        name(editor, u"O'Brien");
        editor.click(u"cmdOK");
    };
    whenShown(u"frmRuleEdit", save);
    whenShown(u"frmRules", [&](User &user) {
        whenShown(u"frmRuleEdit", save);
        user.click(u"cmdNew");
        user.click(u"cmdCancel");
    });
    showRules(u"");
    EXPECT_EQ(database.rows("SELECT Name FROM SMS_RULES"),
              (std::vector<std::string>{"O'Brien", "O'Brien"}));
}

TEST_P(RuleSaving, AConditionStringOf5000CharactersIsSavedAndOneMoreRefused) {
    const std::size_t overhead = std::string_view("<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE>"
                                                  "<CON><ANY></PEOPLE>")
                                     .size();
    playNewRule([&](User &user) {
        user.tickRow(conditions, row::fromPeople);
        user.tickRow(actions, row::noMoreRules);
        ruleState().strPeople.assign(5001 - overhead, u'9');
        expectRefused(user, u"Length of Condition parameter cannot exceed 5000 characters.",
                      u"rtRuleDesc");
        ruleState().strPeople.pop_back();
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT LENGTH(QueryParam) FROM SMS_RULES"), "5000");
}

TEST_P(RuleSaving, AnActionStringOf2500CharactersIsSavedAndOneMoreRefused) {
    const std::size_t overhead = std::string_view("<REPLY>;2</REPLY><DELETE>NO</DELETE>"
                                                  "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>")
                                     .size();
    playNewRule([&](User &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(actions, row::reply);
        ruleState().strReplyAccount = u"2";
        ruleState().strReplyText.assign(2501 - overhead, u'x');
        expectRefused(user, u"Length of Action parameter cannot exceed 2500 characters.",
                      u"rtRuleDesc");
        ruleState().strReplyText.pop_back();
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT LENGTH(ActionParam) FROM SMS_RULES"), "2500");
}

TEST_P(RuleSaving, LengthsCountUtf16Units) {
    playNewRule([this](User &user) {
        user.tickRow(conditions, row::containsWords);
        user.tickRow(actions, row::noMoreRules);
        for (int i = 0; i < 2490; ++i) {
            ruleState().strWords += u"\U0001F4F1";
        }
        expectRefused(user, u"Length of Condition parameter cannot exceed 5000 characters.",
                      u"rtRuleDesc");
        user.press(Key::escape);
    });
}

TEST_P(RuleSaving, ARefusedNewRuleKeepsTheEditorsInputAndCanBeSavedLater) {
    for (const bool hadRules : {false, true}) {
        database.execute("DELETE FROM SMS_RULES");
        if (hadRules) {
            database.addRule("A", "<ALLMESSAGES>", "", 1);
        }
        playNewRule([this](User &user) {
            completeRule(user);
            name(user, u"Kept");
            database.refuseNewRules();
            user.click(u"cmdOK");
            user.click(u"cmdOK");
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(user.get<TextBox>(u"txtRuleName").text(), u"Kept");
            database.permit();
            user.click(u"cmdOK");
            EXPECT_FALSE(user.isOpen());
        });
        expectLog({saveFailed, saveFailed});
        EXPECT_LT(logged.at(0).number, 0);
        EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES WHERE Name = 'Kept'"), "1");
        closeSession();
    }
}

TEST_P(RuleSaving, ACancelledEditorAfterARefusedSaveLeavesNoPendingRule) {
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    playRules([this](User &user) {
        database.refuseNewRules();
        whenShown(u"frmRuleEdit", [](User &editor) {
            completeRule(editor);
            editor.click(u"cmdOK");
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A"}));
        database.permit();
        user.clickRow(u"lvwRules", 1);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "1");
    expectLog({saveFailed});
}

TEST_P(RuleSaving, ARuleThatAnotherChangedIsNotOverwritten) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [this](User &user) {
        database.execute("UPDATE SMS_RULES SET Name = 'Theirs'");
        name(user, u"Ours");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        user.press(Key::escape);
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES"), "Theirs");
    expectLog({saveFailed});
    EXPECT_EQ(logged.at(0).number, rowChangedByAnother);
}

TEST_P(RuleSaving, ARuleThatAnotherRemovedIsLogged) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    playRule(id, [this](User &user) {
        database.execute("DELETE FROM SMS_RULES");
        name(user, u"Ours");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        user.press(Key::escape);
    });
    expectLog({saveFailed});
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "0");
}

TEST_P(RuleSaving, SavingAnUnchangedRuleWritesNothing) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>",
                                     "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES"
                                     "</IGNOREFURTHERRULES>");
    playRule(id, [this](User &user) {
        user.tickRow(actions, row::noMoreRules);
        user.tickRow(actions, row::noMoreRules);
        database.refuseChanges();
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
}

TEST_P(RuleSaving, TheSaveItselfLeavesTheFlagAlone) {
    const auto id = database.addRule("Mine", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    EXPECT_EQ(playRule(id, [](User &user) { user.click(u"cmdOK"); }), 1);
}

TEST_P(RuleSaving, NamesAndTextsOfEveryScriptAreStoredAsTypedAndReadAgain) {
    const std::u16string typed = u"नियम \U0001F4F1 \"quoted\" <b>";
    const std::u16string words = u"मदद;\U0001F319\U0001F4F1;ÄRGER";
    const std::u16string reply =
        u"नमस्ते \U0001F469\u200D\U0001F33E!\r\nफिर मिलेंगे \U0001F1EE\U0001F1F3";
    playNewRule([&](User &user) {
        user.tickRow(conditions, row::containsWords);
        ruleState().strWords = words;
        user.tickRow(actions, row::reply);
        ruleState().strReplyText = reply;
        ruleState().strReplyAccount = u"2";
        name(user, typed);
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(rules(),
              std::vector{utf8(typed) + "|<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>" +
                          utf8(words) + "</WORD>|<REPLY>" + utf8(reply) +
                          ";2</REPLY><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
                          "</IGNOREFURTHERRULES>"});
    closeSession();
    playRule(std::stoll(idOf(utf8(typed))), [&](User &user) {
        EXPECT_EQ(user.get<TextBox>(u"txtRuleName").text(), typed);
        EXPECT_EQ(ruleState().strWords, words);
        EXPECT_EQ(ruleState().strReplyText, reply);
        // The row is found again by the values that were read.
        name(user, typed + u" \U0001F4A1");
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES"), utf8(typed) + " \xF0\x9F\x92\xA1");
}

} // namespace
} // namespace kvex::test
