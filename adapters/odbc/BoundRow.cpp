#include "adapters/odbc/BoundRow.h"

#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <string_view>

namespace kvex::odbc {
namespace {

/// In characters: the texts of rules fit.
constexpr std::size_t longestText = 5000;

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

BoundRow::Place BoundRow::placeFor(const ResultColumn &column) {
    Place place{.kind = column.kind, .type = SQL_C_WCHAR};
    if (column.kind == ValueKind::integer) {
        place.type = SQL_C_SBIGINT;
    } else if (column.kind == ValueKind::number) {
        place.type = SQL_C_DOUBLE;
    } else {
        if (column.kind == ValueKind::utf8) {
            place.type = SQL_C_BINARY;
        }
        // A character takes two units at most, in UTF-8 as in UTF-16, and NUL and a rest follow.
        place.text.resize(2 * std::min(column.length, longestText) + 4);
    }
    return place;
}

BoundRow::BoundRow(const OdbcStatement &query, const std::vector<ResultColumn> &columns)
    : query_(query), isBound_(query.connection().readsBoundAgain()) {
    std::ranges::transform(columns, std::back_inserter(places_), &placeFor);
    SQLUSMALLINT column = 0;
    for (Place &place : places_) {
        ++column;
        if (isBound_) {
            query.check(SQLBindCol(query.handle(), column, place.type, place.data(), place.size(),
                                   &place.length));
        }
    }
}

BoundRow::~BoundRow() {
    SQLFreeStmt(query_.handle(), SQL_UNBIND);
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
                        // Filled to its last characters it may hold a part.
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

} // namespace kvex::odbc
