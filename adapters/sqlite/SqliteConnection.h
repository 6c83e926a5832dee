// An open SQLite database, set up as the system wants it.
#pragma once

#include "platform/Error.h"

#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace kvex::sqlite {

/// Writes ahead to a log with full synchronisation, enforces foreign keys and waits for locks. A
/// database with tables but without the server's rules keeps its way of logging: it is another
/// program's.
class Database {
public:
    enum class Missing { refuse, create };

    /// Opens the file, "file:" URI or ":memory:" that `name` is. Fails with the provider's number
    /// for a file that is missing (unless `missing` creates it) or empty (likewise), is no
    /// database, is damaged or locked. What may not be written opens for reading; where its
    /// folder may not be written either and no log lies there, the file is taken as one that
    /// nobody changes.
    Database(std::u16string_view name, int busyTimeout, Missing missing = Missing::refuse);

    [[nodiscard]] sqlite3 *handle() const noexcept { return handle_.get(); }
    /// What the last failed call on the handle reported.
    [[nodiscard]] Error lastError() const;
    /// Runs statements without parameters and results.
    void execute(const char *statements) const;
    /// Fails with the provider's number when the file that is open no longer lies under its name:
    /// it was moved, replaced or removed, and nobody would ever read what is written to it.
    void requireInPlace() const;

private:
    struct Closer {
        void operator()(sqlite3 *handle) const noexcept;
    };

    void open(const std::string &path, int flags);
    void openUnchanging();
    [[nodiscard]] bool isEmptyFile() const;
    [[nodiscard]] bool holdsRules() const;
    /// A file that may not be written stays as it is.
    void writeAhead() const;

    std::u16string name_;
    int busyTimeout_;
    std::unique_ptr<sqlite3, Closer> handle_;
};

} // namespace kvex::sqlite
