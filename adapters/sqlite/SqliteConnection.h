// An open SQLite database, with the settings that the system needs.
#pragma once

#include "adapters/recordset/ConnectionString.h"
#include "platform/Error.h"

#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace kvex::sqlite {

/// True for a bare path and for "Provider=SQLite".
[[nodiscard]] bool namesSqlite(const recordset::ConnectionString &text);

/// Enforces foreign keys, waits for locks, and synchronises each change with the disk. Uses a
/// write-ahead log for the server's rules and for a new file. Another program's database keeps its
/// journal mode.
class SqliteConnection {
public:
    enum class Missing { refuse, create };

    /// Opens the string's "Data Source": a file, a "file:" URI or ":memory:". Fails with
    /// badArgument when there is none, and when "Busy Timeout" is not a whole number of
    /// milliseconds. Fails with the provider's number when the file is no database, or is damaged
    /// or locked. A missing or empty file fails in the same way, unless `missing` is create.
    ///
    /// A file that may not be written opens for reading. When its folder may not be written either
    /// and holds no log of the file, SQLite treats the file as one that nobody changes.
    SqliteConnection(const recordset::ConnectionString &text, Missing missing);

    [[nodiscard]] sqlite3 *handle() const noexcept { return handle_.get(); }
    /// The error that the last failed call on the handle reported.
    [[nodiscard]] Error lastError() const;
    /// Runs statements without parameters and results.
    void execute(const char *statements) const;
    /// Fails with the provider's number when the open file was moved, replaced or removed: nobody
    /// would ever read what is written to it.
    void requireInPlace() const;

private:
    struct Closer {
        void operator()(sqlite3 *handle) const noexcept;
    };

    void open(const std::string &path, int flags);
    void openUnchanging();
    [[nodiscard]] bool isEmptyFile() const;
    [[nodiscard]] bool holdsRules() const;
    /// True when the query gives a number other than 0.
    [[nodiscard]] bool isTrue(const char *query) const;
    /// Does nothing when the file may not be written.
    void writeAhead() const;

    std::u16string name_;
    int busyTimeout_;
    std::unique_ptr<sqlite3, Closer> handle_;
};

} // namespace kvex::sqlite
