// What a database must do for the client-side record sets, and how a connection finds it.
#pragma once

#include "adapters/recordset/ConnectionString.h"
#include "platform/Value.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// One column of a query's result.
struct Column {
    /// As the query names it.
    std::u16string name;
    /// The table and its column that the values come from, as a statement must write them
    /// (qualified, quoted); both empty for an expression.
    std::u16string table;
    std::u16string baseColumn;
    /// When the column is part of its table's primary key: of how many columns that key is
    /// made. Otherwise 0.
    std::size_t keyParts = 0;
};

/// Takes a query's result: first its columns, then the rows, value by value from left to right.
class RowSink {
public:
    virtual void columns(std::vector<Column> columns) = 0;
    virtual void null() = 0;
    virtual void integer(std::int64_t number) = 0;
    virtual void number(double number) = 0;
    /// Copies `text`.
    virtual void text(std::u16string_view text) = 0;
    /// The same text in UTF-8, read as fromUtf8 does.
    virtual void utf8(std::string_view text) = 0;

protected:
    ~RowSink() = default;
};

/// A statement with one "?" for each parameter. The parameters are the caller's.
struct Statement {
    std::u16string text;
    std::vector<ValueView> parameters;
};

/// A column's name as a statement must write it, and the value it gets.
struct Assignment {
    std::u16string_view column;
    ValueView value;
};

/// How the database writes the columns of a new table.
struct ColumnTypes {
    /// Numbered by the database; the number of a removed row is not given again.
    std::u16string_view key;
    /// Text of 255 characters at least.
    std::u16string_view name;
    /// Text of 5,000 characters and more.
    std::u16string_view text;
    std::u16string_view integer;
    /// After the closing bracket: a character set, for one; "" for nothing.
    std::u16string_view behindTable;
};

/// One open connection to one database; its destruction closes it. Each call is a transaction of
/// its own, unless begin was called. What the database refuses is thrown as an Error with the
/// provider's negative number and a description that says what to do; the call wrote nothing then.
/// The one exception is connectionLost: whether the call wrote is not known then, and every later
/// one fails with it too.
class Driver {
public:
    virtual ~Driver() = default;

    /// Delivers the whole result. A statement that has none is not run: badArgument.
    virtual void query(const Statement &statement, RowSink &sink) = 0;
    /// Says of the columns of `query`, a text that was queried before, where their values come
    /// from. A driver that cannot say it in query without asking its server for more says it
    /// here, before the first write.
    virtual void describe(const std::u16string &query, std::vector<Column> &columns) {
        static_cast<void>(query);
        static_cast<void>(columns);
    }
    /// How many rows the statement found to write, changed in fact or not.
    virtual std::int64_t execute(const Statement &statement) = 0;
    /// Inserts a row with these values and the table's defaults; gives the values that
    /// `keyColumns` have in it.
    virtual std::vector<Value> insert(std::u16string_view table,
                                      const std::vector<Assignment> &values,
                                      const std::vector<std::u16string_view> &keyColumns) = 0;
    /// The condition, with one "?", that `column` still holds exactly the value that was read
    /// and is not Null: for text every character counts, whatever the column's collation. It is
    /// asked for columns of every kind that query delivers, those of long texts too.
    [[nodiscard]] virtual std::u16string stillHolds(std::u16string_view column,
                                                    const ValueView &read) const = 0;

    [[nodiscard]] virtual ColumnTypes columnTypes() const = 0;
    /// The columns of the table that a statement without a qualifier finds under this name,
    /// whatever its case; none when there is no such table.
    [[nodiscard]] virtual std::vector<std::u16string> columnsOf(std::u16string_view table) = 0;

    /// What is called from now on is one transaction, up to commit or rollback; see Transaction.h.
    /// Not within another one.
    virtual void begin() = 0;
    /// When it fails the transaction goes on.
    virtual void commit() = 0;
    /// Undoes what was written since begin; nothing when the database has undone it already.
    virtual void rollback() noexcept = 0;
};

/// The number of an Error when the connection to the database broke.
inline constexpr std::int32_t connectionLost = -2147467259;

/// A kind of database.
struct Provider {
    /// How its connection strings are written, for the user: "Provider=SQLite;Data Source=PATH".
    std::u16string_view form;
    std::function<bool(const ConnectionString &connectionString)> accepts;
    /// Fails as Connection::open does. User id and password are in the string as UID and PWD.
    std::function<std::unique_ptr<Driver>(const ConnectionString &connectionString)> connect;
};

} // namespace kvex::recordset
