#include "tests/windows/ConditionDialogFixture.h"

#include <algorithm>

namespace kvex::test {
namespace {

constexpr auto offered = u"lvwAccountSource";
constexpr auto chosen = u"lvwAccountSelected";
constexpr int idItem = 1;
const std::u16string heading = u"Where the message is received through ";
const std::u16string loadFailed = u"Sub: Form_Load(), Module: frmRuleAccount";

class AccountDialog : public ConditionDialog {
protected:
    static Texts ids(User &user, const char16_t *list) {
        Texts ids;
        auto &view = user.get<ListView>(list);
        for (int row = 1; row <= view.rowCount(); ++row) {
            ids.push_back(view.subItem(row, idItem));
        }
        return ids;
    }
    /// Selects the offered account of this name and presses Add.
    static void add(User &user, std::u16string_view name) {
        const Texts names = user.rows(offered);
        const auto found = std::ranges::find(names, name);
        ASSERT_NE(found, names.end());
        user.clickRow(offered, static_cast<int>(found - names.begin()) + 1);
        user.click(u"cmdAdd");
    }
    /// Adds these accounts one by one, and gives the chosen accounts without the heading.
    Texts chosenAfterAdding(const Texts &names) {
        Texts rows;
        playDialog(accounts, [&](User &user) {
            for (const std::u16string &name : names) {
                add(user, name);
            }
            rows = user.rows(chosen);
            user.press(Key::escape);
        });
        rows.erase(rows.begin());
        return rows;
    }
};

TEST_F(AccountDialog, BeginsInTheOfferedAccountsWithAllButtonsEnabled) {
    database.addAccount(1, "Main");
    database.addAccount(2, "Backup");
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Select Accounts");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"&Accounts");
        EXPECT_EQ(user.get<Label>(u"Label4").caption(), u"Select an Account below and click Add");
        EXPECT_EQ(user.focused(), offered);
        EXPECT_EQ(user.get<ListView>(offered).selectedRow(), 1);
        EXPECT_EQ(user.get<ListView>(chosen).selectedRow(), 0);
        EXPECT_EQ(user.get<ListView>(offered).columnCount(), 2);
        EXPECT_EQ(user.get<ListView>(chosen).columnCount(), 2);
        EXPECT_EQ(user.rows(offered), (Texts{u"Main", u"Backup"}));
        EXPECT_EQ(ids(user, offered), (Texts{u"1", u"2"}));
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_EQ(user.tabOrder(), (Texts{offered, u"cmdCancel", u"cmdOK", u"cmdAdd", u"cmdRemove",
                                          u"cmdOptions", u"cmdClear", chosen}));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(AccountDialog, OffersWhatReceivesInAnyCase) {
    database.addAccount(1, "R", "receiver");
    database.addAccount(2, "TX", "TRANSMITTER");
    database.addAccount(3, "TRX", "TransCeiver");
    database.addAccount(4, "None", "");
    database.addAccount(5, "Blank", " RECEIVER");
    database.addAccount(6, "Null", "");
    database.execute("UPDATE SMS_ACCOUNT SET BIND_MODE = NULL WHERE ID = 6");
    database.addAccount(7, "Gone", "RECEIVER");
    database.execute("UPDATE SMS_ACCOUNT SET DELETED = 1 WHERE ID = 7");
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(offered), (Texts{u"R", u"TRX"}));
        EXPECT_EQ(ids(user, offered), (Texts{u"1", u"3"}));
        EXPECT_TRUE(session().rsAccounts->eof());
        user.press(Key::escape);
    });
}

TEST_F(AccountDialog, WithoutAReceivingAccountAddOnlyEnablesTheButtons) {
    database.addAccount(1, "TX", "TRANSMITTER");
    utility.answers = {message_box::yes};
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(offered), Texts());
        user.click(u"cmdClear");
        EXPECT_EQ(enabledButtons(user), noButtons);
        session().blnChanged = false;
        user.click(u"cmdAdd");
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
}

TEST_F(AccountDialog, WithoutAnyAccountOffersNothing) {
    ruleState().varAccounts = u"3";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(offered), Texts());
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"3");
}

