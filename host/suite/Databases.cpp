#include "host/suite/Databases.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"

namespace kvex::host {
namespace {

std::unique_ptr<recordset::ClientConnection> opened(std::u16string_view connectionString,
                                                    const recordset::Provider &files) {
    auto connection = std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{files, odbc::provider()});
    static_cast<Connection &>(*connection).open(connectionString);
    return connection;
}

} // namespace

std::unique_ptr<recordset::ClientConnection> openDatabase(std::u16string_view connectionString) {
    return opened(connectionString, sqlite::provider());
}

std::unique_ptr<recordset::ClientConnection>
openOrMakeDatabase(std::u16string_view connectionString) {
    return opened(connectionString, sqlite::creatingProvider());
}

std::unique_ptr<Recordset> createRecordset() {
    return std::make_unique<recordset::ClientRecordset>();
}

std::u16string textOf(const Recordset &rows, std::u16string_view column) {
    const ValueView value = rows.field(column);
    return value.isNull() ? std::u16string() : value.text();
}

} // namespace kvex::host
