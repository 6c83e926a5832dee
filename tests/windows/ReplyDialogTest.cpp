#include "tests/windows/ActionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto text = u"rtReplyText";
constexpr auto accounts = u"lvwOutAccount";

using Rows = std::vector<int>;

const Message textMissing{u"Please type some text to send as Reply.", 48};
const Message accountMissing{u"Please select the account through which the Reply should be sent.",
                             48};

class ReplyDialog : public ActionDialog {
protected:
    ReplyDialog() : ActionDialog(u"frmRuleReply", row::reply) {
        database.addAccount(2, "Main");
        database.addAccount(5, "Spare", "TRANSMITTER");
    }
    static std::u16string typed(User &user) { return user.get<RichTextBox>(text).text(); }
};

TEST_F(ReplyDialog, ShowsItsCaptionsAndTabOrder) {
    play([](User &user) {
        EXPECT_EQ(user.window().caption(), u"Configure Automated Reply");
        EXPECT_EQ(user.get<Label>(u"Label2").caption(),
                  u"Type the Message that you want to send as Reply");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"Characters :");
        EXPECT_EQ(user.get<Label>(u"Label5").caption(),
                  u"2. Select the Account to be used for sending the Reply");
        EXPECT_EQ(user.get<ListView>(accounts).columnCount(), 2);
        EXPECT_EQ(user.focused(), text);
        user.type(u"a");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{text, u"txtCharCount", accounts, u"cmdOK", u"cmdCancel"}));
        cancel(user);
    });
}

TEST_F(ReplyDialog, ANewReplyStartsEmptyAndUnchanged) {
    play([](User &user) {
        EXPECT_EQ(typed(user), u"");
        EXPECT_EQ(count(user), u"0");
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_EQ(user.rows(accounts), (Texts{u"Main", u"Spare"}));
        EXPECT_EQ(user.get<ListView>(accounts).subItem(2, 1), u"5");
        EXPECT_EQ(user.get<ListView>(accounts).key(2), u"AC5");
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 1);
        EXPECT_EQ(ticked(user), Rows());
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(ReplyDialog, AStoredReplyIsShownAndOkWritesTheSameBack) {
    storeRule("<REPLY>Received;5</REPLY>");
    play([](User &user) {
        EXPECT_EQ(typed(user), u"Received");
        EXPECT_EQ(count(user), u"8");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 1);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strReplyText, u"Received");
    EXPECT_EQ(ruleState().strReplyAccount, u"5");
}

TEST_F(ReplyDialog, ShowingAStoredTextSetsTheChangeFlag) {
    storeRule("<REPLY>Received;5</REPLY>");
    EXPECT_EQ(play([](User &user) {
                  EXPECT_TRUE(session().blnChanged);
                  cancel(user);
              }),
              99);
}

TEST_F(ReplyDialog, OnlyAccountsThatSendAreOffered) {
    database.addAccount(6, "Lower", "transceiver");
    database.addAccount(7, "Mixed", "tRaNsMiTTer");
    database.addAccount(8, "Incoming", "RECEIVER");
    database.addAccount(9, "Blank behind", "TRANSMITTER ");
    database.addAccount(10, "Empty", "");
    database.execute("INSERT INTO SMS_ACCOUNT (ID, NAME) VALUES (11, 'None')");
    play([](User &user) {
        EXPECT_EQ(user.rows(accounts), (Texts{u"Main", u"Spare", u"Lower", u"Mixed"}));
        cancel(user);
    });
}

TEST_F(ReplyDialog, WithoutAccountsOkAsksForOne) {
    database.execute("DELETE FROM SMS_ACCOUNT");
    play([](User &user) {
        EXPECT_EQ(user.rows(accounts), Texts());
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 0);
        typeInto(user, text, u"Hi");
        confirm(user);
        EXPECT_TRUE(user.isOpen());
        cancel(user);
    });
    expectMessages({accountMissing});
}

TEST_F(ReplyDialog, AnAccountWithoutNameIsOfferedWithoutOne) {
    database.execute("INSERT INTO SMS_ACCOUNT (ID, BIND_MODE) VALUES (6, 'TRANSMITTER')");
    storeRule("<REPLY>Received;5</REPLY>");
    play([](User &user) {
        EXPECT_EQ(user.rows(accounts), (Texts{u"Main", u"Spare", u""}));
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(typed(user), u"Received");
        cancel(user);
    });
}

TEST_F(ReplyDialog, TickingASecondAccountUnticksTheFirst) {
    play([](User &user) {
        user.tickRow(accounts, 1);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(ticked(user), Rows{1});
        user.tickRow(accounts, 2);
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 2);
        user.tickRow(accounts, user.get<ListView>(accounts).rowCount());
        user.tickRow(accounts, 1);
        EXPECT_EQ(ticked(user), Rows{1});
        typeInto(user, text, u"Hi");
        confirm(user);
    });
    EXPECT_EQ(ruleState().strReplyAccount, u"2");
}

