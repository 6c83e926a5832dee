// What a user does in the address book, and sees there.
#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/headless/User.h"
#include "tests/addressbook/AddressBookTest.h"

namespace kvex::test {
namespace {

using controls::Key;
using headless::User;
using Script = headless::HeadlessToolkit::Script;

class AddressBookWindow : public AddressBookTest {
protected:
    void TearDown() override {
        EXPECT_EQ(toolkit.problems(), std::vector<std::string>());
        EXPECT_EQ(toolkit.pendingScripts(), 0U);
        EXPECT_EQ(toolkit.unhandledErrors().size(), 0U);
    }

    /// Asha, Ravi and Zoë, with two numbers that are written with marks.
    void addThree() {
        addContact("'Ravi Kumar'", "'98111-00022'");
        addContact("'Zoë O''Neill'", "'+91 (98111) 00033'");
        addContact("'asha Rao'", "'9811100011'");
    }

    LONG play(Script script, bool multiple = true) {
        toolkit.whenShown(u"frmAddressBook", std::move(script));
        LONG code = -1;
        EXPECT_EQ(book().SelectRecipients(1, multiple ? VARIANT_TRUE : VARIANT_FALSE, &code), S_OK);
        return code;
    }
    LONG playOne(Script script) { return play(std::move(script), false); }

    IManageContacts &book() {
        if (!book_) {
            book_ = open(toolkit);
        }
        return *book_;
    }
    Texts numbers() { return numbersOf(book()); }

    static std::u16string caption(User &user, std::u16string_view label) {
        return user.get<Label>(label).caption();
    }
    static bool enabled(User &user, std::u16string_view button) {
        return user.get<CommandButton>(button).enabled();
    }

