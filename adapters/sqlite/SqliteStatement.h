// One prepared statement of SQLite.
#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/Value.h"

#include <memory>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace kvex::sqlite {

class SqliteStatement {
public:
    /// Fails with badArgument when the text holds no statement, and with the provider's number when
    /// SQLite refuses it. The connection must outlive the statement.
    SqliteStatement(const SqliteConnection &connection, std::u16string_view text);

    /// One value for each "?".
    void bind(const std::vector<ValueView> &parameters);
    /// Goes to the next row; false when there is none, which ends the statement.
    bool step();
    /// Ends the statement, so that it can be bound and run again.
    void reset() noexcept;
    /// The column's value as text, "" for Null; columns are numbered from 0.
    [[nodiscard]] std::u16string text(int column) const;
    [[nodiscard]] const SqliteConnection &connection() const noexcept { return connection_; }
    [[nodiscard]] sqlite3_stmt *handle() const noexcept { return handle_.get(); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt *handle) const noexcept;
    };

    const SqliteConnection &connection_;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

} // namespace kvex::sqlite