TEST_F(ReplyDialog, AnAccountTickedTwiceIsUntickedAndKeepsItsSelection) {
    play([](User &user) {
        user.tickRow(accounts, 2);
        session().blnChanged = false;
        user.tickRow(accounts, 2);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(ticked(user), Rows());
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 2);
        cancel(user);
    });
}

TEST_F(ReplyDialog, WithoutATickedAccountOkRefusesAndLeadsToTheAccounts) {
    storeRule("<REPLY>Received;5</REPLY>");
    play([this](User &user) {
        utility.onMessage = [&user] { EXPECT_EQ(user.focused(), u"cmdOK"); };
        user.tickRow(accounts, 2);
        confirm(user);
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), accounts);
        cancel(user);
    });
    expectMessages({accountMissing});
    EXPECT_EQ(ruleState().strReplyText, u"Received");
    EXPECT_EQ(ruleState().strReplyAccount, u"5");
}

TEST_F(ReplyDialog, ATextOfBlanksKeepsOkEnabledButIsRefusedWhereTheFocusIs) {
    play([](User &user) {
        user.tickRow(accounts, 1);
        typeInto(user, text, u"   ");
        EXPECT_EQ(count(user), u"3");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        confirm(user);
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), u"cmdOK");
        cancel(user);
    });
    expectMessages({textMissing});
    EXPECT_EQ(ruleState().strReplyText, u"");
}

TEST_F(ReplyDialog, OfTextAndAccountMissingOnlyTheTextIsAskedFor) {
    play([](User &user) {
        typeInto(user, text, u" ");
        confirm(user);
        cancel(user);
    });
    expectMessages({textMissing});
}

