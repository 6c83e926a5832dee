// A provider whose drivers count what is asked of them, and fail when they are told to.
#pragma once

#include "adapters/recordset/Driver.h"

#include <functional>
#include <memory>
#include <ostream>

namespace kvex::test {

/// What was asked of drivers and of their provider, call by call.
struct DriverCalls {
    int connects = 0;
    int queries = 0;
    int executes = 0;
    int inserts = 0;
    int transactions = 0;
    friend bool operator==(const DriverCalls &, const DriverCalls &) = default;
    friend std::ostream &operator<<(std::ostream &out, const DriverCalls &calls);
};

/// May go before the drivers that it watches.
class WatchedDatabase {
public:
    explicit WatchedDatabase(recordset::Provider real);

    [[nodiscard]] recordset::Provider provider() const;

    /// Those since the last time; a call that fails counts.
    [[nodiscard]] DriverCalls takeCalls();

    /// After `calls` further ones the server goes away: what is asked then fails with
    /// connectionLost and does not reach the database.
    void loseAfter(int calls);
    /// New connections are made again; those that were there stay lost.
    void comeBack();
    /// After `calls` further ones `event` comes to pass; what is asked then is asked behind it.
    void interruptAfter(int calls, std::function<void()> event);
    /// After `calls` further ones a single one is refused with `number`.
    void refuseAfter(int calls, std::int32_t number);

    /// Shared with the drivers.
    struct State;

private:
    std::shared_ptr<State> state_;
};

} // namespace kvex::test
