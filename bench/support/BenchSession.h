// A session of the component on any database and toolkit.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/recordset/Driver.h"
#include "component/SessionOwner.h"
#include "tests/support/ComponentTest.h"

#include <array>
#include <string>
#include <string_view>

namespace kvex::bench {

/// The queries that opening a session sends to the database.
inline constexpr std::array<std::string_view, 5> sessionQueries{
    "SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY",
    "SELECT * FROM SMS_USERS WHERE DELETED = 0", "SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0",
    "SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0",
    "SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE WHERE "
    "DELETED = 0 AND DISABLED = 0)"};

/// A thread can have only one at a time. The destructor closes it.
class BenchSession {
public:
    /// The default provider is SQLite's, the default toolkit is the headless one.
    explicit BenchSession(std::u16string connectionString);
    BenchSession(std::u16string connectionString, Toolkit &toolkit);
    BenchSession(std::u16string connectionString, recordset::Provider provider);
    ~BenchSession();
    BenchSession(const BenchSession &) = delete;
    BenchSession &operator=(const BenchSession &) = delete;

    /// Throws when an error was logged.
    void open();
    /// Shows the rules window until it is closed. Throws when an error was logged.
    void showRules();
    /// The same on the headless toolkit, where `script` plays the user. It cancels the rule editor
    /// that opens first.
    void playRules(test::Script script);

    headless::HeadlessToolkit headless;

private:
    BenchSession(std::u16string connectionString, Toolkit &toolkit, recordset::Provider provider);
    void requireNoError() const;

    test::UtilityRecord utility_;
    test::TestPlatform platform_;
    SessionOwner sessionOwner_;
};

} // namespace kvex::bench
