// An address book that records what the component asks of it, and chooses what a test says.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace kvex::test {

/// Outlives the address books, of which every click makes a new one.
struct AddressBookRecord {
    /// What each call was given, in order: "init FIRST|CONNECTION|MODE|SECOND|LOG",
    /// "selectRecipients USER|MULTIPLE", "selectedItems", "selectedNumbers", "released".
    std::vector<std::u16string> calls;
    int created = 0;

    bool creationFails = false;
    bool initResult = true;
    std::int32_t code = 1;
    std::vector<std::u16string> numbers;
    /// Fetching the numbers fails.
    bool numbersFail = false;
};

class TestAddressBook final : public AddressBook {
public:
    explicit TestAddressBook(AddressBookRecord &record) : record_(record) {
        if (record_.creationFails) {
            throw Error(error_number::cannotCreateObject);
        }
        ++record_.created;
    }
    ~TestAddressBook() override { record_.calls.emplace_back(u"released"); }

    bool init(const std::u16string &first, const std::u16string &connectionString,
              std::int32_t mode, const std::u16string &secondText,
              const std::u16string &logFile) override {
        record_.calls.push_back(u"init " + first + u"|" + connectionString + u"|" +
                                toText(std::int64_t{mode}) + u"|" + secondText + u"|" + logFile);
        return record_.initResult;
    }
    std::int32_t selectRecipients(std::int32_t userId, bool multiple) override {
        record_.calls.push_back(u"selectRecipients " + toText(std::int64_t{userId}) +
                                (multiple ? u"|True" : u"|False"));
        return record_.code;
    }
    std::vector<std::u16string> selectedItems() override {
        record_.calls.emplace_back(u"selectedItems");
        return {};
    }
    std::vector<std::u16string> selectedNumbers() override {
        record_.calls.emplace_back(u"selectedNumbers");
        if (record_.numbersFail) {
            throw Error(error_number::automationError);
        }
        return record_.numbers;
    }

private:
    AddressBookRecord &record_;
};

} // namespace kvex::test
