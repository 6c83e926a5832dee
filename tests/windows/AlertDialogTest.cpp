#include "tests/windows/AlertDialogFixture.h"

namespace kvex::test {
namespace {

using Rows = std::vector<int>;

const Message textMissing{u"Please type some text to send as Alert.", 48};
const Message accountMissing{u"Please select the account through which the Alert should be sent.",
                             48};
const Message recipientMissing{u"Please select the recipient(s) to whom the Alert would be sent.",
                               48};

TEST_F(AlertDialog, ShowsItsCaptionsAndTabOrder) {
    play([](User &user) {
        EXPECT_EQ(user.window().caption(), u"Configure Alert");
        const std::vector<std::pair<std::u16string, std::u16string>> captions{
            {u"Label2", u"1. Type the Alert Text"},
            {u"Label3", u"Characters :"},
            {u"Label6", u"Tip: To include the original message in the Alert text use @@SMS@@ and "
                        u"@@SENDER@@ for the Sender mobile number"},
            {u"Label5", u"2. Select the Account to be used for sending the Alert"},
            {u"Label4", u"3. Select the Alert Recipients. Type the mobile number and click Add"},
            {u"Label1", u"Alert &Recipients"}};
        for (const auto &[label, caption] : captions) {
            EXPECT_EQ(user.get<Label>(label).caption(), caption);
        }
        EXPECT_EQ(user.get<ListView>(accounts).columnCount(), 2);
        EXPECT_EQ(user.get<ListView>(people).columnCount(), 1);
        EXPECT_FALSE(user.get<CommandButton>(u"cmdOptions").visible());
        EXPECT_EQ(user.focused(), text);
        add(user, u"98");
        user.type(u"99");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{text, u"txtCharCount", accounts, number, u"cmdAdd", u"cmdAddressBook",
                         people, u"cmdRemove", u"cmdClear", u"cmdOK", u"cmdCancel"}));
        cancel(user);
    });
}

