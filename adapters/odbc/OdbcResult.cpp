#include "adapters/odbc/OdbcResult.h"

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/OdbcStatement.h"
#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

namespace kvex::odbc {
namespace {

/// The most characters that a Place holds; the texts of rules fit.
constexpr std::size_t longestBoundText = 5000;

/// utf8 is a text that the driver returns as UTF-8 (ServerKind.h).
enum class ValueKind { integer, decimal, number, text, utf8 };

ValueKind kindOf(SQLLEN type, Utf8Texts utf8) {
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ValueKind::integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return ValueKind::decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ValueKind::number;
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
        return utf8 == Utf8Texts::all ? ValueKind::utf8 : ValueKind::text;
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
        return utf8 == Utf8Texts::none ? ValueKind::text : ValueKind::utf8;
    default:
        return ValueKind::text;
    }
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

/// The current row of a result. The driver writes each value to its Place. When the driver cannot
/// read a bound column again, no column is bound, and the row asks for each value.
class BoundRow {
public:
    /// `query` has run, and must outlive the row.
    explicit BoundRow(const OdbcStatement &query);
    ~BoundRow() { SQLFreeStmt(query_.handle(), SQL_UNBIND); }
    BoundRow(const BoundRow &) = delete;
    BoundRow &operator=(const BoundRow &) = delete;

    /// Delivers the fetched row's values, from left to right.
    void deliver(recordset::RowSink &sink);

private:
    struct Place {
        ValueKind kind;
        /// The type that the driver writes (SQL_C_...).
        SQLSMALLINT type;
        std::int64_t integer = 0;
        double number = 0;
        /// The text, or its bytes in UTF-8.
        std::u16string text{};
        /// The whole value's length in bytes, even when it did not fit; SQL_NULL_DATA for Null.
        SQLLEN length = 0;

        [[nodiscard]] SQLPOINTER data();
        [[nodiscard]] SQLLEN size() const;
    };

    [[nodiscard]] Place placeFor(SQLUSMALLINT column) const;
    void deliverNumber(SQLUSMALLINT column, Place &place, recordset::RowSink &sink);
    void deliverText(SQLUSMALLINT column, const Place &place, recordset::RowSink &sink);

    const OdbcStatement &query_;
    bool isBound_;
    std::vector<Place> places_;
    TextReader reader_;
};

SQLPOINTER BoundRow::Place::data() {
    switch (kind) {
    case ValueKind::integer:
        return &integer;
    case ValueKind::number:
        return &number;
    default:
        return text.data();
    }
}

SQLLEN BoundRow::Place::size() const {
    switch (kind) {
    case ValueKind::integer:
        return sizeof integer;
    case ValueKind::number:
        return sizeof number;
    default:
        return static_cast<SQLLEN>(text.size() * sizeof(char16_t));
    }
}

BoundRow::Place BoundRow::placeFor(SQLUSMALLINT column) const {
    // SQLDescribeCol would make PostgreSQL's driver ask its server; these two fields do not.
    const SQLLEN declared = query_.columnNumber(column, SQL_DESC_LENGTH);
    const ValueKind kind =
        kindOf(query_.columnNumber(column, SQL_DESC_TYPE), query_.connection().utf8Texts());
    Place place{.kind = kind, .type = SQL_C_WCHAR};
    if (kind == ValueKind::integer) {
        place.type = SQL_C_SBIGINT;
    } else if (kind == ValueKind::number) {
        place.type = SQL_C_DOUBLE;
    } else {
        if (kind == ValueKind::utf8) {
            place.type = SQL_C_BINARY;
        }
        const std::size_t characters =
            declared > 0 ? std::min(static_cast<std::size_t>(declared), longestBoundText)
                         : longestBoundText;
        // A character takes at most four bytes, in UTF-8 as in UTF-16. A text that fits leaves the
        // last two units free (deliverText).
        place.text.resize(2 * characters + 4);
    }
    return place;
}

BoundRow::BoundRow(const OdbcStatement &query)
    : query_(query), isBound_(query.connection().readsBoundAgain()) {
    const SQLUSMALLINT count = query.columnCount();
    places_.reserve(count);
    for (SQLUSMALLINT column = 1; column <= count; ++column) {
        Place &place = places_.emplace_back(placeFor(column));
        if (isBound_) {
            query.check(SQLBindCol(query.handle(), column, place.type, place.data(), place.size(),
                                   &place.length));
        }
    }
}

void BoundRow::deliver(recordset::RowSink &sink) {
    SQLUSMALLINT column = 0;
    for (Place &place : places_) {
        ++column;
        if (place.kind == ValueKind::integer || place.kind == ValueKind::number) {
            deliverNumber(column, place, sink);
        } else {
            deliverText(column, place, sink);
        }
    }
}

void BoundRow::deliverNumber(SQLUSMALLINT column, Place &place, recordset::RowSink &sink) {
    if (!isBound_) {
        query_.check(SQLGetData(query_.handle(), column, place.type, place.data(), place.size(),
                                &place.length));
    }
    if (place.length == SQL_NULL_DATA) {
        sink.null();
    } else if (place.kind == ValueKind::integer) {
        sink.integer(place.integer);
    } else {
        sink.number(place.number);
    }
}

void BoundRow::deliverText(SQLUSMALLINT column, const Place &place, recordset::RowSink &sink) {
    if (isBound_ && place.length == SQL_NULL_DATA) {
        return sink.null();
    }
    const auto length = static_cast<std::size_t>(place.length);
    const bool isHeld = isBound_ && place.length >= 0 &&
                        // A full Place may hold only a part of the text.
                        length <= (place.text.size() - 2) * sizeof(char16_t);
    if (isHeld && place.kind == ValueKind::utf8) {
        return sink.utf8({reinterpret_cast<const char *>(place.text.data()), length});
    }
    const std::optional<std::u16string_view> read =
        isHeld ? std::u16string_view(place.text).substr(0, length / sizeof(char16_t))
               : reader_.read(query_.statement(), column);
    if (!read) {
        sink.null();
    } else if (place.kind == ValueKind::decimal) {
        deliverDecimal(*read, sink);
    } else {
        sink.text(*read);
    }
}

} // namespace

void deliverResult(const OdbcStatement &query, recordset::RowSink &sink) {
    std::vector<recordset::Column> columns;
    for (std::u16string &name : query.columnNames()) {
        columns.push_back({std::move(name), {}, {}, 0});
    }
    sink.columns(std::move(columns));
    BoundRow row(query);
    while (query.fetch()) {
        row.deliver(sink);
    }
}

std::optional<std::u16string_view> TextReader::read(const Handle<SQL_HANDLE_STMT> &row,
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
        // The piece fills the room up to the closing NUL.
        read += room - 1;
        const std::size_t rest = length >= 0 ? units - room + 2 : buffer_.size();
        buffer_.resize(read + rest);
    }
    return std::u16string_view(buffer_).substr(0, read);
}

} // namespace kvex::odbc
