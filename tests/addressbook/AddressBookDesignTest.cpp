// The design of the address book, control by control.
#include "host/addressbook/AddressBookWindow.h"
#include "tests/support/DesignTable.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

TEST(AddressBookDesign, ForManyContactsHasTheseControls) {
    expectDesign(
        host::addressBookDesign(true), "frmAddressBook", "Address Book",
        {
            R"(label Label1 "&Find" for="txtSearch")",
            R"(text txtSearch)",
            R"(hint lblHint)",
            R"(label Label2 "C&ontacts" for="lvwContacts")",
            R"(list lvwContacts checkBoxes empty="The contacts that are found appear here.")"
            R"( startsAtFirst)",
            R"(button cmdTickAll "&Tick All Shown" disabled)"
            R"( waits="There is nothing left to tick")",
            R"(button cmdClear "C&lear Selection" disabled waits="Nothing is ticked")",
            R"(label lblCount)",
            R"(frame Frame1)",
            R"(button cmdSelect "&Select" disabled)"
            R"( waits="Tick a contact in the list first" default)",
            R"(button cmdCancel "&Cancel" cancel)",
        });
}

TEST(AddressBookDesign, ForOneContactHasTheseControls) {
    expectDesign(host::addressBookDesign(false), "frmAddressBook", "Address Book",
                 {
                     R"(label Label1 "&Find" for="txtSearch")",
                     R"(text txtSearch)",
                     R"(hint lblHint)",
                     R"(label Label2 "C&ontacts" for="lvwContacts")",
                     R"(list lvwContacts empty="The contacts that are found appear here.")",
                     R"(button cmdTickAll "&Tick All Shown" hidden disabled)"
                     R"( waits="There is nothing left to tick")",
                     R"(button cmdClear "C&lear Selection" hidden disabled)"
                     R"( waits="Nothing is ticked")",
                     R"(label lblCount)",
                     R"(frame Frame1)",
                     R"(button cmdSelect "&Select" disabled)"
                     R"( waits="Select a contact in the list first" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                 });
}

} // namespace
} // namespace kvex::test
