#include "adapters/odbc/PreparedStatements.h"

#include <algorithm>

namespace kvex::odbc {
namespace {

/// More than the editor has: ticks, the order, saves of each kind and the reading behind them.
constexpr std::size_t most = 8;

} // namespace

PreparedStatements::~PreparedStatements() {
    // One by one each would be a way to the server and back.
    for (OdbcStatement &statement : statements_) {
        statement.leaveToConnection();
    }
}

OdbcStatement &PreparedStatements::executed(Purpose purpose,
                                            const recordset::Statement &statement) {
    const auto kept = std::ranges::find(statements_, statement.text, &OdbcStatement::text);
    if (kept == statements_.end()) {
        return executedNew(purpose, statement);
    }
    statements_.splice(statements_.begin(), statements_, kept);
    try {
        kept->execute(statement.parameters);
        return *kept;
    } catch (const Error &) {
        statements_.pop_front();
        if (purpose == Purpose::writing) {
            throw;
        }
    }
    // A server may refuse a query whose columns have changed their type since it was prepared.
    return executedNew(purpose, statement);
}

OdbcStatement &PreparedStatements::executedNew(Purpose purpose,
                                               const recordset::Statement &statement) {
    OdbcStatement &added = statements_.emplace_front(connection_, statement.text);
    try {
        added.prepare();
        if (purpose == Purpose::reading && added.columnCount() == 0) {
            throw Error(error_number::badArgument,
                        u"The statement gives no rows: write a query, SELECT.");
        }
        added.execute(statement.parameters);
    } catch (...) {
        statements_.pop_front();
        throw;
    }
    if (statements_.size() > most) {
        statements_.pop_back();
    }
    return added;
}

} // namespace kvex::odbc
