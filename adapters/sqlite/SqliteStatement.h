// One prepared statement of SQLite.
#pragma once

#include "adapters/sqlite/Database.h"
#include "platform/Value.h"

#include <memory>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace kvex::sqlite {

class SqliteStatement {
public:
    /// Fails with the provider's number when SQLite does not understand it, with badArgument
    /// when `text` holds no statement. `database` is the caller's.
    SqliteStatement(const Database &database, std::u16string_view text);

    /// One value for each "?".
    void bind(const std::vector<ValueView> &parameters);
    /// Goes to the next row; false when there is none, and the statement has ended.
    bool step();
    /// Ends it; it can be bound and run anew.
    void reset() noexcept;
    /// The row's column as text, "" for Null.
    [[nodiscard]] std::u16string text(int column) const;
    [[nodiscard]] sqlite3_stmt *handle() const noexcept { return handle_.get(); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt *handle) const noexcept;
    };

    const Database &database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

} // namespace kvex::sqlite
