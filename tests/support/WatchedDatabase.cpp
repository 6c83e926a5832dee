#include "tests/support/WatchedDatabase.h"

#include "platform/Error.h"

#include <optional>
#include <type_traits>
#include <utility>

namespace kvex::test {

struct WatchedDatabase::State {
    recordset::Provider real;
    DriverCalls calls;
    std::optional<int> callsUntilLoss;
    std::optional<int> callsUntilLostAnswer;
    std::optional<int> callsUntilRefusal;
    std::int32_t refusal = 0;
    std::optional<int> callsUntilEvent{};
    std::function<void()> event{};
    bool lost = false;
    /// How often the server went away. A connection is lost when this differs from its value at the
    /// connect.
    int losses = 0;

    /// True at the call that `calls` has counted down to.
    static bool strikes(std::optional<int> &calls) {
        const bool now = calls && (*calls)-- == 0;
        if (now) {
            calls.reset();
        }
        return now;
    }
    void lose() {
        lost = true;
        ++losses;
    }
    static Error broken() {
        return Error(noConnection, u"The connection to the server broke.", u"Watched",
                     HelpContext::connectionLost);
    }
    void admit(int lossesBefore) {
        if (strikes(callsUntilEvent)) {
            event();
        }
        if (strikes(callsUntilLoss)) {
            lose();
        }
        if (lost || lossesBefore != losses) {
            throw broken();
        }
        if (strikes(callsUntilRefusal)) {
            throw Error(refusal, u"The server refused.", u"Watched", HelpContext::failed);
        }
    }
};

namespace {

class WatchedDriver final : public recordset::Driver {
public:
    WatchedDriver(std::shared_ptr<WatchedDatabase::State> state,
                  std::unique_ptr<recordset::Driver> real)
        : state_(std::move(state)), losses_(state_->losses), real_(std::move(real)) {}

    void query(const recordset::Statement &statement, recordset::RowSink &sink) override {
        counted(&DriverCalls::queries, [&] { real_->query(statement, sink); });
    }
    std::int64_t execute(const recordset::Statement &statement) override {
        return counted(&DriverCalls::executes, [&] { return real_->execute(statement); });
    }
    std::vector<Value> insert(std::u16string_view table,
                              const std::vector<recordset::Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override {
        return counted(&DriverCalls::inserts,
                       [&] { return real_->insert(table, values, keyColumns); });
    }
    void describe(const std::u16string &query, std::vector<recordset::Column> &columns) override {
        real_->describe(query, columns);
    }
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView &read) const override {
        return real_->stillHolds(column, read);
    }
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override {
        return real_->columnTypes();
    }
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override {
        return counted(&DriverCalls::queries, [&] { return real_->columnsOf(table); });
    }
    [[nodiscard]] bool lacks(std::u16string_view table) override { return real_->lacks(table); }
    bool copyTo(const std::string &file) override { return real_->copyTo(file); }
    void continueNumbering(std::u16string_view table, std::u16string_view column) override {
        counted(&DriverCalls::executes, [&] { real_->continueNumbering(table, column); });
    }
    void beginSnapshot() override {
        counted(&DriverCalls::transactions, [&] { real_->beginSnapshot(); });
    }
    void beginAlone(const std::vector<std::u16string_view> &tables) override {
        counted(&DriverCalls::transactions, [&] { real_->beginAlone(tables); });
    }
    void begin() override {
        counted(&DriverCalls::transactions, [&] { real_->begin(); });
    }
    void commit() override {
        counted(&DriverCalls::transactions, [&] { real_->commit(); });
    }
    void rollback() noexcept override { real_->rollback(); }

private:
    template <class Call>
    std::invoke_result_t<Call> counted(int DriverCalls::*kind, const Call &call) {
        ++(state_->calls.*kind);
        state_->admit(losses_);
        if (WatchedDatabase::State::strikes(state_->callsUntilLostAnswer)) {
            static_cast<void>(call());
            state_->lose();
            throw WatchedDatabase::State::broken();
        }
        return call();
    }

    std::shared_ptr<WatchedDatabase::State> state_;
    int losses_;
    std::unique_ptr<recordset::Driver> real_;
};

} // namespace

std::ostream &operator<<(std::ostream &out, const DriverCalls &calls) {
    return out << calls.connects << " connects, " << calls.queries << " queries, " << calls.executes
               << " executes, " << calls.inserts << " inserts, " << calls.transactions
               << " transactions";
}

WatchedDatabase::WatchedDatabase(recordset::Provider real)
    : state_(std::make_shared<State>(State{std::move(real), {}, {}, {}, {}})) {}

recordset::Provider WatchedDatabase::provider() const {
    return {state_->real.form, state_->real.accepts,
            [state = state_](const recordset::ConnectionString &connectionString)
                -> std::unique_ptr<recordset::Driver> {
                ++state->calls.connects;
                state->admit(state->losses);
                return std::make_unique<WatchedDriver>(state,
                                                       state->real.connect(connectionString));
            }};
}

DriverCalls WatchedDatabase::takeCalls() {
    return std::exchange(state_->calls, {});
}

void WatchedDatabase::loseAfter(int calls) {
    state_->callsUntilLoss = calls;
}

void WatchedDatabase::loseAnswerAfter(int calls) {
    state_->callsUntilLostAnswer = calls;
}

bool WatchedDatabase::cancel() {
    const bool wasPlanned =
        state_->callsUntilLoss || state_->callsUntilLostAnswer || state_->callsUntilRefusal;
    state_->callsUntilLoss.reset();
    state_->callsUntilLostAnswer.reset();
    state_->callsUntilRefusal.reset();
    return wasPlanned;
}

void WatchedDatabase::comeBack() {
    state_->lost = false;
}

void WatchedDatabase::interruptAfter(int calls, std::function<void()> event) {
    state_->callsUntilEvent = calls;
    state_->event = std::move(event);
}

void WatchedDatabase::refuseAfter(int calls, std::int32_t number) {
    state_->callsUntilRefusal = calls;
    state_->refusal = number;
}

} // namespace kvex::test
