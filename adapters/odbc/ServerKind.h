// What differs from one server to the other.
#pragma once

#include "adapters/recordset/Driver.h"

#include <string>
#include <string_view>

namespace kvex::odbc {

/// How the key that a server gave a new row is read.
enum class NewKey { returning, lastNumber, output, given };

/// Which texts a driver hands on as the server's bytes, UTF-8, when it is asked for bytes. It is
/// asked for wide characters for the others: the drivers take their time to make them.
enum class Utf8Texts { none, longOnes, all };

struct ServerKind {
    /// As the driver names the database.
    std::u16string_view name;
    NewKey newKey;
    /// For lastNumber: the row whose this number is has the new key. "" for the key itself.
    std::u16string_view rowNumber;
    std::u16string_view lastNumber;
    /// What stands for the values of a row of defaults alone.
    std::u16string_view emptyRow;
    /// The two sides of a comparison of texts to the last character: around the column, around
    /// the parameter.
    std::u16string_view beforeColumn;
    std::u16string_view afterColumn;
    std::u16string_view parameter;
    /// Texts with one come back whole. What would not is refused before it is stored.
    bool keepsNulCharacters;
    /// Its driver says which column of which table a value comes from.
    bool saysOrigins;
    /// Holds for the driver of this name.
    std::u16string_view utf8Driver;
    Utf8Texts utf8Texts;
    /// It does so only while the process runs in a locale of UTF-8.
    bool utf8InUtf8Locales;
    recordset::ColumnTypes columnTypes;

    /// A server of an unknown name is one of the standard's plain ways. `version` is that of
    /// ODBC: "10.11.000006".
    [[nodiscard]] static ServerKind of(std::u16string_view name, std::u16string_view version);
};

} // namespace kvex::odbc