TEST_F(AccountDialog, EnterAddsTheSelectedAccountWithItsId) {
    database.addAccount(3, "Main");
    database.addAccount(7, "Backup");
    playDialog(accounts, [](User &user) {
        user.press(Key::enter);
        EXPECT_TRUE(session().blnChanged);
        user.press(Key::down);
        user.press(Key::enter);
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Main", u"    Backup"}));
        EXPECT_EQ(ids(user, chosen), (Texts{u"", u"3", u"7"}));
        EXPECT_EQ(user.focused(), offered);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"3;7");
}

TEST_F(AccountDialog, AddingTheSameAccountTwiceLeavesOneRowAndTheButtonsAsTheyAre) {
    database.addAccount(3, "Main");
    playDialog(accounts, [](User &user) {
        user.click(u"cmdAdd");
        user.get<CommandButton>(u"cmdClear").setEnabled(false);
        session().blnChanged = false;
        user.click(u"cmdAdd");
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Main"}));
        EXPECT_FALSE(enabled(user, u"cmdClear"));
        EXPECT_TRUE(session().blnChanged);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"3");
}

TEST_F(AccountDialog, ADoubleClickAddsAsAddDoes) {
    database.addAccount(3, "Main");
    database.addAccount(7, "Backup");
    utility.answers = {message_box::yes};
    playDialog(accounts, [](User &user) {
        user.click(u"cmdClear");
        session().blnChanged = false;
        user.doubleClickRow(offered, 2);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.doubleClickRow(offered, 2);
        user.doubleClickRow(offered, 1);
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Backup", u"    Main"}));
        user.doubleClickRow(chosen, 2);
        EXPECT_EQ(user.get<ListView>(chosen).rowCount(), 3);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"7;3");
    expectMessages({clearQuestion});
}

TEST_F(AccountDialog, ADoubleClickBesideTheOfferedAccountsAddsNothing) {
    database.addAccount(3, "Main");
    playDialog(accounts, [](User &user) {
        session().blnChanged = false;
        EXPECT_EQ(user.get<ListView>(offered).selectedRow(), 1);
        user.doubleClickBesideRows(offered);
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdCancel");
    });
}

TEST_F(AccountDialog, OfTwoAccountsWithOneNameOnlyTheFirstCanBeChosen) {
    database.addAccount(1, "Main");
    database.addAccount(2, "MAIN");
    EXPECT_EQ(chosenAfterAdding({u"Main", u"MAIN"}), Texts{u"    Main"});
    EXPECT_EQ(chosenAfterAdding({u"MAIN", u"Main"}), Texts{u"    MAIN"});
}

TEST_F(AccountDialog, ANameThatBeginsWithAChosenOneIsTakenForIt) {
    for (const char *name : {"Main", "Main Office", "Mainz", "Main-2", "Office Main"}) {
        database.addAccount(0, name);
        database.execute("UPDATE SMS_ACCOUNT SET ID = (SELECT MAX(ID) + 1 FROM SMS_ACCOUNT) "
                         "WHERE ID = 0");
    }
    EXPECT_EQ(chosenAfterAdding({u"Main", u"Main Office", u"Mainz", u"Main-2", u"Office Main"}),
              (Texts{u"    Main", u"    Mainz", u"    Office Main"}));
    EXPECT_EQ(chosenAfterAdding({u"Main Office", u"Main", u"Main-2"}),
              (Texts{u"    Main Office", u"    Main-2"}));
}

TEST_F(AccountDialog, StoredAccountsOfOneNameAreBothKept) {
    database.addAccount(1, "Main");
    database.addAccount(2, "Main");
    ruleState().varAccounts = u"1;2;1";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Main", u"    Main", u"    Main"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"1;2;1");
}

TEST_F(AccountDialog, AChosenAccountThatIsNoLongerOfferedKeepsItsRowAndId) {
    database.addAccount(1, "Main");
    database.addAccount(2, "Sender", "TRANSMITTER");
    ruleState().varAccounts = u"2;1";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(offered), Texts{u"Main"});
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Sender", u"    Main"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"2;1");
}

TEST_F(AccountDialog, AVanishedAccountHasANamelessRowAndIsWrittenBack) {
    database.addAccount(1, "Main");
    ruleState().varAccounts = u"9;1";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    ", u"    Main"}));
        EXPECT_EQ(ids(user, chosen), (Texts{u"", u"9", u"1"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"9;1");
}

TEST_F(AccountDialog, IdsAreKeptAsWrittenWithoutBlanksAround) {
    database.addAccount(7, "Main");
    ruleState().varAccounts = u"007; 7 ;7.0";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Main", u"    Main", u"    Main"}));
        EXPECT_EQ(ids(user, chosen), (Texts{u"", u"007", u" 7 ", u"7.0"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"007;7;7.0");
}

TEST_F(AccountDialog, AnIdThatIsNoNumberEndsTheLoadingAndKeepsTheRowsBefore) {
    database.addAccount(1, "Main");
    for (const auto &[stored, number] : {std::pair{u"1;x;1", error_number::typeMismatch},
                                         {u"1;;1", error_number::typeMismatch},
                                         {u"1;9999999999", error_number::overflow}}) {
        ruleState().varAccounts = stored;
        playDialog(accounts, [](User &user) {
            EXPECT_EQ(user.rows(offered), Texts{u"Main"});
            EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Main"}));
            EXPECT_EQ(enabledButtons(user), allButtons);
            user.click(u"cmdOK");
        });
        EXPECT_EQ(ruleState().varAccounts, u"1");
        expectLog({loadFailed});
        EXPECT_EQ(logged.at(0).number, number);
    }
}

TEST_F(AccountDialog, AChosenAccountWithoutNameIsLoggedByTheLookupAndKept) {
    database.addAccount(1, "TX", "TRANSMITTER");
    database.execute("UPDATE SMS_ACCOUNT SET NAME = NULL");
    ruleState().varAccounts = u"1";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"1");
    expectLog({u"Sub: GetAccountName, Module: General"});
}

TEST_F(AccountDialog, AnEmptyListCanBeRemovedFromAndClearedOnce) {
    database.addAccount(1, "Main");
    utility.answers = {message_box::yes};
    playDialog(accounts, [](User &user) {
        user.clickRow(chosen, 1);
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.click(u"cmdClear");
        EXPECT_EQ(enabledButtons(user), noButtons);
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
}

TEST_F(AccountDialog, OkOnAnEmptyListWritesNoAccounts) {
    playDialog(accounts, [](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(ruleState().varAccounts, u"");
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(AccountDialog, NamesAreShownAsTheyAreAndFoundAgain) {
    database.addAccount(1, "Asha's Konto");
    database.addAccount(2, "मुख्य खाता");
    database.addAccount(3, "\xF0\x9F\x93\xB1 Night");
    database.addAccount(4, "  Padded ");
    const Texts names = {u"Asha's Konto", u"मुख्य खाता", u"\U0001F4F1 Night", u"  Padded "};
    playDialog(accounts, [&](User &user) {
        EXPECT_EQ(user.rows(offered), names);
        for (int round = 0; round < 2; ++round) {
            for (const std::u16string &name : names) {
                add(user, name);
            }
        }
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Asha's Konto", u"    मुख्य खाता",
                                            u"    \U0001F4F1 Night", u"      Padded "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"1;2;3;4");
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.get<ListView>(chosen).text(5), u"    Padded");
        user.press(Key::escape);
    });
}

TEST_F(AccountDialog, TheSharedAccessKeyGoesRoundAndPressesNothing) {
    database.addAccount(1, "Main");
    playDialog(accounts, [](User &user) {
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.focused(), u"cmdAdd");
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.focused(), offered);
        user.press(Key::escape);
    });
}

TEST_F(AccountDialog, AccessKeysPressTheirButtons) {
    database.addAccount(1, "Main");
    utility.answers = {message_box::yes};
    playDialog(accounts, [this](User &user) {
        user.click(u"cmdAdd");
        whenShown(u"frmRuleOptions", [](User &options) { options.pressAccessKey(u'O'); });
        user.pressAccessKey(u'P');
        user.clickRow(chosen, 2);
        user.pressAccessKey(u'R');
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        user.click(u"cmdAdd");
        user.pressAccessKey(u'L');
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        user.click(u"cmdAdd");
        user.pressAccessKey(u'O');
    });
    EXPECT_EQ(ruleState().varAccounts, u"1");
    playDialog(accounts, [](User &user) { user.pressAccessKey(u'C'); });
    expectMessages({clearQuestion});
}

TEST_F(AccountDialog, FiveThousandAccountsAreOfferedChosenRemovedAndCleared) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "5000) INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) "
                     "SELECT i, 'Account ' || i, 'RECEIVER' FROM n");
    ruleState().varAccounts = numbersUpTo(4999);
    utility.answers = {message_box::yes};
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.get<ListView>(chosen).text(5000), u"    Account 4999");
        user.clickRow(offered, 5000);
        user.click(u"cmdAdd");
        EXPECT_EQ(user.get<ListView>(chosen).subItem(5001, idItem), u"5000");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, numbersUpTo(5000));
    playDialog(accounts, [](User &user) {
        user.clickRow(chosen, 5001);
        user.click(u"cmdRemove");
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(chosen), Texts{heading});
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
}

TEST_F(AccountDialog, AnAccountWithoutANameKeepsNoOtherFromBeingAdded) {
    database.execute("INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (1, NULL, 'RECEIVER')");
    database.addAccount(2, "Main");
    database.addAccount(3, "Backup");
    ruleState().varAccounts = u"3";
    playDialog(accounts, [](User &user) {
        EXPECT_EQ(user.rows(offered), (Texts{u"", u"Main", u"Backup"}));
        user.clickRow(offered, 1);
        user.click(u"cmdAdd");
        add(user, u"Main");
        EXPECT_EQ(user.rows(chosen), (Texts{heading, u"    Backup", u"    ", u"    Main"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"3;1;2");
    expectLog({});
}

} // namespace
} // namespace kvex::test
