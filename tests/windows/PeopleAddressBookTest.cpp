#include "tests/windows/ConditionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto list = u"lvwPeople";
const std::u16string heading = u"Where the message is from ";
const std::u16string loggedAs = u"Sub: cmdAddressBook_Click, Module: frmRuleEdit";

class PeopleFromAddressBook : public ConditionDialog {
protected:
    /// Presses Address Book once as the user `userId`, and leaves by Cancel.
    void choose(const std::u16string &userId = u"7", const Script &afterwards = {}) {
        if (!sessionOwner) {
            openSession();
        }
        session().strUserID = userId;
        playDialog(people, [&](User &user) {
            user.click(u"cmdAddressBook");
            EXPECT_TRUE(user.isOpen());
            if (afterwards) {
                afterwards(user);
            }
            user.click(u"cmdCancel");
        });
        expectMessages({});
    }
    [[nodiscard]] std::u16string initCall() const {
        return u"init |" + utility.connectionString + u"|1|second|" + session().strLogFile;
    }
    [[nodiscard]] std::vector<Report> reported(const std::u16string &text) const {
        return {{session().strLogFile, text, true, true}};
    }
    static void expectUnchanged(User &user) {
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), noButtons);
        EXPECT_FALSE(session().blnChanged);
    }
};

TEST_F(PeopleFromAddressBook, IsAskedWithTheHostsValuesAndReleased) {
    platform.addressBook.numbers = {u"98", u"99"};
    choose();
    EXPECT_EQ(platform.addressBook.calls,
              (Texts{initCall(), u"selectRecipients 7|True", u"selectedItems", u"selectedNumbers",
                     u"count", u"item 1", u"item 2", u"numbers released", u"items released",
                     u"released"}));
    expectReports({});
    EXPECT_NE(session().strLogFile, u"");
}

TEST_F(PeopleFromAddressBook, ChosenNumbersAreAddedAsTheyAre) {
    platform.addressBook.numbers = {u"98", u"98", u"+91 99", u"Asha's", u"", u" 5 "};
    ruleState().strPeople = u"98";
    choose(u"7", [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98", u"    98", u"    98", u"    +91 99",
                                          u"    Asha's", u"    ", u"     5 "}));
        user.click(u"cmdAddressBook");
        EXPECT_EQ(user.get<ListView>(list).rowCount(), 14);
        EXPECT_TRUE(session().blnChanged);
    });
}

TEST_F(PeopleFromAddressBook, ChosenNumbersEnableTheButtons) {
    platform.addressBook.numbers = {u"98"};
    choose(u"7", [](User &user) { EXPECT_EQ(enabledButtons(user), allButtons); });
    EXPECT_EQ(ruleState().strPeople, u"");
}

TEST_F(PeopleFromAddressBook, ChoosingNoneCountsAsAChangeAndEnablesTheButtons) {
    choose(u"7", [](User &user) {
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_TRUE(session().blnChanged);
    });
}

TEST_F(PeopleFromAddressBook, EveryClickMakesANewOne) {
    choose(u"7", [](User &user) { user.click(u"cmdAddressBook"); });
    EXPECT_EQ(platform.addressBook.created, 2);
}

TEST_F(PeopleFromAddressBook, OneThatCannotBeLoadedIsReported) {
    platform.addressBook.initResult = false;
    choose(u"7", expectUnchanged);
    EXPECT_EQ(platform.addressBook.calls, (Texts{initCall(), u"released"}));
    expectReports(reported(
        u"KVEXMessageRules: Could not load AddressBook. Init() failed on ManageContacts."));
}

TEST_F(PeopleFromAddressBook, ASelectionThatWasNotMadeIsReported) {
    platform.addressBook.numbers = {u"98"};
    for (const std::int32_t code : {0, 2, -1, 32767, -32768}) {
        platform.addressBook.code = code;
        platform.addressBook.calls.clear();
        choose(u"7", expectUnchanged);
        EXPECT_EQ(platform.addressBook.calls,
                  (Texts{initCall(), u"selectRecipients 7|True", u"released"}));
        expectReports(reported(u"KVEXMessageRules: Recipient selection failed on ManageContacts."));
    }
}

