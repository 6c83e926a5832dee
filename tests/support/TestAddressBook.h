// An address book that records the calls of the component and selects what a test wants.
#pragma once

#include "platform/AddressBook.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <vector>

namespace kvex::test {

/// Outlives the address books: every click creates a new one.
struct AddressBookRecord {
    /// The calls in order, with their arguments: "init FIRST|CONNECTION|MODE|SECOND|LOG",
    /// "selectRecipients USER|MULTIPLE", "selectedItems", "selectedNumbers", "count", "item INDEX",
    /// "numbers released", "items released", "released".
    std::vector<std::u16string> calls;
    int created = 0;

    bool creationFails = false;
    bool initResult = true;
    std::int32_t code = 1;
    std::vector<std::u16string> numbers;
    /// Fetching the numbers fails.
    bool numbersFail = false;
    /// The address book gives no numbers.
    bool hasNumbers = true;
    /// Reading the number at this index fails.
    std::int32_t failingIndex = 0;
    /// The text that init appends to the log file's path, which it gets by reference.
    std::u16string addedToLogFile;
};

class TestTexts final : public TextCollection {
public:
    explicit TestTexts(AddressBookRecord &record) : record_(record) {}
    ~TestTexts() override { record_.calls.emplace_back(u"numbers released"); }

    std::int32_t count() override {
        record_.calls.emplace_back(u"count");
        return static_cast<std::int32_t>(record_.numbers.size());
    }
    std::u16string item(std::int32_t index) override {
        record_.calls.push_back(u"item " + toText(std::int64_t{index}));
        if (index == record_.failingIndex) {
            throw Error(error_number::automationError);
        }
        return record_.numbers.at(static_cast<std::size_t>(index - 1));
    }

private:
    AddressBookRecord &record_;
};

/// A collection that nobody may read. Reading it raises an error, which fails the test.
class UnreadTexts final : public TextCollection {
public:
    explicit UnreadTexts(AddressBookRecord &record) : record_(record) {}
    ~UnreadTexts() override { record_.calls.emplace_back(u"items released"); }

    std::int32_t count() override { throw Error(error_number::internalError); }
    std::u16string item(std::int32_t /*index*/) override {
        throw Error(error_number::internalError);
    }

private:
    AddressBookRecord &record_;
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
              std::int32_t mode, std::u16string &secondText, std::u16string &logFile) override {
        record_.calls.push_back(u"init " + first + u"|" + connectionString + u"|" +
                                toText(std::int64_t{mode}) + u"|" + secondText + u"|" + logFile);
        logFile += record_.addedToLogFile;
        return record_.initResult;
    }
    std::int32_t selectRecipients(std::int32_t userId, bool multiple) override {
        record_.calls.push_back(u"selectRecipients " + toText(std::int64_t{userId}) +
                                (multiple ? u"|True" : u"|False"));
        return record_.code;
    }
    std::unique_ptr<TextCollection> selectedItems() override {
        record_.calls.emplace_back(u"selectedItems");
        return std::make_unique<UnreadTexts>(record_);
    }
    std::unique_ptr<TextCollection> selectedNumbers() override {
        record_.calls.emplace_back(u"selectedNumbers");
        if (record_.numbersFail) {
            throw Error(error_number::automationError);
        }
        return record_.hasNumbers ? std::make_unique<TestTexts>(record_) : nullptr;
    }

private:
    AddressBookRecord &record_;
};

} // namespace kvex::test
