// The record sets' driver over one ODBC connection.
#pragma once

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/PreparedStatements.h"
#include "adapters/recordset/Driver.h"

namespace kvex::odbc {

class OdbcDriver final : public recordset::Driver {
public:
    explicit OdbcDriver(const recordset::ConnectionString &text) : connection_(text) {}

    void query(const recordset::Statement &statement, recordset::RowSink &sink) override;
    void describe(const std::u16string &query, std::vector<recordset::Column> &columns) override;
    std::int64_t execute(const recordset::Statement &statement) override;
    std::vector<Value> insert(std::u16string_view table,
                              const std::vector<recordset::Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override;
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView &read) const override;
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override {
        return connection_.server().columnTypes;
    }
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override;
    void begin() override { connection_.setAutomaticCommit(false); }
    void commit() override;
    void rollback() noexcept override;

private:
    OdbcConnection connection_;
    PreparedStatements statements_{connection_};
};

} // namespace kvex::odbc
