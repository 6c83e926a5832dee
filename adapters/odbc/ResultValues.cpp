#include "adapters/odbc/ResultValues.h"

#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <utility>

namespace kvex::odbc {
namespace {

/// Nothing for Null.
template <class Number>
std::optional<Number> numberOf(const Handle<SQL_HANDLE_STMT> &row, SQLUSMALLINT column,
                               SQLSMALLINT type) {
    Number number{};
    SQLLEN length = 0;
    row.check(SQLGetData(row.get(), column, type, &number, sizeof number, &length));
    if (length == SQL_NULL_DATA) {
        return std::nullopt;
    }
    return number;
}

void deliverDecimal(std::u16string_view text, recordset::RowSink &sink) {
    const std::string digits = toUtf8(text);
    std::int64_t integer = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), integer);
    if (error == std::errc() && end == digits.data() + digits.size()) {
        sink.integer(integer);
    } else {
        sink.number(toDouble(text));
    }
}

} // namespace

std::optional<std::u16string_view> ValueReader::text(const Handle<SQL_HANDLE_STMT> &row,
                                                     SQLUSMALLINT column) {
    std::size_t read = 0;
    for (;;) {
        const std::size_t room = buffer_.size() - read;
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(row.get(), column, SQL_C_WCHAR, buffer_.data() + read,
                                            static_cast<SQLLEN>(room * sizeof(char16_t)), &length);
        if (result == SQL_NO_DATA) {
            break;
        }
        row.check(result);
        if (length == SQL_NULL_DATA) {
            return std::nullopt;
        }
        const std::size_t units = static_cast<std::size_t>(length) / sizeof(char16_t);
        if (length >= 0 && units < room) {
            read += units;
            break;
        }
        // All of the room but the closing NUL is filled.
        read += room - 1;
        const std::size_t rest = length >= 0 ? units - room + 2 : buffer_.size();
        buffer_.resize(read + rest);
    }
    return std::u16string_view(buffer_).substr(0, read);
}

void ValueReader::deliver(const Handle<SQL_HANDLE_STMT> &row, SQLUSMALLINT column, ValueKind kind,
                          recordset::RowSink &sink) {
    switch (kind) {
    case ValueKind::integer:
        if (const auto number = numberOf<std::int64_t>(row, column, SQL_C_SBIGINT)) {
            return sink.integer(*number);
        }
        break;
    case ValueKind::number:
        if (const auto number = numberOf<double>(row, column, SQL_C_DOUBLE)) {
            return sink.number(*number);
        }
        break;
    case ValueKind::decimal:
        if (const auto digits = text(row, column)) {
            return deliverDecimal(*digits, sink);
        }
        break;
    case ValueKind::text:
        if (const auto read = text(row, column)) {
            return sink.text(*read);
        }
        break;
    }
    sink.null();
}

void deliverResult(const OdbcStatement &query, recordset::RowSink &sink) {
    const std::vector<ResultColumn> described = resultColumns(query);
    std::vector<recordset::Column> columns(described.size());
    std::ranges::transform(described, columns.begin(), [](const ResultColumn &column) {
        return recordset::Column{column.name, {}, {}, 0};
    });
    sink.columns(std::move(columns));
    for (ValueReader reader; query.fetch();) {
        SQLUSMALLINT position = 0;
        for (const ResultColumn &column : described) {
            reader.deliver(query.statement(), ++position, column.kind, sink);
        }
    }
}

} // namespace kvex::odbc
