// The address book that the suite's library serves, in a process without a display.
#include "kvex/ClassServer.h"
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "platform/Text.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace kvex::test {
namespace {

class SuiteServer : public testing::Test {
protected:
    SuiteServer() {
        for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            variables.set(display, std::nullopt);
        }
    }

    ComPointer<IManageContacts> create(const std::filesystem::path &library = KVEX_HOST_SUITE) {
        EXPECT_EQ(CoLoadServer(library.c_str(), CLSID_ManageContacts), S_OK) << CoLoadErrorText();
        ComPointer<IManageContacts> book;
        EXPECT_EQ(createInstance(CLSID_ManageContacts, book), S_OK);
        return book;
    }
    VARIANT_BOOL init(IManageContacts &book, std::u16string_view connectionString) {
        Bstr second;
        Bstr log((folder / "log").u16string());
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(book.Init(nullptr, Bstr(connectionString).get(), 1, second.inOut(), log.inOut(),
                            &success),
                  S_OK);
        return success;
    }

    /// The log of a selection that fails.
    std::string logOfNoSelection(IManageContacts &book) {
        EXPECT_EQ(init(book, database.connectionString()), VARIANT_TRUE);
        variables.set("XDG_STATE_HOME", folder.path().string());
        LONG code = -1;
        EXPECT_LT(book.SelectRecipients(1, VARIANT_TRUE, &code), 0);
        EXPECT_EQ(code, 0);
        // Root never writes a log that a caller names.
        return host::readFile(folder / (geteuid() == 0 ? "kvex/KVEX.log" : "log"));
    }

    host::TemporaryFolder folder;
    host::EnvironmentVariables variables;
    TestDatabase database;
};

TEST_F(SuiteServer, ServesTheAddressBook) {
    const auto book = create();
    EXPECT_EQ(init(*book, database.connectionString()), VARIANT_TRUE);
    ComPointer<ITextCollection> names;
    EXPECT_EQ(book->GetSelectedItems(names.put()), S_OK);
}

TEST_F(SuiteServer, WithoutADisplaySelectsNobodyAndLogsWhy) {
    EXPECT_THAT(logOfNoSelection(*create()), testing::HasSubstr("display"));
}

TEST_F(SuiteServer, WithoutAToolkitSelectsNobodyAndLogsWhy) {
    std::filesystem::copy_file(KVEX_HOST_SUITE, folder / "libKVEXHostSuite.so");
    EXPECT_THAT(logOfNoSelection(*create(folder / "libKVEXHostSuite.so")),
                testing::HasSubstr((folder / "libKVEXQt.so").string() + " does not exist."));
}

TEST_F(SuiteServer, WithoutADisplaySaysOnStandardErrorWhyItCannotBeOpened) {
    const auto book = create();
    testing::internal::CaptureStderr();
    EXPECT_EQ(init(*book, u"Provider=Paper"), VARIANT_FALSE);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("The address book cannot be opened."));
}

TEST_F(SuiteServer, RegistersTheAddressBookByItsName) {
    variables.set("XDG_DATA_HOME", folder.path().string());
    CLSID found{};
    EXPECT_EQ(CLSIDFromProgID(u"KVEXHostSuite.ManageContacts", &found), CO_E_CLASSSTRING);
    ASSERT_EQ(CoRegisterServer(KVEX_HOST_SUITE), S_OK);
    EXPECT_EQ(CLSIDFromProgID(u"KVEXHostSuite.ManageContacts", &found), S_OK);
    EXPECT_TRUE(found == CLSID_ManageContacts);
    EXPECT_EQ(CoUnregisterServer(KVEX_HOST_SUITE), S_OK);
    EXPECT_EQ(CLSIDFromProgID(u"KVEXHostSuite.ManageContacts", &found), CO_E_CLASSSTRING);
}

} // namespace
} // namespace kvex::test
