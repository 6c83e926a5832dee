// The statements that a connection ran last, ready to be run again.
#pragma once

#include "adapters/odbc/OdbcStatement.h"

#include <list>

namespace kvex::odbc {

enum class Purpose { reading, writing };

/// A statement that is run many times, as the one that numbers rules, is sent whole only once.
/// They go with their connection.
class PreparedStatements {
public:
    explicit PreparedStatements(const OdbcConnection &connection) : connection_(connection) {}
    ~PreparedStatements();
    PreparedStatements(const PreparedStatements &) = delete;
    PreparedStatements &operator=(const PreparedStatements &) = delete;

    /// What `use` makes of the statement that has run; its result is closed then. For reading one
    /// without a result is not run: badArgument.
    template <class Use>
    auto run(Purpose purpose, const recordset::Statement &statement, const Use &use) {
        OdbcStatement &run = executed(purpose, statement);
        try {
            auto used = use(run);
            run.close();
            return used;
        } catch (...) {
            statements_.pop_front();
            throw;
        }
    }

private:
    /// The first of the list; one that failed is not kept.
    OdbcStatement &executed(Purpose purpose, const recordset::Statement &statement);
    OdbcStatement &executedNew(Purpose purpose, const recordset::Statement &statement);

    const OdbcConnection &connection_;
    std::list<OdbcStatement> statements_;
};

} // namespace kvex::odbc
