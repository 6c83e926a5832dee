// The kinds of servers: which options their drivers need, and how their SQL differs.
#pragma once

#include "adapters/recordset/Driver.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// In seconds: how long a server may take to let the user in, and to answer a call.
struct Timeouts {
    int login;
    int call;
};

/// What happens to a value that the user gave under the key of an option.
enum class UsersValue { replacesOurs, isReplaced, followsOurs };

/// A key and a value that a driver needs in its connection string.
struct DriverOption {
    std::u16string_view key;
    std::u16string value;
    UsersValue usersValue = UsersValue::replacesOurs;
    /// Another key by which the user can set the same option; "" when there is none.
    std::u16string_view otherKey{};
};

/// How a session learns the key that the server gave a new row.
enum class NewKey { returning, lastNumber, output, given };

/// Which texts the driver returns as UTF-8 when the adapter asks for bytes. All others are read as
/// wide characters, which these drivers convert slowly.
enum class Utf8Texts { none, longOnes, all };

struct ServerKind {
    /// The server's name, as the driver reports it; "" for an unknown server.
    std::u16string_view name;

    // What is known before the connection.
    /// Words in lower case; the driver belongs to this kind when its name holds one of them.
    std::array<std::u16string_view, 2> driverNames{};
    /// "Server" may list several servers.
    bool takesServerList = false;
    std::vector<DriverOption> (*options)(const Timeouts &timeouts);

    // How a new row is inserted, and its key read.
    NewKey newKey = NewKey::given;
    /// For lastNumber: an SQL expression for the number of the row inserted last.
    std::u16string_view lastNumber{};
    /// For lastNumber: the column that holds this number; "" for the key itself.
    std::u16string_view rowNumber{};
    /// Replaces the list of values when a row has defaults only.
    std::u16string_view emptyRow = u"DEFAULT VALUES";

    /// The SQL that compares a text column with a parameter, character by character: the parts
    /// before and after the column, and the parameter's.
    std::u16string_view beforeColumn{};
    std::u16string_view afterColumn = u" = ";
    std::u16string_view parameter = u"?";

    /// The server can store a NUL character, and its driver returns it.
    bool keepsNulCharacters = false;
    /// The driver reports the table and the column that a value comes from.
    bool saysOrigins = true;
    /// The file name of the driver that `utf8Texts` describes.
    std::u16string_view utf8Driver{};
    Utf8Texts utf8Texts = Utf8Texts::none;
    /// The driver returns UTF-8 only while the process has a UTF-8 locale.
    bool utf8InUtf8Locales = false;
    /// Gives Null when there is no table "{table}". "" for a server that lets a transaction go on
    /// after a query has failed, and that does not log such a query as an error.
    std::u16string_view tableQuery{};
    recordset::ColumnTypes columnTypes;

    /// In a transaction of the level REPEATABLE READ, all queries see one state. Elsewhere only
    /// SERIALIZABLE promises that.
    bool repeatableReadIsSnapshot = false;
    /// Keeps other programs from writing "{table}" until the transaction ends.
    std::u16string_view lock = u"DELETE FROM {table} WHERE 1 = 0";
    /// Lets the numbering of "{column}" in "{table}" continue after its largest number. "" for a
    /// server that notices the numbers that a statement sets.
    std::u16string_view numbering{};

    /// The kind that a driver's name (or file name) indicates, before the connection.
    [[nodiscard]] static const ServerKind &ofDriver(std::u16string_view driver);
    /// The kind that the connected server reports; standard SQL for an unknown name. `version` has
    /// ODBC's form: "10.11.000006".
    [[nodiscard]] static ServerKind of(std::u16string_view name, std::u16string_view version);
};

} // namespace kvex::odbc
