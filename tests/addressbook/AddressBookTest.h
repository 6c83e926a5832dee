// The address book on a database with contacts, for tests that act as its user.
#pragma once

#include "host/addressbook/ManageContacts.h"
#include "host/suite/SuiteState.h"
#include "platform/Text.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

using Texts = std::vector<std::u16string>;

/// The user has the id 1, and no contacts at first.
class AddressBookTest : public testing::Test {
protected:
    AddressBookTest() { host::suiteState() = {u"", u"", host::ErrorLog(logFile)}; }
    ~AddressBookTest() override { host::suiteState() = host::SuiteState(); }

    /// Each argument is a value in SQL, with its apostrophes.
    void addContact(const std::string &name, const std::string &number,
                    const std::string &userId = "1", const std::string &deleted = "0") {
        database.execute("INSERT INTO SMS_CONTACTS (NAME, MOBILE, USER_ID, DELETED) VALUES (" +
                         name + "," + number + "," + userId + "," + deleted + ")");
    }

    /// Adds "Contact 1" to "Contact 50000", each with its own number.
    void addFiftyThousand() {
        database.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                         "50000) INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) "
                         "SELECT 1, 'Contact ' || i, 9800000000 + i FROM n");
    }

    static HRESULT init(IManageContacts &book, std::u16string_view connectionString,
                        VARIANT_BOOL &success) {
        Bstr second(u"second");
        Bstr log(u"/nowhere\\KVEX.log");
        return book.Init(Bstr(u"").get(), Bstr(connectionString).get(), 1, second.inOut(),
                         log.inOut(), &success);
    }

    /// An address book on the database.
    ComPointer<IManageContacts> open(Toolkit &toolkit) {
        ComPointer<IManageContacts> book = makeComObject<host::ManageContacts>(toolkit);
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(init(*book, database.connectionString(), success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        return book;
    }

    static Texts textsOf(const ComPointer<ITextCollection> &collection) {
        Texts texts;
        LONG count = 0;
        EXPECT_EQ(collection->GetCount(&count), S_OK);
        for (LONG index = 1; index <= count; ++index) {
            Bstr text;
            EXPECT_EQ(collection->GetItem(index, text.put()), S_OK);
            texts.push_back(text.text());
        }
        return texts;
    }
    static Texts numbersOf(IManageContacts &book) {
        ComPointer<ITextCollection> numbers;
        EXPECT_EQ(book.GetSelectedNumbers(numbers.put()), S_OK);
        return textsOf(numbers);
    }
    static Texts namesOf(IManageContacts &book) {
        ComPointer<ITextCollection> names;
        EXPECT_EQ(book.GetSelectedItems(names.put()), S_OK);
        return textsOf(names);
    }

    TestDatabase database;
    host::TemporaryFolder folder;
    std::filesystem::path logFile = folder / "log";
};

} // namespace kvex::test
