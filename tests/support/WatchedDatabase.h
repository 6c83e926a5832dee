// A provider whose drivers count their calls and fail when a test wants it.
#pragma once

#include "adapters/recordset/Driver.h"

#include <functional>
#include <memory>
#include <ostream>

namespace kvex::test {

/// How often each call of the drivers and their provider was made.
struct DriverCalls {
    int connects = 0;
    int queries = 0;
    int executes = 0;
    int inserts = 0;
    int transactions = 0;
    friend bool operator==(const DriverCalls &, const DriverCalls &) = default;
    friend std::ostream &operator<<(std::ostream &out, const DriverCalls &calls);
};

/// May be destroyed before the drivers that it watches.
class WatchedDatabase {
public:
    explicit WatchedDatabase(recordset::Provider real);

    [[nodiscard]] recordset::Provider provider() const;

    /// The calls since the last `takeCalls`. A call that fails counts.
    [[nodiscard]] DriverCalls takeCalls();

    /// After `calls` further calls the server goes away. Later calls fail with noConnection and
    /// do not reach the database.
    void loseAfter(int calls);
    /// The same, but the first of these calls does its work in the database before it fails.
    void loseAnswerAfter(int calls);
    /// New connections succeed again; the old ones stay lost.
    void comeBack();
    /// After `calls` further calls `event` runs, before the next call reaches the database.
    void interruptAfter(int calls, std::function<void()> event);
    /// After `calls` further calls, a single call is refused with `number`.
    void refuseAfter(int calls, std::int32_t number);
    /// Cancels the losses and refusals that have not happened yet. False when there was none.
    bool cancel();

    /// Shared with the drivers.
    struct State;

private:
    std::shared_ptr<State> state_;
};

} // namespace kvex::test
