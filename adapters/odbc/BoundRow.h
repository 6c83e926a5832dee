// The current row of a result, each value in a place that the driver writes it to.
#pragma once

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/ResultColumns.h"
#include "adapters/odbc/TextReader.h"
#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvex::odbc {

/// A text that does not fit its place is read again, whole. Drivers that cannot do that have
/// nothing bound: there each value is asked for.
class BoundRow {
public:
    /// `query` has run, and outlives this.
    BoundRow(const OdbcStatement &query, const std::vector<ResultColumn> &columns);
    ~BoundRow();
    BoundRow(const BoundRow &) = delete;
    BoundRow &operator=(const BoundRow &) = delete;

    /// The values of the row that was fetched, from left to right.
    void deliver(recordset::RowSink &sink);

private:
    struct Place {
        ValueKind kind;
        /// What the driver is to write (SQL_C_...).
        SQLSMALLINT type;
        std::int64_t integer = 0;
        double number = 0;
        /// The text, or its bytes in UTF-8.
        std::u16string text{};
        /// In bytes, or SQL_NULL_DATA; of a text that did not fit, of all of it.
        SQLLEN length = 0;

        [[nodiscard]] SQLPOINTER data();
        [[nodiscard]] SQLLEN size() const;
    };
    static Place placeFor(const ResultColumn &column);

    void deliverNumber(SQLUSMALLINT column, Place &place, recordset::RowSink &sink);
    void deliverText(SQLUSMALLINT column, const Place &place, recordset::RowSink &sink);

    const OdbcStatement &query_;
    bool isBound_;
    std::vector<Place> places_;
    TextReader reader_;
};

} // namespace kvex::odbc
