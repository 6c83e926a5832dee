// The record sets' driver over one SQLite database.
#pragma once

#include "adapters/recordset/Driver.h"
#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/SqliteStatement.h"

#include <optional>

namespace kvex::sqlite {

class SqliteDriver final : public recordset::Driver {
public:
    explicit SqliteDriver(Database database) : database_(std::move(database)) {}

    void query(const recordset::Statement &statement, recordset::RowSink &sink) override;
    void describe(const std::u16string &query, std::vector<recordset::Column> &columns) override;
    std::int64_t execute(const recordset::Statement &statement) override;
    std::vector<Value> insert(std::u16string_view table,
                              const std::vector<recordset::Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override;
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView &read) const override;
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override;
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override;
    void begin() override { database_.execute("BEGIN IMMEDIATE"); }
    void commit() override { database_.execute("COMMIT"); }
    void rollback() noexcept override;

private:
    /// The statement of this text, kept from the last time where it is the same.
    SqliteStatement &command(const std::u16string &text);

    Database database_;
    /// What execute ran last: one change after the other has the same text.
    std::u16string commandText_;
    std::optional<SqliteStatement> command_;
};

} // namespace kvex::sqlite
