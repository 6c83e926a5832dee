// The address book on Qt: all of its suite, and widgets.
#include "tests/addressbook/AddressBookOnScreen.h"
#include "tests/windows/QtOnScreen.h"
#include "tests/windows/WindowCheck.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Qt, AddressBookOnScreen, testing::Values(&QtStage::make));

namespace {

class QtAddressBook : public AddressBookOnScreen {};

TEST_P(QtAddressBook, IsAccessibleAndUncut) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    select([](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        user.tickRow(u"lvwContacts", 1);
        expectAccessible(user, {u"txtSearch", u"lvwContacts", u"cmdTickAll", u"cmdClear",
                                u"cmdSelect", u"cmdCancel"});
        EXPECT_EQ(sharedAccessKeys(user), SharedKeys());
        expectNothingCut(user);
        user.press(Key::escape);
    });
}

INSTANTIATE_TEST_SUITE_P(Qt, QtAddressBook, testing::Values(&QtStage::make));

} // namespace
} // namespace kvex::test
