// The suite's address book on the headless toolkit, as the component calls it.
#pragma once

#include "host/addressbook/AddressBookWindow.h"
#include "host/suite/Databases.h"
#include "platform/AddressBook.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvex::torture {

class ChosenTexts final : public TextCollection {
public:
    explicit ChosenTexts(std::vector<std::u16string> texts) : texts_(std::move(texts)) {}

    std::int32_t count() override { return static_cast<std::int32_t>(texts_.size()); }
    std::u16string item(std::int32_t index) override {
        return texts_.at(static_cast<std::size_t>(index) - 1);
    }

private:
    std::vector<std::u16string> texts_;
};

/// Shows the suite's window with the contacts of the database. The suite's class around it is
/// tested where it is served.
class SuiteAddressBook final : public AddressBook {
public:
    explicit SuiteAddressBook(Toolkit &toolkit) : toolkit_(toolkit) {}

    bool init(const std::u16string & /*first*/, const std::u16string &connectionString,
              std::int32_t /*mode*/, std::u16string & /*secondText*/,
              std::u16string & /*logFile*/) override {
        connection_ = host::openDatabase(connectionString);
        return true;
    }
    std::int32_t selectRecipients(std::int32_t userId, bool multiple) override {
        host::AddressBookWindow window(toolkit_, host::readContacts(*connection_, userId),
                                       multiple);
        for (const host::Contact &contact : window.show()) {
            names_.push_back(contact.name);
            numbers_.push_back(contact.number);
        }
        return numbers_.empty() ? 0 : 1;
    }
    std::unique_ptr<TextCollection> selectedItems() override {
        return std::make_unique<ChosenTexts>(names_);
    }
    std::unique_ptr<TextCollection> selectedNumbers() override {
        return std::make_unique<ChosenTexts>(numbers_);
    }

private:
    Toolkit &toolkit_;
    std::unique_ptr<Connection> connection_;
    std::vector<std::u16string> names_, numbers_;
};

} // namespace kvex::torture
