#include "host/suite/Databases.h"

#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"

namespace kvex::host {

std::unique_ptr<recordset::ClientConnection> openDatabase(std::u16string_view connectionString) {
    auto connection = std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{sqlite::provider()});
    static_cast<Connection &>(*connection).open(connectionString);
    return connection;
}

std::unique_ptr<Recordset> createRecordset() {
    return std::make_unique<recordset::ClientRecordset>();
}

std::u16string textOf(const Recordset &rows, std::u16string_view column) {
    const ValueView value = rows.field(column);
    return value.isNull() ? std::u16string() : value.text();
}

} // namespace kvex::host
