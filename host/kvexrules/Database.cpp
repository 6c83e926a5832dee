#include "host/kvexrules/Database.h"

#include "host/kvexrules/Sentences.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"

namespace kvex::host {

std::unique_ptr<recordset::ClientConnection> openConnection(const Settings &settings) {
    return openDatabase(fromUtf8(settings.database));
}

void failFor(const Settings &settings, const Error &error, int status) {
    throw Failure(asSentence(toUtf8(error.description())) + " " + settings.databaseOrigin, status);
}

} // namespace kvex::host