TEST_F(AlertDialog, ANewAlertStartsEmptyAndUnchanged) {
    play([](User &user) {
        EXPECT_EQ(typed(user), u"");
        EXPECT_EQ(count(user), u"0");
        EXPECT_EQ(enabledButtons(user), "");
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        EXPECT_TRUE(enabled(user, u"cmdAddressBook"));
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 1);
        EXPECT_EQ(ticked(user), Rows());
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(AlertDialog, AStoredAlertIsShownAndOkWritesTheSameBack) {
    storeRule(storedAlert);
    play([](User &user) {
        EXPECT_EQ(user.rows(people), (Texts{u"    9812345678", u"    9898989898"}));
        EXPECT_EQ(typed(user), u"Look");
        EXPECT_EQ(count(user), u"4");
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(user.get<ListView>(people).selectedRow(), 0);
        EXPECT_EQ(enabledButtons(user), "RCPO");
        EXPECT_TRUE(session().blnChanged);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertText, u"Look");
    EXPECT_EQ(ruleState().strAlertAccount, u"5");
    EXPECT_EQ(ruleState().strAlertRecipients, u"9812345678;9898989898");
}

TEST_F(AlertDialog, AccountsOfEveryBindModeAreOffered) {
    database.addAccount(6, "Sending", "TRANSMITTER");
    database.addAccount(7, "Empty", "");
    database.execute("INSERT INTO SMS_ACCOUNT (ID, NAME) VALUES (8, 'None')");
    play([](User &user) {
        EXPECT_EQ(user.rows(accounts),
                  (Texts{u"Main", u"Incoming", u"Sending", u"Empty", u"None"}));
        EXPECT_EQ(user.get<ListView>(accounts).key(5), u"AC8");
        EXPECT_EQ(user.get<ListView>(accounts).subItem(5, 1), u"8");
        cancel(user);
    });
}

TEST_F(AlertDialog, WithoutRecipientsTheStoredTextIsNotShown) {
    beforeDialog = [] {
        ruleState().strAlertText = u"Look";
        ruleState().strAlertAccount = u"5";
    };
    play([](User &user) {
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(typed(user), u"");
        EXPECT_EQ(enabledButtons(user), "");
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(AlertDialog, RecipientsWithoutATextEnableOkAndLeaveTheRuleUnchanged) {
    storeRule("<ALERT>;5;98</ALERT>");
    play([](User &user) {
        EXPECT_EQ(user.rows(people), Texts{u"    98"});
        EXPECT_EQ(count(user), u"0");
        EXPECT_EQ(enabledButtons(user), "RCPO");
        EXPECT_FALSE(session().blnChanged);
        confirm(user);
        EXPECT_TRUE(user.isOpen());
        cancel(user);
    });
    expectMessages({textMissing});
}

TEST_F(AlertDialog, AnEmptyRecipientKeepsItsRow) {
    storeRule("<ALERT>Look;5;98;;99</ALERT>");
    play([](User &user) {
        EXPECT_EQ(user.rows(people), (Texts{u"    98", u"    ", u"    99"}));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertRecipients, u"98;;99");
}

TEST_F(AlertDialog, AVanishedAccountLeavesRecipientsAndTextUnloaded) {
    storeRule("<ALERT>Look;77;98</ALERT>");
    play([](User &user) {
        EXPECT_EQ(user.rows(accounts), (Texts{u"Main", u"Incoming"}));
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(typed(user), u"");
        EXPECT_EQ(enabledButtons(user), "");
        EXPECT_FALSE(session().blnChanged);
        add(user, u"99");
        EXPECT_EQ(user.rows(people), Texts{u"    99"});
        EXPECT_EQ(user.get<ListView>(people).columnCount(), 1);
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleAlert"});
    EXPECT_EQ(logged.at(0).number, error_number::elementNotFound);
    EXPECT_EQ(ruleState().strAlertText, u"Look");
    EXPECT_EQ(ruleState().strAlertRecipients, u"98");
}

TEST_F(AlertDialog, OneAccountAtMostIsTicked) {
    play([](User &user) {
        user.tickRow(accounts, 1);
        EXPECT_TRUE(session().blnChanged);
        user.tickRow(accounts, 2);
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 2);
        session().blnChanged = false;
        user.tickRow(accounts, 2);
        EXPECT_EQ(ticked(user), Rows());
        EXPECT_TRUE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(AlertDialog, OkAsksForTextAccountAndRecipientsInThisOrder) {
    play([this](User &user) {
        utility.onMessage = [&user] { EXPECT_EQ(user.focused(), u"cmdOK"); };
        typeInto(user, text, u"  ");
        confirm(user);
        EXPECT_EQ(user.focused(), text);
        user.type(u"Look");
        confirm(user);
        EXPECT_EQ(user.focused(), accounts);
        user.tickRow(accounts, 1);
        confirm(user);
        EXPECT_EQ(user.focused(), people);
        EXPECT_TRUE(user.isOpen());
        add(user, u"98");
        confirm(user);
        EXPECT_FALSE(user.isOpen());
    });
    expectMessages({textMissing, accountMissing, recipientMissing});
    EXPECT_EQ(ruleState().strAlertText, u"  Look");
    EXPECT_EQ(ruleState().strAlertAccount, u"2");
    EXPECT_EQ(ruleState().strAlertRecipients, u"98");
}

TEST_F(AlertDialog, AnAccountUntickedAfterARefusalIsAskedForAgain) {
    play([](User &user) {
        typeInto(user, text, u"Look");
        user.tickRow(accounts, 1);
        confirm(user);
        user.tickRow(accounts, 1);
        confirm(user);
        EXPECT_EQ(user.focused(), accounts);
        cancel(user);
    });
    expectMessages({recipientMissing, accountMissing});
}

TEST_F(AlertDialog, OfTextAndRecipientsTheLastToChangeDecidesAboutOk) {
    play([](User &user) {
        typeInto(user, text, u"a");
        EXPECT_EQ(enabledButtons(user), "O");
        user.press(Key::backspace);
        EXPECT_EQ(enabledButtons(user), "");
        add(user, u"98");
        EXPECT_EQ(enabledButtons(user), "RCPO");
        typeInto(user, text, u"a");
        user.press(Key::backspace);
        EXPECT_EQ(enabledButtons(user), "RCP");
        typeInto(user, text, u"b");
        user.clickRow(people, 1);
        user.click(u"cmdRemove");
        EXPECT_EQ(enabledButtons(user), "");
        typeInto(user, text, u"c");
        EXPECT_EQ(enabledButtons(user), "O");
        cancel(user);
    });
}

TEST_F(AlertDialog, ATextOfLineBreaksOnlyIsAccepted) {
    storeRule(storedAlert);
    play([](User &user) {
        empty(user, text);
        EXPECT_EQ(count(user), u"0");
        user.type(u"\r\n");
        EXPECT_EQ(count(user), u"2");
        confirm(user);
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strAlertText, u"\r\n");
}

TEST_F(AlertDialog, PlaceholdersAndEveryCharacterComeBackFromTheDatabase) {
    const std::u16string whole = u"@@SMS@@ from @@SENDER@@\r\nनमस्ते \U0001F4F1 'x'\r\n\r\nend";
    play(
        [&](User &user) {
            paste(user, text, whole);
            user.tickRow(accounts, 1);
            add(user, u"98");
            confirm(user);
        },
        save);
    EXPECT_EQ(savedAction(), "<ALERT>" + utf8(whole) +
                                 ";2;98</ALERT><DELETE>NO</DELETE>"
                                 "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    storeRule(savedAction());
    playAgain([&](User &user) {
        EXPECT_EQ(typed(user), whole);
        EXPECT_EQ(count(user), toText(static_cast<std::int64_t>(whole.size())));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertText, whole);
}

TEST_F(AlertDialog, BlanksAtEitherEndAreKeptUntilTheRuleIsSaved) {
    play(
        [](User &user) {
            typeInto(user, text, u" Look  ");
            user.tickRow(accounts, 1);
            add(user, u"98");
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(ruleState().strAlertText, u" Look  ");
            save(user);
        });
    EXPECT_TRUE(savedAction().starts_with("<ALERT>Look;2;98</ALERT>")) << savedAction();
}

TEST_F(AlertDialog, ATextWithASemicolonShiftsAccountAndRecipientsWhenItComesBack) {
    play(
        [](User &user) {
            typeInto(user, text, u"Look; now");
            user.tickRow(accounts, 1);
            add(user, u"98");
            confirm(user);
        },
        save);
    EXPECT_TRUE(savedAction().starts_with("<ALERT>Look; now;2;98</ALERT>")) << savedAction();
    storeRule(savedAction());
    playAgain([this](User &user) {
        EXPECT_EQ(ruleState().strAlertText, u"Look");
        EXPECT_EQ(ruleState().strAlertAccount, u" now");
        EXPECT_EQ(ruleState().strAlertRecipients, u"2;98");
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(utility.logTexts().back(),
                  u"KVEXMessageRules: Error occured. Sub: Form_Load, Module: frmRuleAlert");
        // Describing the rule before and after the dialog logs the missing account, too.
        utility.log.clear();
        cancel(user);
    });
    utility.log.clear();
}

TEST_F(AlertDialog, HiddenOptionsBeforeAnAccountWasChosenWriteTheTextAlone) {
    storeRule(storedAlert);
    whenShownWithin(u"frmRuleOptions", [](User &user) {
        EXPECT_EQ(ruleState().strAlertText, u"Look!");
        user.press(Key::escape);
    });
    play([](User &user) {
        typeInto(user, text, u"!");
        add(user, u"97");
        user.get<CommandButton>(u"cmdOptions").onClick();
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(ruleState().strAlertText, u"Look!");
        EXPECT_EQ(ruleState().strAlertAccount, u"5");
        EXPECT_EQ(ruleState().strAlertRecipients, u"9812345678;9898989898");
        cancel(user);
    });
    expectLog({u"Sub: frmRuleAlert_BuildString, Module: frmRuleAlert"});
    EXPECT_EQ(logged.at(0).number, error_number::objectNotSet);
}

TEST_F(AlertDialog, HiddenOptionsAfterAnAccountWasChosenMissTheRecipients) {
    whenShownWithin(u"frmRuleOptions", [](User &user) { user.press(Key::escape); });
    play([](User &user) {
        typeInto(user, text, u"Look");
        user.tickRow(accounts, 2);
        confirm(user);
        ruleState().strAlertRecipients = u"97";
        user.get<CommandButton>(u"cmdOptions").onClick();
        EXPECT_EQ(user.focused(), number);
        EXPECT_EQ(ruleState().strAlertText, u"Look");
        EXPECT_EQ(ruleState().strAlertAccount, u"5");
        EXPECT_EQ(ruleState().strAlertRecipients, u"");
        cancel(user);
    });
    expectMessages({recipientMissing, {u"Please select some Recipients.", 48}});
}

TEST_F(AlertDialog, HiddenOptionsEditTheModifiersOfThePeopleCondition) {
    beforeDialog = [] { ruleState().strPeople = u"91"; };
    whenShownWithin(u"frmRuleOptions", [](User &user) {
        EXPECT_EQ(user.rows(u"lvwRuleCondition").back(), u"    91");
        user.click(u"opgConNotmodifier(1)");
        confirm(user);
    });
    play([](User &user) {
        user.get<CommandButton>(u"cmdOptions").onClick();
        EXPECT_EQ(ruleState().intPeopleNot, 1);
        cancel(user);
    });
    expectLog({u"Sub: frmRuleAlert_BuildString, Module: frmRuleAlert"});
}

TEST_F(AlertDialog, CancelEscapeAndTheFrameWriteNothing) {
    storeRule(storedAlert);
    const std::vector<Script> ways{[](User &user) { user.click(u"cmdCancel"); },
                                   [](User &user) { user.press(Key::escape); },
                                   [](User &user) { user.closeByFrame(); }};
    for (const Script &leave : ways) {
        playAgain([&](User &user) {
            typeInto(user, text, u"!");
            user.tickRow(accounts, 1);
            add(user, u"97");
            leave(user);
            EXPECT_FALSE(user.isOpen());
        });
        EXPECT_EQ(ruleState().strAlertText, u"Look");
        EXPECT_EQ(ruleState().strAlertAccount, u"5");
        EXPECT_EQ(ruleState().strAlertRecipients, u"9812345678;9898989898");
    }
}

TEST_F(AlertDialog, TheEditorsDescriptionFollows) {
    play(
        [](User &user) {
            typeInto(user, text, u"Look");
            user.tickRow(accounts, 2);
            add(user, u"98");
            add(user, u"97");
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(description(user), u"Apply this Rule after the message arrives\r\n"
                                         u"Then send Alert 'Look' through the Account 'Incoming' "
                                         u"to 98 and 97");
            cancel(user);
        });
}

TEST_F(AlertDialog, AnEditedAlertIsSavedAmongTheOtherActions) {
    storeRule("<REPLY>Hi;2</REPLY><ALERT>Look;2;97</ALERT><DELETE>NO</DELETE>"
              "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    play(
        [](User &user) {
            typeInto(user, text, u" here");
            user.tickRow(accounts, 2);
            add(user, u"96");
            confirm(user);
        },
        save);
    EXPECT_EQ(savedAction(),
              "<REPLY>Hi;2</REPLY><ALERT>Look here;5;97;96</ALERT><DELETE>NO</DELETE>"
              "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
}

TEST_F(AlertDialog, AHintSaysWhatTheServerReadsOfTheText) {
    play([this](User &user) {
        EXPECT_EQ(user.description(text), u"");
        paste(user, text, u"a;b");
        EXPECT_EQ(user.description(text), u"The server reads the text up to \";\" only: \"a\".");
        empty(user, text);
        EXPECT_EQ(user.description(text), u"");
        typeInto(user, text, u"<DELETE>");
        EXPECT_EQ(user.description(text), u"With this text the server misreads \"Delete it\".");
        cancel(user);
    });
}

TEST_F(AlertDialog, AHintStandsBesideALoadedText) {
    storeRule(storedAlert);
    beforeDialog = [] { ruleState().strAlertText = u"a;b"; };
    play([](User &user) {
        EXPECT_EQ(user.description(text), u"The server reads the text up to \";\" only: \"a\".");
        EXPECT_EQ(user.description(number), u"");
        cancel(user);
    });
}

} // namespace
} // namespace kvex::test
