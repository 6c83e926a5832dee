// What differs from one server to the other.
#pragma once

#include <string>
#include <string_view>

namespace kvex::odbc {

/// How the key that a server gave a new row is read.
enum class NewKey { returning, lastInsertId, output, given };

struct ServerKind {
    /// As the driver names the database.
    std::u16string_view name;
    NewKey newKey;
    /// What stands for the values of a row of defaults alone.
    std::u16string_view emptyRow;
    /// The two sides of a comparison of texts to the last character: around the column, around
    /// the parameter.
    std::u16string_view beforeColumn;
    std::u16string_view afterColumn;
    std::u16string_view parameter;
    bool keepsNulCharacters;
    /// How the columns of a new table are written.
    std::u16string_view key;
    std::u16string_view shortText;
    std::u16string_view longText;
    std::u16string_view behindTable;

    /// A server of an unknown name is one of the standard's plain ways. `version` is that of
    /// ODBC: "10.11.000006".
    [[nodiscard]] static ServerKind of(std::u16string_view name, std::u16string_view version);
};

} // namespace kvex::odbc
