// What a kind of database implements for the client-side record sets.
#pragma once

#include "adapters/recordset/ConnectionString.h"
#include "platform/Database.h"
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
    /// The table and column that the values come from, qualified and quoted as a statement must
    /// write them. Both are empty for an expression.
    std::u16string table;
    std::u16string baseColumn;
    /// The number of columns in the table's primary key when this column is one of them, else 0.
    std::size_t keyParts = 0;
};

/// Receives the result of a query: first the columns, then the rows, value by value from left to
/// right.
class RowSink {
public:
    virtual void columns(std::vector<Column> columns) = 0;
    virtual void null() = 0;
    virtual void integer(std::int64_t number) = 0;
    virtual void number(double number) = 0;
    /// Copies `text`.
    virtual void text(std::u16string_view text) = 0;
    /// The same for a text in UTF-8; it converts as in fromUtf8.
    virtual void utf8(std::string_view text) = 0;

protected:
    ~RowSink() = default;
};

/// A statement with one "?" for each parameter. The caller owns the parameters.
struct Statement {
    std::u16string text;
    std::vector<ValueView> parameters;
};

/// A column, named as a statement must write it, and its value.
struct Assignment {
    std::u16string_view column;
    ValueView value;
};

/// How the database writes the columns of a new table.
struct ColumnTypes {
    /// An integer key. The database numbers its rows, and never uses the number of a removed row
    /// again.
    std::u16string_view key;
    /// Text of at least 255 characters.
    std::u16string_view name;
    /// Text of at least 5,000 characters.
    std::u16string_view text;
    std::u16string_view integer;
    /// What follows the closing bracket, for example a character set; may be "".
    std::u16string_view behindTable;
};

/// One open connection to one database; the destructor closes it. Each call is a transaction of its
/// own, unless begin was called. When the database refuses, the call throws an Error with the
/// provider's negative number. Its description says what happened, and nothing was written.
/// noConnection is the exception: then it is unknown whether the call wrote, and every later call
/// fails with it too.
class Driver {
public:
    virtual ~Driver() = default;

    /// Delivers the whole result. Fails with badArgument for a statement without a result, and does
    /// not run it.
    virtual void query(const Statement &statement, RowSink &sink) = 0;
    /// Fills in where the values of `columns` come from: table, column and key. `query` is a text
    /// that was queried before. A record set calls this once, at the latest before its first write.
    /// A driver implements it when its query could not fill them in without another request to the
    /// server.
    virtual void describe(const std::u16string &query, std::vector<Column> &columns) {
        static_cast<void>(query);
        static_cast<void>(columns);
    }
    /// Runs the statement and returns how many rows it found. Rows that it did not change count,
    /// too.
    virtual std::int64_t execute(const Statement &statement) = 0;
    /// Inserts a row with these values and the table's defaults. Returns the row's values of
    /// `keyColumns`.
    virtual std::vector<Value> insert(std::u16string_view table,
                                      const std::vector<Assignment> &values,
                                      const std::vector<std::u16string_view> &keyColumns) = 0;
    /// The condition, with one "?", that `column` still holds exactly the value `read`, which is
    /// not Null. In a text every character counts, whatever the column's collation. The condition
    /// must work for every kind of column that query delivers, even for long texts.
    [[nodiscard]] virtual std::u16string stillHolds(std::u16string_view column,
                                                    const ValueView &read) const = 0;

    [[nodiscard]] virtual ColumnTypes columnTypes() const = 0;
    /// The columns of the table that a statement finds under this name without a qualifier. The
    /// case of the name does not matter. Empty when there is no such table.
    [[nodiscard]] virtual std::vector<std::u16string> columnsOf(std::u16string_view table) = 0;

    /// True when the database says that it has no such table. A driver implements it when the query
    /// of a missing table would end a transaction, or fill the server's log with errors.
    [[nodiscard]] virtual bool lacks(std::u16string_view table) {
        static_cast<void>(table);
        return false;
    }
    /// Copies the whole database into the empty file at this path, and returns true. Returns false
    /// when only the rows of this kind of database can be copied.
    virtual bool copyTo(const std::string &file) {
        static_cast<void>(file);
        return false;
    }
    /// Lets the numbering of new rows continue after the largest number of the column. A driver
    /// implements it when its database does not notice numbers that a statement sets.
    virtual void continueNumbering(std::u16string_view table, std::u16string_view column) {
        static_cast<void>(table);
        static_cast<void>(column);
    }

    /// Begins a transaction, which lasts until commit succeeds or rollback is called. Transactions
    /// cannot be nested.
    virtual void begin() = 0;
    /// The same, for reading: all its queries see one state of the database, whatever other
    /// programs store meanwhile. A driver implements it when begin does not do this, or keeps
    /// others from writing.
    virtual void beginSnapshot() { begin(); }
    /// The same, for writing: until it ends, no other program can write these tables. Its queries
    /// see all that was stored before. When this fails, rollback must follow. A driver implements
    /// it when begin does not do this.
    virtual void beginAlone(const std::vector<std::u16string_view> &tables) {
        static_cast<void>(tables);
        begin();
    }
    /// When this fails, nothing since begin is stored; rollback must follow. noConnection is the
    /// exception: then it is unknown whether all of it is stored, or nothing.
    virtual void commit() = 0;
    /// Undoes all writes since begin, unless the database has already undone them. When the
    /// database cannot be told, the connection ends, and every later call fails.
    virtual void rollback() noexcept = 0;
};

/// A kind of database.
struct Provider {
    /// The form of its connection strings, for messages: "Provider=SQLite;Data Source=PATH".
    std::u16string_view form;
    std::function<bool(const ConnectionString &connectionString)> accepts;
    /// Fails as Connection::open does. The string has the user id as UID, the password as PWD.
    std::function<std::unique_ptr<Driver>(const ConnectionString &connectionString)> connect;
};

} // namespace kvex::recordset