TEST_F(PeopleFromAddressBook, ACodeBeyondSixteenBitsIsLoggedUnderTheEditorsName) {
    for (const std::int32_t code : {65537, 32768, -32769}) {
        platform.addressBook.code = code;
        choose(u"7", expectUnchanged);
    }
    expectLog({loggedAs, loggedAs, loggedAs});
    for (const LogEntry &entry : logged) {
        EXPECT_EQ(entry.number, error_number::overflow);
        EXPECT_EQ(entry.logFile, session().strLogFile);
    }
}

TEST_F(PeopleFromAddressBook, OneThatCannotBeCreatedIsLogged) {
    platform.addressBook.creationFails = true;
    choose(u"7", expectUnchanged);
    expectLog({loggedAs});
    EXPECT_EQ(logged.at(0).number, error_number::cannotCreateObject);
    EXPECT_EQ(platform.addressBook.calls, Texts());
}

TEST_F(PeopleFromAddressBook, NumbersThatCannotBeFetchedLeaveTheListAsItWas) {
    platform.addressBook.numbersFail = true;
    ruleState().strPeople = u"98";
    choose(u"7", [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    98"}));
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_TRUE(session().blnChanged);
    });
    expectLog({loggedAs});
    EXPECT_EQ(platform.addressBook.calls.back(), u"released");
}

TEST_F(PeopleFromAddressBook, NumbersBeforeOneThatCannotBeReadStay) {
    platform.addressBook.numbers = {u"91", u"92", u"93"};
    platform.addressBook.failingIndex = 3;
    choose(u"7", [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    91", u"    92"}));
        EXPECT_EQ(enabledButtons(user), noButtons);
        EXPECT_TRUE(session().blnChanged);
    });
    expectLog({loggedAs});
    EXPECT_EQ(logged.at(0).number, error_number::automationError);
    EXPECT_EQ(platform.addressBook.calls.back(), u"released");
}

TEST_F(PeopleFromAddressBook, OneThatGivesNoNumbersIsLogged) {
    platform.addressBook.hasNumbers = false;
    choose(u"7", [](User &user) { EXPECT_EQ(user.rows(list), Texts{heading}); });
    expectLog({loggedAs});
    EXPECT_EQ(logged.at(0).number, error_number::objectNotSet);
}

TEST_F(PeopleFromAddressBook, WhatTheHostMakesOfTheLogFileIsTheLogFileFromThenOn) {
    platform.addressBook.addedToLogFile = u".book";
    utility.addedToLogFile = u".utility";
    platform.addressBook.initResult = false;
    choose(u"7", [](User &user) { user.click(u"cmdAddressBook"); });
    const auto report = [](const char16_t *logFile) {
        return Report{
            logFile,
            u"KVEXMessageRules: Could not load AddressBook. Init() failed on ManageContacts.", true,
            true};
    };
    expectReports({report(u"/usr/lib/kvex\\KVEX.log.book"),
                   report(u"/usr/lib/kvex\\KVEX.log.book.utility.book")});
    EXPECT_EQ(session().strLogFile, u"/usr/lib/kvex\\KVEX.log.book.utility.book.utility");
}

TEST_F(PeopleFromAddressBook, AUserIdThatIsNoNumberFailsAfterInit) {
    for (const auto &[userId, number] : {std::pair{u"", error_number::typeMismatch},
                                         {u"admin", error_number::typeMismatch},
                                         {u"3000000000", error_number::overflow}}) {
        platform.addressBook.calls.clear();
        choose(userId, expectUnchanged);
        expectLog({loggedAs});
        EXPECT_EQ(logged.at(0).number, number);
        EXPECT_EQ(platform.addressBook.calls, (Texts{initCall(), u"released"}));
    }
}

TEST_F(PeopleFromAddressBook, AUserIdIsConvertedAsANumber) {
    choose(u" 12 ");
    EXPECT_EQ(platform.addressBook.calls.at(1), u"selectRecipients 12|True");
}

} // namespace
} // namespace kvex::test