TEST_F(ReplyDialog, ATextOfLineBreaksOnlyIsAccepted) {
    play(
        [](User &user) {
            user.tickRow(accounts, 1);
            typeInto(user, text, u"\r\n\r\n");
            EXPECT_EQ(count(user), u"4");
            confirm(user);
            EXPECT_FALSE(user.isOpen());
        },
        save);
    EXPECT_EQ(ruleState().strReplyText, u"\r\n\r\n");
    EXPECT_EQ(savedAction(), "<REPLY>\r\n\r\n;2</REPLY><DELETE>NO</DELETE>"
                             "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST_F(ReplyDialog, EnterInTheTextIsALineBreakAndInTheListPressesOk) {
    play([](User &user) {
        typeInto(user, text, u"one");
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
        user.type(u"two");
        EXPECT_EQ(typed(user), u"one\r\ntwo");
        user.tickRow(accounts, 1);
        user.press(Key::enter);
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strReplyText, u"one\r\ntwo");
}

TEST_F(ReplyDialog, OkFollowsWhetherThereIsAText) {
    play([](User &user) {
        typeInto(user, text, u"ab");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::backspace);
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        EXPECT_EQ(count(user), u"1");
        user.press(Key::backspace);
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_EQ(count(user), u"0");
        cancel(user);
    });
}

TEST_F(ReplyDialog, CountsUnitsAndALineBreakAsTwo) {
    play([](User &user) {
        typeInto(user, text, u"नमस्ते");
        EXPECT_EQ(count(user), u"6");
        user.press(Key::enter);
        EXPECT_EQ(count(user), u"8");
        user.type(u"\U0001F4F1");
        EXPECT_EQ(count(user), u"10");
        user.press(Key::backspace);
        EXPECT_EQ(count(user), u"8");
        cancel(user);
    });
}

TEST_F(ReplyDialog, EveryCharacterComesBackFromTheDatabase) {
    const std::u16string whole = u"Line 1\r\n\r\nनमस्ते \U0001F4F1 'quoted' <b>\t@@SMS@@\r\nend";
    play(
        [&](User &user) {
            paste(user, text, whole);
            EXPECT_EQ(typed(user), whole);
            user.tickRow(accounts, 2);
            confirm(user);
        },
        save);
    EXPECT_EQ(savedAction(), "<REPLY>" + utf8(whole) +
                                 ";5</REPLY><DELETE>NO</DELETE>"
                                 "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    storeRule(savedAction());
    playAgain([&](User &user) {
        EXPECT_EQ(typed(user), whole);
        EXPECT_EQ(count(user), toText(static_cast<std::int64_t>(whole.size())));
        EXPECT_EQ(ticked(user), Rows{2});
        confirm(user);
    });
    EXPECT_EQ(ruleState().strReplyText, whole);
}

TEST_F(ReplyDialog, BlanksAtEitherEndAreKeptUntilTheRuleIsSaved) {
    play(
        [](User &user) {
            typeInto(user, text, u"  Hi ");
            EXPECT_EQ(count(user), u"5");
            user.tickRow(accounts, 1);
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(ruleState().strReplyText, u"  Hi ");
            save(user);
        });
    EXPECT_EQ(savedAction(), "<REPLY>Hi;2</REPLY><DELETE>NO</DELETE>"
                             "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST_F(ReplyDialog, ATextWithASemicolonIsStoredAndComesBackCut) {
    play(
        [](User &user) {
            typeInto(user, text, u"Hi; there");
            user.tickRow(accounts, 1);
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(ruleState().strReplyText, u"Hi; there");
            save(user);
        });
    EXPECT_TRUE(savedAction().starts_with("<REPLY>Hi; there;2</REPLY>")) << savedAction();
    storeRule(savedAction());
    playAgain([this](User &user) {
        EXPECT_EQ(ruleState().strReplyText, u"Hi");
        EXPECT_EQ(ruleState().strReplyAccount, u" there;2");
        EXPECT_EQ(utility.logTexts().back(),
                  u"KVEXMessageRules: Error occured. Sub: Form_Load, Module: frmRuleReply");
        // Describing the rule before and after the dialog logs the missing account, too.
        utility.log.clear();
        EXPECT_EQ(typed(user), u"");
        cancel(user);
    });
    EXPECT_EQ(ruleState().strReplyText, u"Hi");
    utility.log.clear();
}

TEST_F(ReplyDialog, AVanishedAccountLeavesTheTextUnloadedUntilTheUserTypes) {
    storeRule("<REPLY>Received;77</REPLY>");
    play([](User &user) {
        EXPECT_EQ(typed(user), u"");
        EXPECT_EQ(count(user), u"0");
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_FALSE(session().blnChanged);
        EXPECT_EQ(user.get<ListView>(accounts).selectedRow(), 1);
        typeInto(user, text, u"New");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        user.tickRow(accounts, 1);
        confirm(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleReply"});
    EXPECT_EQ(logged.at(0).number, error_number::elementNotFound);
    EXPECT_EQ(ruleState().strReplyText, u"New");
    EXPECT_EQ(ruleState().strReplyAccount, u"2");
}

TEST_F(ReplyDialog, AnAccountThatNoLongerSendsCountsAsVanished) {
    database.execute("UPDATE SMS_ACCOUNT SET BIND_MODE = 'RECEIVER' WHERE ID = 5");
    storeRule("<REPLY>Received;5</REPLY>");
    play([](User &user) {
        EXPECT_EQ(typed(user), u"");
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleReply"});
    EXPECT_EQ(ruleState().strReplyText, u"Received");
    EXPECT_EQ(ruleState().strReplyAccount, u"5");
}

TEST_F(ReplyDialog, AnAccountOfBlanksCountsAsNone) {
    beforeDialog = [] {
        ruleState().strReplyText = u"Hi";
        ruleState().strReplyAccount = u"  ";
    };
    play([this](User &user) {
        EXPECT_EQ(typed(user), u"Hi");
        EXPECT_EQ(ticked(user), Rows());
        expectLog({});
        cancel(user);
    });
    expectLog({u"Sub: BuildRuleDescription, Module: General"});
}

TEST_F(ReplyDialog, AnAccountWithoutATextIsTicked) {
    beforeDialog = [] { ruleState().strReplyAccount = u"5"; };
    play([](User &user) {
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(typed(user), u"");
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(ReplyDialog, CancelEscapeAndTheFrameWriteNothing) {
    storeRule("<REPLY>Received;5</REPLY>");
    const std::vector<Script> ways{[](User &user) { user.click(u"cmdCancel"); },
                                   [](User &user) { user.press(Key::escape); },
                                   [](User &user) { user.closeByFrame(); }};
    for (const Script &leave : ways) {
        playAgain([&](User &user) {
            typeInto(user, text, u"!");
            user.tickRow(accounts, 1);
            leave(user);
            EXPECT_FALSE(user.isOpen());
        });
        EXPECT_EQ(ruleState().strReplyText, u"Received");
        EXPECT_EQ(ruleState().strReplyAccount, u"5");
    }
}

TEST_F(ReplyDialog, TheEditorsDescriptionFollows) {
    play(
        [](User &user) {
            typeInto(user, text, u"Hi");
            user.tickRow(accounts, 2);
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(description(user), u"Apply this Rule after the message arrives\r\n"
                                         u"Then send Reply 'Hi' to the Sender through Account "
                                         u"'Spare'");
            cancel(user);
        });
}

TEST_F(ReplyDialog, AnEditedReplyIsSavedAmongTheOtherActions) {
    database.addUser(3, "Asha");
    storeRule("<DIST>3</DIST><REPLY>Old;2</REPLY><ALERT>Look;2;97</ALERT><DELETE>YES</DELETE>"
              "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    play(
        [](User &user) {
            empty(user, text);
            user.type(u"New");
            user.tickRow(accounts, 2);
            confirm(user);
        },
        save);
    EXPECT_EQ(savedAction(), "<DIST>3</DIST><REPLY>New;5</REPLY><ALERT>Look;2;97</ALERT>"
                             "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
}

TEST_F(ReplyDialog, AHundredThousandCharactersAreTakenAndRefusedOnlyByTheEditor) {
    const std::u16string whole(100'000, u'x');
    play(
        [&](User &user) {
            paste(user, text, whole);
            EXPECT_EQ(count(user), u"100000");
            user.tickRow(accounts, 1);
            confirm(user);
        },
        [&](User &user) {
            EXPECT_EQ(ruleState().strReplyText, whole);
            save(user);
            EXPECT_TRUE(user.isOpen());
            cancel(user);
        });
    expectMessages({{u"Length of Action parameter cannot exceed 2500 characters.", 48}});
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "0");
}

TEST_F(ReplyDialog, FiveThousandAccountsAreASingleChoice) {
    database.execute("DELETE FROM SMS_ACCOUNT");
    addAccounts(5000);
    storeRule("<REPLY>Hi;2500</REPLY>");
    play([](User &user) {
        EXPECT_EQ(ticked(user), Rows{2500});
        user.tickRow(accounts, 5000);
        EXPECT_EQ(ticked(user), Rows{5000});
        confirm(user);
    });
    EXPECT_EQ(ruleState().strReplyAccount, u"5000");
}

TEST_F(ReplyDialog, AHintSaysWhatTheServerReadsWhileTheTextHoldsSpecialCharacters) {
    play([this](User &user) {
        EXPECT_EQ(user.description(text), u"");
        EXPECT_FALSE(user.get<Label>(u"lblTextHint").visible());
        typeInto(user, text, u"R&D");
        EXPECT_EQ(user.description(text), u"");
        user.type(u";");
        EXPECT_EQ(user.description(text), u"The server reads the text up to \";\" only: \"R&D\".");
        EXPECT_TRUE(user.get<Label>(u"lblTextHint").visible());
        user.press(Key::backspace);
        EXPECT_EQ(user.description(text), u"");
        EXPECT_FALSE(user.get<Label>(u"lblTextHint").visible());
        user.type(u" < 3");
        EXPECT_EQ(user.description(text), u"The server reads this text as it stands.");
        empty(user, text);
        paste(user, text, u"a;b\r\nc");
        EXPECT_EQ(user.description(text), u"The server reads the text up to \";\" only: \"a\".");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        user.tickRow(accounts, 1);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strReplyText, u"a;b\r\nc");
}

TEST_F(ReplyDialog, AHintStandsBesideALoadedText) {
    storeRule("<REPLY>Received</b>;5</REPLY>");
    play([](User &user) {
        EXPECT_EQ(user.description(text), u"The server reads this text as it stands.");
        cancel(user);
    });
    beforeDialog = [] { ruleState().strReplyText = u"a;b"; };
    playAgain([](User &user) {
        EXPECT_EQ(user.description(text), u"The server reads the text up to \";\" only: \"a\".");
        cancel(user);
    });
}

} // namespace
} // namespace kvex::test
