#include "host/kvexrules/Database.h"

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"

namespace kvex::host {

std::unique_ptr<Recordset> createRecordset() {
    return std::make_unique<recordset::ClientRecordset>();
}

std::unique_ptr<Connection> openConnection(const Settings &settings) {
    auto connection = std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{sqlite::provider()});
    static_cast<Connection &>(*connection).open(fromUtf8(settings.database));
    return connection;
}

void failFor(const Settings &settings, const Error &error, int status) {
    throw Failure(toUtf8(error.description()) + " " + settings.databaseOrigin, status);
}

} // namespace kvex::host
