// The component on a headless toolkit and a database, for tests that play a user.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/headless/User.h"
#include "component/SessionOwner.h"
#include "component/session/Session.h"
#include "rules/RuleState.h"
#include "tests/support/TestAddressBook.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/TestUtility.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <utility>
#include <vector>

namespace kvex::test {

using controls::Key;
using headless::User;
using Script = headless::HeadlessToolkit::Script;
using Texts = std::vector<std::u16string>;

class TestPlatform : public Platform {
public:
    TestPlatform(UtilityRecord &record, Toolkit &toolkit, recordset::Provider provider)
        : record_(record), toolkit_(toolkit), provider_(std::move(provider)) {}

    std::unique_ptr<Utility> createUtility() override;
    std::unique_ptr<Connection> createConnection() override;
    std::unique_ptr<Recordset> createRecordset() override;
    std::unique_ptr<AddressBook> createAddressBook() override;
    Toolkit &toolkit() override { return toolkit_; }
    std::u16string componentDirectory() override { return directory; }

    std::u16string directory = u"/usr/lib/kvex";
    AddressBookRecord addressBook;

private:
    UtilityRecord &record_;
    Toolkit &toolkit_;
    recordset::Provider provider_;
};

/// Every test begins without a session and with a cleared rule. It fails when a window was
/// unexpected or stayed open, a script was not played, or an error left a handler. It also fails
/// after a log entry, a report or a message box that it did not expect.
class ComponentTest : public testing::Test {
protected:
    explicit ComponentTest(const DatabaseKind &kind = sqliteMemory());
    ~ComponentTest() override;
    void TearDown() override;

    /// Creates RuleUI on the database; may be called again after closeSession.
    SessionOwner &createSession();
    /// Opens the session without a window.
    void openSession();
    void closeSession();

    void whenShown(std::u16string window, Script script) {
        toolkit.whenShown(std::move(window), std::move(script));
    }
    /// Calls ShowRules for the user "1", on a new object when there is none.
    std::int32_t showRules(const std::u16string &ruleId);
    /// Cancels the editor that opens at once, and plays in the rules window.
    std::int32_t playRules(Script script);
    /// Opens the editor on a new rule, plays in it, and leaves the rules window by Cancel.
    std::int32_t playNewRule(Script script);
    /// The same on a stored rule.
    std::int32_t playRule(std::int64_t id, Script script);

    /// Expects these log entries since the last call, in order. Each is written "Sub: S, Module:
    /// M", without the fixed beginning. The entries move to `logged`.
    void expectLog(const Texts &subsAndModules);
    /// Expects these message boxes or reports since the last call.
    void expectMessages(const std::vector<Message> &messages);
    void expectReports(const std::vector<Report> &reports);

    TestDatabase database;
    UtilityRecord utility;
    headless::HeadlessToolkit toolkit;
    TestPlatform platform{utility, toolkit, database.provider()};
    std::unique_ptr<SessionOwner> sessionOwner;
    std::vector<LogEntry> logged;
    /// How many errors the test expects to leave a handler.
    std::size_t expectedUnhandledErrors = 0;
};

/// The text as UTF-8, in which tests compare it with the database's.
[[nodiscard]] std::string utf8(std::u16string_view text);

/// The positions of the rows that are ticked.
[[nodiscard]] std::vector<int> tickedRows(const ListView &list);

} // namespace kvex::test
