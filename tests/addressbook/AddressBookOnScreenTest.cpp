// The address book on a real toolkit, with real keys and the mouse.
#include "adapters/qt/QtToolkit.h"
#include "tests/addressbook/AddressBookTest.h"
#include "tests/support/QtPlay.h"
#include "tests/windows/WindowCheck.h"

#include <QWidget>

namespace kvex::test {
namespace {

using controls::Key;

class AddressBookOnScreen : public AddressBookTest {
protected:
    void TearDown() override {
        EXPECT_EQ(play.problems(), std::vector<std::string>());
        EXPECT_EQ(play.pendingScripts(), 0U);
    }

    LONG select(QtPlay::Script script, bool multiple = true) {
        book = open(toolkit);
        play.whenShown(u"frmAddressBook", std::move(script));
        LONG code = -1;
        EXPECT_EQ(book->SelectRecipients(1, multiple ? VARIANT_TRUE : VARIANT_FALSE, &code), S_OK);
        return code;
    }

    QtPlay play;
    qt::QtToolkit toolkit;
    ComPointer<IManageContacts> book;
};

TEST_F(AddressBookOnScreen, ContactsAreSearchedTickedAndSelectedByKeyboardAlone) {
    addContact("'Ravi Kumar'", "'98111-00022'");
    addContact("'अनिल गुप्ता'", "'9811100033'");
    addContact("'Zoë O''Neill'", "'9811100055'");
    EXPECT_EQ(select([](QtUser &user) {
                  EXPECT_EQ(user.focused(), u"txtSearch");
                  user.type(u"अनिल");
                  EXPECT_EQ(user.rows(u"lvwContacts"), (Texts{u"अनिल गुप्ता"}));
                  user.pressAccessKey(u'O');
                  EXPECT_EQ(user.focused(), u"lvwContacts");
                  user.press(Key::down);
                  user.press(Key::space);
                  user.pressAccessKey(u'F');
                  user.press(Key::selectAll);
                  user.type(u"9811100022");
                  user.press(Key::tab);
                  user.press(Key::down);
                  user.press(Key::space);
                  EXPECT_EQ(user.get<Label>(u"lblCount").caption(), u"2 contacts selected");
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbersOf(*book), (Texts{u"98111-00022", u"9811100033"}));
}

TEST_F(AddressBookOnScreen, TickingAllLeavesTheFocusWhereTheUserWasAndEnterSelects) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    EXPECT_EQ(select([](QtUser &user) {
                  user.press(Key::tab);
                  EXPECT_EQ(user.get<ListView>(u"lvwContacts").selectedRow(), 1);
                  user.press(Key::space);
                  user.pressAccessKey(u'T');
                  EXPECT_EQ(user.focused(), u"lvwContacts");
                  user.press(Key::enter);
              }),
              1);
    EXPECT_EQ(numbersOf(*book), (Texts{u"1", u"2"}));
}

TEST_F(AddressBookOnScreen, ContactsAreTickedByTheMouse) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    EXPECT_EQ(select([](QtUser &user) {
                  EXPECT_FALSE(user.get<CommandButton>(u"cmdSelect").enabled());
                  EXPECT_NE(user.widget(u"cmdSelect")->toolTip(), "");
                  user.tickRow(u"lvwContacts", 2);
                  user.click(u"cmdSelect");
              }),
              1);
    EXPECT_EQ(numbersOf(*book), (Texts{u"2"}));
}

TEST_F(AddressBookOnScreen, OneContactIsSelectedByADoubleClick) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    EXPECT_EQ(select([](QtUser &user) { user.doubleClickRow(u"lvwContacts", 2); }, false), 1);
    EXPECT_EQ(numbersOf(*book), (Texts{u"2"}));
}

TEST_F(AddressBookOnScreen, EscapeLeavesNothingSelected) {
    addContact("'A'", "'1'");
    EXPECT_EQ(select([](QtUser &user) {
                  user.tickRow(u"lvwContacts", 1);
                  user.press(Key::escape);
              }),
              0);
    EXPECT_EQ(numbersOf(*book), Texts());
}

TEST_F(AddressBookOnScreen, FiftyThousandContactsAreSearchedAndTicked) {
    addFiftyThousand();
    EXPECT_EQ(select([](QtUser &user) {
                  user.type(u"77");
                  const int found = user.get<ListView>(u"lvwContacts").rowCount();
                  EXPECT_GT(found, 1000);
                  EXPECT_LT(found, 5000);
                  user.pressAccessKey(u'T');
                  user.pressAccessKey(u'F');
                  user.press(Key::selectAll);
                  user.press(Key::backspace);
                  user.focusOn(u"lvwContacts");
                  user.press(Key::end);
                  EXPECT_EQ(user.get<ListView>(u"lvwContacts").selectedRow(), 50000);
                  user.press(Key::enter);
              }),
              1);
    EXPECT_GT(numbersOf(*book).size(), 1000U);
}

TEST_F(AddressBookOnScreen, IsAccessibleAndUncut) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    select([](QtUser &user) {
        user.tickRow(u"lvwContacts", 1);
        expectAccessible(user, {u"txtSearch", u"lvwContacts", u"cmdTickAll", u"cmdClear",
                                u"cmdSelect", u"cmdCancel"});
        EXPECT_EQ(sharedAccessKeys(user), SharedKeys());
        expectNothingCut(user);
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