    headless::HeadlessToolkit toolkit;

private:
    ComPointer<IManageContacts> book_;
};

TEST_F(AddressBookWindow, ShowsTheUsersContactsAndNobodysInTheOrderOfTheirNames) {
    addThree();
    addContact("'Everybody''s'", "'1'", "NULL");
    addContact("'Another user''s'", "'2'", "2");
    addContact("'Deleted'", "'3'", "1", "1");
    addContact("'Without number'", "NULL");
    play([](User &user) {
        EXPECT_EQ(user.window().caption(), u"Address Book");
        EXPECT_EQ(user.rows(u"lvwContacts"),
                  (Texts{u"asha Rao", u"Everybody's", u"Ravi Kumar", u"Zoë O'Neill"}));
        EXPECT_EQ(user.get<ListView>(u"lvwContacts").subItem(1, 1), u"9811100011");
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, SearchesWithEachKey) {
    addThree();
    play([](User &user) {
        EXPECT_EQ(user.focused(), u"txtSearch");
        user.type(u"r");
        EXPECT_EQ(user.rows(u"lvwContacts"), (Texts{u"asha Rao", u"Ravi Kumar"}));
        user.type(u"A ku");
        EXPECT_EQ(user.rows(u"lvwContacts"), (Texts{u"Ravi Kumar"}));
        for (int i = 0; i < 5; ++i) {
            user.press(Key::backspace);
        }
        EXPECT_EQ(user.get<ListView>(u"lvwContacts").rowCount(), 3);
        user.type(u"9811100033");
        EXPECT_EQ(user.rows(u"lvwContacts"), (Texts{u"Zoë O'Neill"}));
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, KeepsTicksWhateverTheSearchShows) {
    addThree();
    EXPECT_EQ(play([](User &user) {
                  user.tickRow(u"lvwContacts", 3);
                  user.focusOn(u"txtSearch");
                  user.type(u"asha");
                  EXPECT_FALSE(user.get<ListView>(u"lvwContacts").checked(1));
                  user.tickRow(u"lvwContacts", 1);
                  EXPECT_EQ(caption(user, u"lblCount"), u"2 contacts selected");
                  user.get<TextBox>(u"txtSearch").setText(u"");
                  EXPECT_TRUE(user.get<ListView>(u"lvwContacts").checked(1));
                  EXPECT_FALSE(user.get<ListView>(u"lvwContacts").checked(2));
                  EXPECT_TRUE(user.get<ListView>(u"lvwContacts").checked(3));
                  user.get<TextBox>(u"txtSearch").setText(u"ravi");
                  user.click(u"cmdSelect");
              }),
              1);
    EXPECT_EQ(namesOf(book()), (Texts{u"asha Rao", u"Zoë O'Neill"}));
    EXPECT_EQ(numbers(), (Texts{u"9811100011", u"+91 (98111) 00033"}));
}

TEST_F(AddressBookWindow, CountsTheSelection) {
    addThree();
    play([](User &user) {
        EXPECT_EQ(caption(user, u"lblCount"), u"No contact selected");
        user.tickRow(u"lvwContacts", 1);
        EXPECT_EQ(caption(user, u"lblCount"), u"1 contact selected");
        user.tickRow(u"lvwContacts", 2);
        EXPECT_EQ(caption(user, u"lblCount"), u"2 contacts selected");
        user.tickRow(u"lvwContacts", 1);
        user.tickRow(u"lvwContacts", 2);
        EXPECT_EQ(caption(user, u"lblCount"), u"No contact selected");
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, SelectsOnlyWhatIsTicked) {
    addThree();
    play([](User &user) {
        EXPECT_FALSE(enabled(user, u"cmdSelect"));
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
        user.clickRow(u"lvwContacts", 1);
        EXPECT_FALSE(enabled(user, u"cmdSelect"));
        user.press(Key::space);
        EXPECT_TRUE(enabled(user, u"cmdSelect"));
        user.press(Key::space);
        EXPECT_FALSE(enabled(user, u"cmdSelect"));
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, IsUsedByKeyboardAlone) {
    addThree();
    EXPECT_EQ(play([](User &user) {
                  user.type(u"ravi");
                  user.pressAccessKey(u'O');
                  user.press(Key::down);
                  user.press(Key::space);
                  user.pressAccessKey(u'F');
                  EXPECT_EQ(user.focused(), u"txtSearch");
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbers(), (Texts{u"98111-00022"}));
}

TEST_F(AddressBookWindow, TicksAllThatAreShownAndClearsAllThatAreTicked) {
    addThree();
    play([](User &user) {
        EXPECT_FALSE(enabled(user, u"cmdClear"));
        user.type(u"ra");
        user.pressAccessKey(u'T');
        EXPECT_EQ(caption(user, u"lblCount"), u"2 contacts selected");
        EXPECT_TRUE(user.get<ListView>(u"lvwContacts").checked(2));
        EXPECT_FALSE(enabled(user, u"cmdTickAll"));
        user.get<TextBox>(u"txtSearch").setText(u"z");
        EXPECT_TRUE(enabled(user, u"cmdTickAll"));
        user.pressAccessKey(u'L');
        EXPECT_EQ(caption(user, u"lblCount"), u"No contact selected");
        EXPECT_FALSE(enabled(user, u"cmdSelect"));
        user.get<TextBox>(u"txtSearch").setText(u"");
        EXPECT_FALSE(user.get<ListView>(u"lvwContacts").checked(1));
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, TickingAllLeavesTheFocusWhereTheUserWasAndEnterSelects) {
    addThree();
    EXPECT_EQ(play([](User &user) {
                  user.click(u"cmdTickAll");
                  EXPECT_EQ(user.focused(), u"txtSearch");
                  user.pressAccessKey(u'L');
                  EXPECT_EQ(user.focused(), u"txtSearch");
                  user.press(Key::tab);
                  user.press(Key::tab);
                  EXPECT_EQ(user.focused(), u"cmdTickAll");
                  user.press(Key::enter);
                  EXPECT_EQ(user.focused(), u"lvwContacts");
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbers().size(), 3U);
}

TEST_F(AddressBookWindow, TabGoesToTheFirstContactWhichSpaceTicks) {
    addThree();
    EXPECT_EQ(play([](User &user) {
                  user.press(Key::tab);
                  user.press(Key::space);
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbers(), Texts{u"9811100011"});
}

TEST_F(AddressBookWindow, ForOneContactTabChoosesNone) {
    addThree();
    EXPECT_EQ(playOne([](User &user) {
                  user.press(Key::tab);
                  EXPECT_EQ(user.get<ListView>(u"lvwContacts").selectedRow(), 0);
                  EXPECT_FALSE(enabled(user, u"cmdSelect"));
                  user.press(Key::escape);
              }),
              0);
}

TEST_F(AddressBookWindow, ADoubleClickTicks) {
    addThree();
    EXPECT_EQ(play([](User &user) {
                  user.doubleClickRow(u"lvwContacts", 2);
                  user.doubleClickRow(u"lvwContacts", 1);
                  user.doubleClickRow(u"lvwContacts", 1);
                  EXPECT_TRUE(user.isOpen());
                  user.click(u"cmdSelect");
              }),
              1);
    EXPECT_EQ(numbers(), (Texts{u"98111-00022"}));
}

TEST_F(AddressBookWindow, SelectsNothingWhenItIsCancelled) {
    addThree();
    const std::vector<Script> ways{[](User &user) { user.click(u"cmdCancel"); },
                                   [](User &user) { user.press(Key::escape); },
                                   [](User &user) { user.closeByFrame(); }};
    for (const Script &leave : ways) {
        EXPECT_EQ(play([&](User &user) {
                      user.tickRow(u"lvwContacts", 1);
                      leave(user);
                  }),
                  0);
        EXPECT_EQ(numbers(), Texts());
    }
}

TEST_F(AddressBookWindow, ForgetsTheLastSelection) {
    addThree();
    play([](User &user) {
        user.tickRow(u"lvwContacts", 1);
        user.click(u"cmdSelect");
    });
    play([](User &user) {
        EXPECT_FALSE(user.get<ListView>(u"lvwContacts").checked(1));
        user.press(Key::escape);
    });
    EXPECT_EQ(numbers(), Texts());
}

TEST_F(AddressBookWindow, ForOneContactTakesTheSelectedRow) {
    addThree();
    EXPECT_EQ(playOne([](User &user) {
                  EXPECT_FALSE(user.get<CommandButton>(u"cmdTickAll").visible());
                  EXPECT_FALSE(enabled(user, u"cmdSelect"));
                  user.clickRow(u"lvwContacts", 3);
                  user.clickRow(u"lvwContacts", 2);
                  EXPECT_EQ(caption(user, u"lblCount"), u"1 contact selected");
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbers(), (Texts{u"98111-00022"}));
}

TEST_F(AddressBookWindow, ForOneContactADoubleClickSelects) {
    addThree();
    EXPECT_EQ(playOne([](User &user) { user.doubleClickRow(u"lvwContacts", 1); }), 1);
    EXPECT_EQ(numbers(), (Texts{u"9811100011"}));
}

TEST_F(AddressBookWindow, ForOneContactTheChoiceIsLostWithItsRow) {
    addThree();
    playOne([](User &user) {
        user.clickRow(u"lvwContacts", 2);
        user.get<TextBox>(u"txtSearch").setText(u"ra");
        EXPECT_EQ(user.get<ListView>(u"lvwContacts").selectedRow(), 2);
        EXPECT_TRUE(enabled(user, u"cmdSelect"));
        user.get<TextBox>(u"txtSearch").setText(u"asha");
        EXPECT_FALSE(enabled(user, u"cmdSelect"));
        EXPECT_EQ(caption(user, u"lblCount"), u"No contact selected");
        user.get<TextBox>(u"txtSearch").setText(u"");
        user.clickRow(u"lvwContacts", 1);
        user.get<ListView>(u"lvwContacts").deselect(1);
        user.click(u"cmdSelect");
        EXPECT_TRUE(user.isOpen());
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, SaysHowToFillAnEmptyBook) {
    EXPECT_EQ(play([](User &user) {
                  EXPECT_NE(caption(user, u"lblHint").find(u"kvexrules contacts import FILE"),
                            std::u16string::npos);
                  EXPECT_FALSE(enabled(user, u"cmdTickAll"));
                  user.type(u"x");
                  EXPECT_NE(caption(user, u"lblHint").find(u"is empty"), std::u16string::npos);
                  user.press(Key::escape);
              }),
              0);
}

TEST_F(AddressBookWindow, SaysWhenTheSearchFindsNothing) {
    addThree();
    play([](User &user) {
        const std::u16string before = caption(user, u"lblHint");
        user.type(u"zz");
        EXPECT_EQ(user.get<ListView>(u"lvwContacts").rowCount(), 0);
        EXPECT_EQ(caption(user, u"lblHint").find(u"No contact"), 0U);
        user.press(Key::backspace);
        EXPECT_EQ(caption(user, u"lblHint"), before);
        user.press(Key::escape);
    });
}

TEST_F(AddressBookWindow, KeepsNamesAndNumbersAsTheyAre) {
    addContact("' O''Neill '' '", "' 98 '");
    addContact("'अनिल गुप्ता 🚨'", "'+91'");
    addContact("'अनिल गुप्ता 🚨'", "'+91'");
    EXPECT_EQ(play([](User &user) {
                  user.click(u"cmdTickAll");
                  user.click(u"cmdSelect");
              }),
              1);
    EXPECT_EQ(namesOf(book()), (Texts{u" O'Neill ' ", u"अनिल गुप्ता 🚨", u"अनिल गुप्ता 🚨"}));
    EXPECT_EQ(numbers(), (Texts{u" 98 ", u"+91", u"+91"}));
}

TEST_F(AddressBookWindow, HoldsFiftyThousandContacts) {
    addFiftyThousand();
    EXPECT_EQ(play([](User &user) {
                  EXPECT_EQ(user.get<ListView>(u"lvwContacts").rowCount(), 50000);
                  user.type(u"contact 49999");
                  EXPECT_EQ(user.rows(u"lvwContacts"), (Texts{u"Contact 49999"}));
                  user.tickRow(u"lvwContacts", 1);
                  user.get<TextBox>(u"txtSearch").setText(u"9800049");
                  EXPECT_EQ(user.get<ListView>(u"lvwContacts").rowCount(), 1000);
                  user.click(u"cmdTickAll");
                  EXPECT_EQ(caption(user, u"lblCount"), u"1000 contacts selected");
                  user.click(u"cmdSelect");
              }),
              1);
    EXPECT_EQ(numbers().size(), 1000U);
    EXPECT_EQ(numbers().front(), u"9800049000");
}

TEST_F(AddressBookWindow, WalksItsControlsInTheirOrder) {
    addThree();
    play([](User &user) {
        user.tickRow(u"lvwContacts", 1);
        EXPECT_EQ(user.tabOrder(), (Texts{u"txtSearch", u"lvwContacts", u"cmdTickAll", u"cmdClear",
                                          u"cmdSelect", u"cmdCancel"}));
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
