// The address book as a component object.
#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/headless/User.h"
#include "tests/addressbook/AddressBookTest.h"

#include <gmock/gmock.h>

namespace kvex::test {
namespace {

using host::readFile;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class ManageContacts : public AddressBookTest {
protected:
    ComPointer<IManageContacts> created() { return makeComObject<host::ManageContacts>(toolkit); }
    /// Calls Init, expects it to fail, and returns the log.
    std::string refusal(std::u16string_view connectionString) {
        const auto book = created();
        VARIANT_BOOL success = VARIANT_TRUE;
        EXPECT_EQ(init(*book, connectionString, success), S_OK);
        EXPECT_EQ(success, VARIANT_FALSE);
        LONG code = -1;
        EXPECT_EQ(book->SelectRecipients(1, VARIANT_TRUE, &code), E_UNEXPECTED);
        EXPECT_EQ(code, 0);
        return readFile(logFile);
    }

    headless::HeadlessToolkit toolkit;
};

TEST_F(ManageContacts, RefusesToSelectBeforeInit) {
    LONG code = -1;
    EXPECT_EQ(created()->SelectRecipients(1, VARIANT_TRUE, &code), E_UNEXPECTED);
    EXPECT_EQ(code, 0);
}

TEST_F(ManageContacts, HasNothingSelectedBeforeASelection) {
    EXPECT_EQ(numbersOf(*created()), Texts());
    const auto book = open(toolkit);
    EXPECT_EQ(numbersOf(*book), Texts());
    EXPECT_EQ(namesOf(*book), Texts());
}

TEST_F(ManageContacts, LogsAndShowsWhyItCannotBeOpened) {
    EXPECT_THAT(refusal(u"Provider=Paper"),
                AllOf(HasSubstr("\tKVEXHostSuite: The address book cannot be opened.\t"),
                      HasSubstr("Provider=SQLite")));
    EXPECT_THAT(toUtf8(host::suiteState().lastError.value().error.description()),
                HasSubstr("Provider=SQLite"));
    ASSERT_EQ(toolkit.messageBoxes().size(), 1U);
    EXPECT_THAT(toUtf8(toolkit.messageBoxes().front().text),
                AllOf(HasSubstr("address book cannot be opened"), HasSubstr("Provider=SQLite")));
}

TEST_F(ManageContacts, NeverShowsAPassword) {
    EXPECT_THAT(refusal(u"Provider=SQLite;Data Source=\"none;PWD=s3cret\""),
                AllOf(HasSubstr("none;PWD=***"), Not(HasSubstr("s3cret"))));
    ASSERT_EQ(toolkit.messageBoxes().size(), 1U);
    EXPECT_THAT(toUtf8(toolkit.messageBoxes().front().text),
                AllOf(HasSubstr("none;PWD=***"), Not(HasSubstr("s3cret"))));
}

TEST_F(ManageContacts, DoesNotCreateAMissingDatabase) {
    const std::filesystem::path file = folder / "none.db";
    EXPECT_THAT(refusal(file.u16string()), HasSubstr("does not exist"));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(ManageContacts, RefusesADatabaseWithoutContacts) {
    database.execute("DROP TABLE SMS_CONTACTS");
    EXPECT_THAT(refusal(database.connectionString()), HasSubstr("no such table: SMS_CONTACTS"));
}

TEST_F(ManageContacts, RefusesToSelectAfterAFailedInit) {
    const auto book = open(toolkit);
    VARIANT_BOOL success = VARIANT_TRUE;
    EXPECT_EQ(init(*book, u"Provider=Paper", success), S_OK);
    EXPECT_EQ(success, VARIANT_FALSE);
    LONG code = -1;
    EXPECT_EQ(book->SelectRecipients(1, VARIANT_TRUE, &code), E_UNEXPECTED);
}

TEST_F(ManageContacts, LogsAndShowsWhatTheDatabaseRefusesLater) {
    addContact("'A'", "'1'");
    const auto book = open(toolkit);
    toolkit.whenShown(u"frmAddressBook", [](headless::User &user) {
        user.tickRow(u"lvwContacts", 1);
        user.click(u"cmdSelect");
    });
    LONG code = -1;
    ASSERT_EQ(book->SelectRecipients(1, VARIANT_TRUE, &code), S_OK);
    database.execute("DROP TABLE SMS_CONTACTS");
    EXPECT_LT(book->SelectRecipients(1, VARIANT_TRUE, &code), 0);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(numbersOf(*book), Texts());
    EXPECT_THAT(readFile(logFile), HasSubstr("no such table: SMS_CONTACTS"));
    ASSERT_EQ(toolkit.messageBoxes().size(), 1U);
    EXPECT_THAT(toUtf8(toolkit.messageBoxes().front().text),
                HasSubstr("no such table: SMS_CONTACTS"));
}

TEST_F(ManageContacts, CountsItemsFromOne) {
    addContact("'A'", "'1'");
    addContact("'B'", "'2'");
    const auto book = open(toolkit);
    toolkit.whenShown(u"frmAddressBook", [](headless::User &user) {
        user.click(u"cmdTickAll");
        user.click(u"cmdSelect");
    });
    LONG code = 0;
    ASSERT_EQ(book->SelectRecipients(1, VARIANT_TRUE, &code), S_OK);
    EXPECT_EQ(code, 1);
    ComPointer<ITextCollection> numbers;
    ASSERT_EQ(book->GetSelectedNumbers(numbers.put()), S_OK);
    EXPECT_EQ(textsOf(numbers), (Texts{u"1", u"2"}));
    for (const LONG index : {0, -1, 3}) {
        Bstr text;
        EXPECT_EQ(numbers->GetItem(index, text.put()), E_INVALIDARG);
        EXPECT_EQ(text.get(), nullptr);
    }
}

TEST_F(ManageContacts, ASelectionOutlivesTheAddressBook) {
    addContact("'A'", "'1'");
    auto book = open(toolkit);
    toolkit.whenShown(u"frmAddressBook", [](headless::User &user) {
        user.tickRow(u"lvwContacts", 1);
        user.click(u"cmdSelect");
    });
    LONG code = 0;
    ASSERT_EQ(book->SelectRecipients(1, VARIANT_TRUE, &code), S_OK);
    ComPointer<ITextCollection> names;
    ASSERT_EQ(book->GetSelectedItems(names.put()), S_OK);
    book.reset();
    EXPECT_EQ(textsOf(names), (Texts{u"A"}));
}

TEST_F(ManageContacts, RefusesNullPointers) {
    const auto book = open(toolkit);
    Bstr log;
    VARIANT_BOOL success = VARIANT_FALSE;
    EXPECT_EQ(book->Init(nullptr, nullptr, 1, nullptr, nullptr, &success), E_POINTER);
    EXPECT_EQ(book->Init(nullptr, nullptr, 1, nullptr, log.inOut(), nullptr), E_POINTER);
    EXPECT_EQ(book->SelectRecipients(1, VARIANT_TRUE, nullptr), E_POINTER);
    EXPECT_EQ(book->GetSelectedItems(nullptr), E_POINTER);
    EXPECT_EQ(book->GetSelectedNumbers(nullptr), E_POINTER);
    ComPointer<ITextCollection> names;
    ASSERT_EQ(book->GetSelectedItems(names.put()), S_OK);
    EXPECT_EQ(names->GetCount(nullptr), E_POINTER);
    EXPECT_EQ(names->GetItem(1, nullptr), E_POINTER);
}

} // namespace
} // namespace kvex::test
