// A session of the component on whatever database and toolkit.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/recordset/Driver.h"
#include "component/SessionOwner.h"
#include "tests/support/ComponentTest.h"

#include <string>

namespace kvex::bench {

/// One at a time on a thread. Closed when it goes.
class BenchSession {
public:
    /// On SQLite, where no other provider is named, and the headless toolkit.
    explicit BenchSession(std::u16string connectionString);
    BenchSession(std::u16string connectionString, Toolkit &toolkit);
    BenchSession(std::u16string connectionString, recordset::Provider provider);
    ~BenchSession();
    BenchSession(const BenchSession &) = delete;
    BenchSession &operator=(const BenchSession &) = delete;

    /// Throws what went wrong.
    void open();
    /// Shows the rules window until it is closed. Throws where an error was logged.
    void showRules();
    /// The same on the headless toolkit, played by `script`; the rule editor that opens first is
    /// cancelled.
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
