// The address book's window: the user searches contacts and chooses among them.
#pragma once

#include "host/addressbook/ContactSearch.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/controls/WindowDesign.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace kvex::host {

/// If `multiple` is set, the user chooses by ticking rows. Otherwise the selected row is the
/// choice.
[[nodiscard]] WindowDesign addressBookDesign(bool multiple);

/// Serves one showing of the window. A ticked contact stays ticked while the search hides it.
class AddressBookWindow {
public:
    /// `multiple` as addressBookDesign takes it. Fails as Toolkit::createWindow does.
    AddressBookWindow(Toolkit &toolkit, std::vector<Contact> contacts, bool multiple);

    /// Shows the window until it is closed. Returns the chosen contacts in the address book's
    /// order, or none when the user cancelled. Call it once.
    [[nodiscard]] std::vector<Contact> show();

private:
    void txtSearch_Change();
    void lvwContacts_ItemClick();
    void lvwContacts_ItemCheck(int row);
    void lvwContacts_DblClick();
    void cmdTickAll_Click();
    void cmdClear_Click();
    void cmdSelect_Click();

    /// Lists the contacts that the search finds.
    void listFound();
    /// Ticks the rows of the chosen contacts, and no others.
    void showTicks();
    void choose(std::size_t contact, bool chosen);
    void chooseNone();
    /// If the user may choose only one contact, forgets the choice once no row is selected.
    void dropLostChoice();
    void showChoice();
    [[nodiscard]] std::u16string hintText() const;

    ContactSearch contacts_;
    bool multiple_;
    std::unique_ptr<Window> window_;
    TextBox &txtSearch;
    Label &lblHint;
    ListView &lvwContacts;
    CommandButton &cmdTickAll;
    CommandButton &cmdClear;
    Label &lblCount;
    CommandButton &cmdSelect;

    /// The contacts that the rows show.
    std::vector<std::size_t> shown_;
    std::vector<bool> chosen_;
    std::size_t chosenCount_ = 0;
    bool accepted_ = false;
};

} // namespace kvex::host
