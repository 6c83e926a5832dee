#include "tests/windows/AlertDialogFixture.h"
#include "tests/windows/Questions.h"

namespace kvex::test {
namespace {

class AlertRecipients : public AlertDialog {};

TEST_F(AlertRecipients, AddIsEnabledWhileTheNumberIsNotBlank) {
    play([](User &user) {
        typeInto(user, number, u"9");
        EXPECT_TRUE(enabled(user, u"cmdAdd"));
        user.press(Key::backspace);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.get<TextBox>(number).setText(u"   ");
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(AlertRecipients, OnlyDigitsCanBeTypedAndNumbersPasted) {
    play([this](User &user) {
        typeInto(user, number, u"+9a.8 -7");
        EXPECT_EQ(user.get<TextBox>(number).text(), u"987");
        paste(user, number, u"-5");
        paste(user, number, u"Asha");
        EXPECT_EQ(user.get<TextBox>(number).text(), u"987");
        paste(user, number, u" 12.5 ");
        EXPECT_EQ(user.get<TextBox>(number).text(), u"987 12.5 ");
        cancel(user);
    });
}

TEST_F(AlertRecipients, EnterAddsTheNumberAndWaitsForTheNext) {
    play([](User &user) {
        typeInto(user, number, u"98");
        user.press(Key::enter);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(people), Texts{u"    98"});
        EXPECT_EQ(user.get<TextBox>(number).text(), u"");
        EXPECT_EQ(user.focused(), number);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        EXPECT_EQ(enabledButtons(user), "RCPO");
        user.press(Key::enter);
        EXPECT_EQ(user.rows(people), Texts{u"    98"});
        EXPECT_TRUE(user.isOpen());
        cancel(user);
    });
}

TEST_F(AlertRecipients, ALongNumberIsTakenWhole) {
    const std::u16string digits(60, u'9');
    play([&](User &user) {
        add(user, digits);
        EXPECT_EQ(user.rows(people), Texts{u"    " + digits});
        cancel(user);
    });
}

TEST_F(AlertRecipients, ANumberIsShownWithTheBlanksAroundItAndStoredWithout) {
    play([this](User &user) {
        typeInto(user, text, u"Look");
        user.tickRow(accounts, 1);
        paste(user, number, u"  98 ");
        user.click(u"cmdAdd");
        EXPECT_EQ(user.rows(people), Texts{u"      98 "});
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertRecipients, u"98");
}

TEST_F(AlertRecipients, WhatIsNoNumberIsAddedToo) {
    play([](User &user) {
        user.get<TextBox>(number).setText(u"Control room");
        user.click(u"cmdAdd");
        EXPECT_EQ(user.rows(people), Texts{u"    Control room"});
        cancel(user);
    });
}

TEST_F(AlertRecipients, TheSameNumberCanBeAddedTwice) {
    storeRule(storedAlert);
    play([](User &user) {
        add(user, u"9812345678");
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertRecipients, u"9812345678;9898989898;9812345678");
}

TEST_F(AlertRecipients, AddingBlanksOnlyEmptiesTheBoxAndEnablesTheButtons) {
    play([](User &user) {
        user.get<TextBox>(number).setText(u"  ");
        user.get<CommandButton>(u"cmdAdd").onClick();
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(user.get<TextBox>(number).text(), u"");
        EXPECT_EQ(user.focused(), number);
        EXPECT_EQ(enabledButtons(user), "RCPO");
        user.click(u"cmdRemove");
        EXPECT_EQ(enabledButtons(user), "RCPO");
        cancel(user);
    });
}

TEST_F(AlertRecipients, RemoveTakesTheSelectedRecipientAndThenTheNext) {
    storeRule("<ALERT>Look;5;1;2;3</ALERT>");
    play([](User &user) {
        session().blnChanged = false;
        user.clickRow(people, 1);
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(people), (Texts{u"    2", u"    3"}));
        user.click(u"cmdRemove");
        EXPECT_EQ(enabledButtons(user), "RCPO");
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(enabledButtons(user), "");
        cancel(user);
    });
}

TEST_F(AlertRecipients, RemoveWithoutASelectionOnlySetsTheChangeFlag) {
    storeRule(storedAlert);
    play([](User &user) {
        session().blnChanged = false;
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.get<ListView>(people).rowCount(), 2);
        EXPECT_EQ(enabledButtons(user), "RCPO");
        cancel(user);
    });
}

TEST_F(AlertRecipients, AnsweringNoKeepsTheListAndSetsTheChangeFlag) {
    storeRule(storedAlert);
    utility.answers = {message_box::no};
    play([](User &user) {
        session().blnChanged = false;
        user.click(u"cmdClear");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.get<ListView>(people).rowCount(), 2);
        EXPECT_EQ(enabledButtons(user), "RCPO");
        cancel(user);
    });
    expectMessages({clearQuestion});
}

TEST_F(AlertRecipients, OnlyYesClearsTheList) {
    storeRule(storedAlert);
    utility.answers = {message_box::ok, message_box::yes};
    utility.onMessage = [] { EXPECT_TRUE(session().blnChanged); };
    play([](User &user) {
        session().blnChanged = false;
        user.click(u"cmdClear");
        EXPECT_EQ(user.get<ListView>(people).rowCount(), 2);
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(enabledButtons(user), "");
        EXPECT_EQ(typed(user), u"Look");
        cancel(user);
    });
    expectMessages({clearQuestion, clearQuestion});
}

TEST_F(AlertRecipients, TheAddressBookIsAskedAndItsNumbersAreAdded) {
    platform.addressBook.numbers = {u"91", u" 92", u"Asha"};
    play([this](User &user) {
        user.click(u"cmdAddressBook");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(people), (Texts{u"    91", u"     92", u"    Asha"}));
        EXPECT_EQ(enabledButtons(user), "RCPO");
        user.click(u"cmdAddressBook");
        EXPECT_EQ(user.get<ListView>(people).rowCount(), 6);
        EXPECT_EQ(platform.addressBook.created, 2);
        typeInto(user, text, u"Look");
        user.tickRow(accounts, 1);
        confirm(user);
    });
    const auto &calls = platform.addressBook.calls;
    EXPECT_EQ(Texts(calls.begin(), calls.begin() + 11),
              (Texts{u"init |" + database.connectionString() + u"|1|second|/usr/lib/kvex\\KVEX.log",
                     u"selectRecipients 1|True", u"selectedItems", u"selectedNumbers", u"count",
                     u"item 1", u"item 2", u"item 3", u"numbers released", u"items released",
                     u"released"}));
    EXPECT_EQ(ruleState().strAlertRecipients, u"91;92;Asha;91;92;Asha");
}

TEST_F(AlertRecipients, AnAddressBookThatCannotBeLoadedIsReported) {
    platform.addressBook.initResult = false;
    play([](User &user) {
        user.click(u"cmdAddressBook");
        EXPECT_FALSE(session().blnChanged);
        EXPECT_EQ(user.rows(people), Texts());
        EXPECT_EQ(enabledButtons(user), "");
        cancel(user);
    });
    expectReports({{u"/usr/lib/kvex\\KVEX.log",
                    u"KVEXMessageRules: Could not load AddressBook. Init() failed "
                    u"on ManageContacts.",
                    true, true}});
    EXPECT_EQ(platform.addressBook.calls.back(), u"released");
}

TEST_F(AlertRecipients, ACancelledSelectionIsReportedAndChangesNothing) {
    platform.addressBook.numbers = {u"91"};
    for (const std::int32_t code : {0, 2, -1}) {
        platform.addressBook.code = code;
        playAgain([](User &user) {
            user.click(u"cmdAddressBook");
            EXPECT_FALSE(session().blnChanged);
            EXPECT_EQ(user.rows(people), Texts());
            EXPECT_EQ(enabledButtons(user), "");
            cancel(user);
        });
        expectReports(
            {{u"/usr/lib/kvex\\KVEX.log",
              u"KVEXMessageRules: Recipient selection failed on ManageContacts.", true, true}});
    }
}

TEST_F(AlertRecipients, ASelectionOfNobodyLeavesTheButtonsButSetsTheChangeFlag) {
    play([](User &user) {
        user.click(u"cmdAddressBook");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(enabledButtons(user), "");
        cancel(user);
    });
}

TEST_F(AlertRecipients, AddressBookErrorsAreLoggedUnderTheAlertsOwnModule) {
    platform.addressBook.creationFails = true;
    play([this](User &user) {
        user.click(u"cmdAddressBook");
        platform.addressBook.creationFails = false;
        platform.addressBook.code = 40000;
        user.click(u"cmdAddressBook");
        platform.addressBook.code = 1;
        platform.addressBook.numbersFail = true;
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdAddressBook");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(people), Texts());
        cancel(user);
    });
    const std::u16string entry = u"Sub: cmdAddressBook_Click, Module: frmRuleAlert";
    expectLog({entry, entry, entry});
    EXPECT_EQ(logged.at(1).number, error_number::overflow);
    EXPECT_EQ(platform.addressBook.calls.back(), u"released");
}

TEST_F(AlertRecipients, FiveThousandRecipientsAreShownWrittenAndCleared) {
    std::u16string numbers = u"1";
    for (std::int64_t i = 2; i <= 5000; ++i) {
        numbers += u";" + toText(i);
    }
    beforeDialog = [&] {
        ruleState().strAlertRecipients = numbers;
        ruleState().strAlertAccount = u"2";
        ruleState().strAlertText = u"Look";
    };
    utility.answers = {message_box::yes};
    play([&](User &user) {
        EXPECT_EQ(user.get<ListView>(people).text(5000), u"    5000");
        confirm(user);
    });
    EXPECT_EQ(ruleState().strAlertRecipients, numbers);
    playAgain([&](User &user) {
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(people), Texts());
        cancel(user);
    });
    expectMessages({clearQuestion});
}

TEST_F(AlertRecipients, AHintSaysWhatTheServerReadsOfThem) {
    storeRule("<ALERT>Look;5;98<12;99</ALERT>");
    platform.addressBook.numbers = {u"97;96"};
    play([](User &user) {
        EXPECT_EQ(user.description(number), u"The server reads these numbers as they stand.");
        user.clickRow(people, 1);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.description(number), u"");
        user.get<TextBox>(number).setText(u"1;2");
        EXPECT_EQ(user.description(number), u"The server reads \"1;2\" as \"1\" and \"2\".");
        user.get<TextBox>(number).setText(u"");
        EXPECT_EQ(user.description(number), u"");
        user.click(u"cmdAddressBook");
        EXPECT_EQ(user.description(number), u"The server reads \"97;96\" as \"97\" and \"96\".");
        EXPECT_EQ(user.description(text), u"");
        cancel(user);
    });
}

} // namespace
} // namespace kvex::test
