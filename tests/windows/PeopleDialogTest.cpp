#include "tests/windows/ConditionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto list = u"lvwPeople";
const std::u16string heading = u"Where the message is from ";

class PeopleDialog : public ConditionDialog {
protected:
    static std::u16string box(User &user) { return user.get<TextBox>(u"txtMobileNo").text(); }
    /// Sets the text of the box past the key filter, and presses Add.
    static void addText(User &user, const std::u16string &text) {
        user.get<TextBox>(u"txtMobileNo").setText(text);
        runClick(user, u"cmdAdd");
    }
};

TEST_F(PeopleDialog, BeginsWithTheNumberBoxAndWaitingButtons) {
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Select People");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"&People");
        EXPECT_EQ(user.get<Label>(u"Label4").caption(),
                  u"Type one mobile number at a time and click Add, or select numbers from the "
                  u"Address Book");
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        EXPECT_EQ(user.get<ListView>(list).columnCount(), 1);
        EXPECT_EQ(user.get<ListView>(list).selectedRow(), 0);
        EXPECT_EQ(user.tabOrder(), (Texts{u"cmdAddressBook", u"cmdCancel", u"txtMobileNo", list}));
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, TabWalksInTheOrderOfTheDesign) {
    ruleState().strPeople = u"98";
    playDialog(people, [](User &user) {
        user.type(u"9");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAddressBook", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtMobileNo", list}));
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, WithoutNumbersShowsTheHeadingAloneAndDisablesTheButtons) {
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), noButtons);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        EXPECT_TRUE(enabled(user, u"cmdAddressBook"));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(PeopleDialog, StoredNumbersStandIndentedBelowTheHeading) {
    ruleState().strPeople = u"98; 99 ;abc";
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98", u"     99 ", u"    abc"}));
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"98;99;abc");
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(PeopleDialog, AnEmptyElementIsARowOfBlanksAndIsWrittenBack) {
    ruleState().strPeople = u"98;;99";
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98", u"    ", u"    99"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"98;;99");
}

