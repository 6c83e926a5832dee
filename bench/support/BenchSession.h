// A session of the component on a database, on whatever toolkit.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "component/RuleUIClass.h"
#include "tests/support/ComponentTest.h"

#include <string>

namespace kvex::bench {

/// One at a time on a thread. Closed when it goes.
class BenchSession {
public:
    explicit BenchSession(std::u16string connectionString);
    BenchSession(std::u16string connectionString, Toolkit &toolkit);
    ~BenchSession();
    BenchSession(const BenchSession &) = delete;
    BenchSession &operator=(const BenchSession &) = delete;

    /// Throws what went wrong.
    void open();
    /// Shows the rules window until it is closed. Throws where an error was logged.
    void showRules();

    headless::HeadlessToolkit headless;

private:
    void requireNoError() const;

    test::UtilityRecord utility_;
    test::TestPlatform platform_;
    RuleUI ruleUI_;
};

} // namespace kvex::bench
