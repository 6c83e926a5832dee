#include "host/addressbook/AddressBookWindow.h"

#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {

AddressBookWindow::AddressBookWindow(Toolkit &toolkit, std::vector<Contact> contacts, bool multiple)
    : contacts_(std::move(contacts)), multiple_(multiple),
      window_(toolkit.createWindow(addressBookDesign(multiple))),
      txtSearch(window_->get<TextBox>(u"txtSearch")), lblHint(window_->get<Label>(u"lblHint")),
      lvwContacts(window_->get<ListView>(u"lvwContacts")),
      cmdTickAll(window_->get<CommandButton>(u"cmdTickAll")),
      cmdClear(window_->get<CommandButton>(u"cmdClear")),
      lblCount(window_->get<Label>(u"lblCount")),
      cmdSelect(window_->get<CommandButton>(u"cmdSelect")), chosen_(contacts_.size()) {
    txtSearch.onChange = [this] { txtSearch_Change(); };
    lvwContacts.onItemClick = [this](int /*row*/) { lvwContacts_ItemClick(); };
    lvwContacts.onItemCheck = [this](int row) { lvwContacts_ItemCheck(row); };
    lvwContacts.onDoubleClick = [this] { lvwContacts_DblClick(); };
    cmdTickAll.onClick = [this] { cmdTickAll_Click(); };
    cmdClear.onClick = [this] { cmdClear_Click(); };
    cmdSelect.onClick = [this] { cmdSelect_Click(); };
    window_->get<CommandButton>(u"cmdCancel").onClick = [this] { window_->close(); };

    lvwContacts.addColumn(u"Name", 0.6);
    lvwContacts.addColumn(u"Number", 0.4);
    listFound();
}

std::vector<Contact> AddressBookWindow::show() {
    window_->showModal();
    std::vector<Contact> result;
    for (std::size_t contact = 0; accepted_ && contact < contacts_.size(); ++contact) {
        if (chosen_[contact]) {
            result.push_back(contacts_[contact]);
        }
    }
    return result;
}

void AddressBookWindow::txtSearch_Change() {
    listFound();
}

void AddressBookWindow::lvwContacts_ItemClick() {
    if (!multiple_) {
        chooseNone();
        choose(shown_[static_cast<std::size_t>(lvwContacts.selectedRow()) - 1], true);
        showChoice();
    }
}

void AddressBookWindow::lvwContacts_ItemCheck(int row) {
    choose(shown_[static_cast<std::size_t>(row) - 1], lvwContacts.checked(row));
    showChoice();
}

/// Selects the contact if the user may choose only one. Otherwise ticks or unticks the row.
void AddressBookWindow::lvwContacts_DblClick() {
    if (!multiple_) {
        cmdSelect_Click();
        return;
    }
    const int row = lvwContacts.selectedRow();
    lvwContacts.setChecked(row, !lvwContacts.checked(row));
    lvwContacts_ItemCheck(row);
}

void AddressBookWindow::cmdTickAll_Click() {
    for (const std::size_t contact : shown_) {
        choose(contact, true);
    }
    showTicks();
}

void AddressBookWindow::cmdClear_Click() {
    chooseNone();
    showTicks();
}

void AddressBookWindow::cmdSelect_Click() {
    dropLostChoice();
    showChoice();
    if (chosenCount_ > 0) {
        accepted_ = true;
        window_->close();
    }
}

void AddressBookWindow::listFound() {
    shown_ = contacts_.find(txtSearch.text());
    lvwContacts.clearRows();
    for (const std::size_t contact : shown_) {
        const int row = lvwContacts.addRow(contacts_[contact].name);
        lvwContacts.setSubItem(row, 1, contacts_[contact].number);
        if (chosen_[contact]) {
            if (multiple_) {
                lvwContacts.setChecked(row, true);
            } else {
                lvwContacts.select(row);
            }
        }
    }
    lblHint.setCaption(hintText());
    dropLostChoice();
    showChoice();
}

void AddressBookWindow::showTicks() {
    for (std::size_t index = 0; index < shown_.size(); ++index) {
        lvwContacts.setChecked(static_cast<int>(index) + 1, chosen_[shown_[index]]);
    }
    showChoice();
}

void AddressBookWindow::choose(std::size_t contact, bool chosen) {
    if (chosen_[contact] != chosen) {
        chosen_[contact] = chosen;
        chosenCount_ = chosen ? chosenCount_ + 1 : chosenCount_ - 1;
    }
}

void AddressBookWindow::chooseNone() {
    chosen_.assign(chosen_.size(), false);
    chosenCount_ = 0;
}

void AddressBookWindow::dropLostChoice() {
    if (!multiple_ && lvwContacts.selectedRow() == 0) {
        chooseNone();
    }
}

void AddressBookWindow::showChoice() {
    lblCount.setCaption(chosenCount_ == 0   ? u"No contact selected"
                        : chosenCount_ == 1 ? u"1 contact selected"
                                            : toText(static_cast<std::int64_t>(chosenCount_)) +
                                                  u" contacts selected");
    cmdSelect.setEnabled(chosenCount_ > 0);
    cmdClear.setEnabled(chosenCount_ > 0);
    cmdTickAll.setEnabled(
        std::ranges::any_of(shown_, [this](std::size_t contact) { return !chosen_[contact]; }));
}

std::u16string AddressBookWindow::hintText() const {
    if (contacts_.size() == 0) {
        return u"The address book is empty. To fill it: kvexrules contacts import FILE";
    }
    return shown_.empty() ? u"No contact has all these words in its name and number"
                          : u"Type any words of a name or digits of a number";
}

} // namespace kvex::host