TEST_F(PeopleDialog, OneTrailingSeparatorIsDroppedFromTheJoinedNumbers) {
    ruleState().strPeople = u"98;";
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98", u"    "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"98;");
    ruleState().strPeople = u";";
    playDialog(people, [](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(ruleState().strPeople, u";");
}

TEST_F(PeopleDialog, AddIsEnabledWhileTheBoxHoldsMoreThanBlanks) {
    playDialog(people, [](User &user) {
        user.type(u"9");
        EXPECT_TRUE(enabled(user, u"cmdAdd"));
        user.press(Key::backspace);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.get<TextBox>(u"txtMobileNo").setText(u"   ");
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.get<TextBox>(u"txtMobileNo").setText(u" 9 ");
        EXPECT_TRUE(enabled(user, u"cmdAdd"));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(PeopleDialog, EnterAddsTheTypedNumberAndAwaitsTheNext) {
    playDialog(people, [](User &user) {
        user.type(u"9811100011");
        user.press(Key::enter);
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    9811100011"}));
        EXPECT_EQ(box(user), u"");
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.get<ListView>(list).rowCount(), 2);
        user.type(u"42");
        user.click(u"cmdAdd");
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"9811100011;42");
}

TEST_F(PeopleDialog, OnlyDigitsCanBeTyped) {
    playDialog(people, [](User &user) {
        user.type(u"+9a8. -7,६e१\U0001F4F16");
        EXPECT_EQ(box(user), u"9876");
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, CopyCutAndTabPassTheKeyFilter) {
    playDialog(people, [this](User &user) {
        user.type(u"98");
        user.press(Key::selectAll);
        user.press(Key::copy);
        EXPECT_EQ(toolkit.clipboard().text(), u"98");
        user.press(Key::cut);
        EXPECT_EQ(box(user), u"");
        user.press(Key::paste);
        EXPECT_EQ(box(user), u"98");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), list);
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, APasteIsTakenWhenItIsANumberThatIsNotNegative) {
    playDialog(people, [this](User &user) {
        for (const char16_t *taken : {u"12.5", u" 42 ", u"007", u"+5", u"1e3", u"0", u"-0"}) {
            paste(user, taken);
            EXPECT_EQ(box(user), taken);
            user.press(Key::selectAll);
            user.press(Key::deleteKey);
        }
        for (const char16_t *refused : {u"-5", u"98;99", u"abc", u"   ", u"1e999", u"९८", u""}) {
            paste(user, refused);
            EXPECT_EQ(box(user), u"") << utf8(refused);
        }
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, BlanksAroundAPastedNumberAreShownAndNotStored) {
    playDialog(people, [this](User &user) {
        paste(user, u" 42 ");
        user.press(Key::enter);
        EXPECT_EQ(user.rows(list), (Texts{heading, u"     42 "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"42");
}

TEST_F(PeopleDialog, TheBoxTakesTwentyCharactersAndTheListAnyLength) {
    const std::u16string stored(30, u'7');
    ruleState().strPeople = stored;
    playDialog(people, [&](User &user) {
        user.type(std::u16string(25, u'1'));
        EXPECT_EQ(box(user), std::u16string(20, u'1'));
        user.press(Key::enter);
        paste(user, std::u16string(25, u'2'));
        EXPECT_EQ(box(user), std::u16string(20, u'2'));
        user.press(Key::enter);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople,
              stored + u";" + std::u16string(20, u'1') + u";" + std::u16string(20, u'2'));
}

TEST_F(PeopleDialog, AnEntryThatIsNoNumberIsRefusedWithAMessage) {
    utility.onMessage = [] { EXPECT_TRUE(session().blnChanged); };
    playDialog(people, [](User &user) {
        for (const char16_t *text : {u"12a", u"98;99", u"+"}) {
            addText(user, text);
            EXPECT_EQ(box(user), u"");
            EXPECT_EQ(user.focused(), u"txtMobileNo");
            EXPECT_EQ(enabledButtons(user), allButtons);
        }
        EXPECT_EQ(user.rows(list), Texts{heading});
        user.press(Key::escape);
    });
    expectMessages(std::vector<Message>(
        3, {u"Please enter a numeric mobile number.", message_box::exclamation}));
}

TEST_F(PeopleDialog, SignsFractionsAndExponentsAreNumbers) {
    playDialog(people, [](User &user) {
        for (const char16_t *text : {u"-5", u"+91", u"12.5", u"1e3"}) {
            addText(user, text);
        }
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"-5;+91;12.5;1e3");
}

TEST_F(PeopleDialog, BlanksOnlyClearTheBoxAndEnableTheButtons) {
    playDialog(people, [](User &user) {
        addText(user, u"   ");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(box(user), u"");
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.press(Key::escape);
    });
}

TEST_F(PeopleDialog, TheSameNumberTwiceIsKeptTwice) {
    playDialog(people, [](User &user) {
        for (int i = 0; i < 2; ++i) {
            user.type(u"98");
            user.press(Key::enter);
        }
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98", u"    98"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"98;98");
}

TEST_F(PeopleDialog, OkWithTheHeadingAloneWritesNoNumbers) {
    ruleState().strPeople = u"98";
    playDialog(people, [](User &user) {
        user.clickRow(list, 2);
        user.click(u"cmdRemove");
        addText(user, u" ");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, u"");
}

TEST_F(PeopleDialog, AFailureWhileAddingIsLoggedAndEndsTheHandler) {
    utility.onMessage = [] { throw Error(error_number::automationError); };
    playDialog(people, [](User &user) {
        addText(user, u"abc");
        EXPECT_EQ(box(user), u"abc");
        EXPECT_EQ(enabledButtons(user), noButtons);
        user.press(Key::escape);
    });
    expectLog({u"Sub: cmdAdd_Click, Module: frmRulePeople"});
    EXPECT_TRUE(session().blnChanged);
    expectMessages({{u"Please enter a numeric mobile number.", 48}});
}

TEST_F(PeopleDialog, AccessKeysReachEveryControlThatHasOne) {
    session().strUserID = u"1";
    ruleState().strPeople = u"98;99";
    playDialog(people, [this](User &user) {
        user.type(u"5");
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.get<ListView>(list).rowCount(), 4);
        user.clickRow(list, 4);
        user.pressAccessKey(u'R');
        EXPECT_EQ(user.get<ListView>(list).rowCount(), 3);
        user.pressAccessKey(u'P');
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        user.pressAccessKey(u'B');
        EXPECT_EQ(platform.addressBook.created, 1);
        whenShown(u"frmRuleOptions", [](User &options) { options.pressAccessKey(u'C'); });
        user.pressAccessKey(u'T');
        utility.answers = {message_box::yes};
        user.pressAccessKey(u'L');
        EXPECT_EQ(user.rows(list), Texts{heading});
        user.pressAccessKey(u'C');
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strPeople, u"98;99");
    ruleState().strPeople = u"42;";
    playDialog(people, [](User &user) {
        user.clickRow(list, 3);
        user.pressAccessKey(u'R');
        user.pressAccessKey(u'O');
    });
    EXPECT_EQ(ruleState().strPeople, u"42");
    expectMessages({clearQuestion});
}

TEST_F(PeopleDialog, FiveThousandNumbersAreShownRemovedAndWritten) {
    ruleState().strPeople = numbersUpTo(5000);
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.get<ListView>(list).rowCount(), 5001);
        EXPECT_EQ(user.get<ListView>(list).text(5001), u"    5000");
        user.clickRow(list, 5001);
        user.click(u"cmdRemove");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, numbersUpTo(4999));
    utility.answers = {message_box::yes};
    playDialog(people, [](User &user) {
        user.click(u"cmdClear");
        EXPECT_EQ(user.rows(list), Texts{heading});
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
}

TEST_F(PeopleDialog, AHintSaysWhatTheServerReadsOfTheNumbers) {
    ruleState().strPeople = u"98</WORD>;99";
    ruleState().strWords = u"STOP";
    platform.addressBook.numbers = {u"97;96"};
    playDialog(people, [](User &user) {
        EXPECT_EQ(user.description(u"txtMobileNo"),
                  u"With these numbers the server cannot read the rule to its end.");
        user.clickRow(list, 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.description(u"txtMobileNo"), u"");
        session().strUserID = u"1";
        user.click(u"cmdAddressBook");
        EXPECT_EQ(user.description(u"txtMobileNo"),
                  u"The server reads \"97;96\" as \"97\" and \"96\".");
        user.get<TextBox>(u"txtMobileNo").setText(u"1<");
        user.clickRow(list, 3);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.description(u"txtMobileNo"),
                  u"The server reads these numbers as they stand.");
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
