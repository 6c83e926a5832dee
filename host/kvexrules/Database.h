// The databases that the program itself reads and writes.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "platform/Error.h"

#include <memory>

namespace kvex::host {

/// Fails as Connection::open does.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection> openConnection(const Settings &settings);

/// Ends a command because of what the database reported.
[[noreturn]] void failFor(const Settings &settings, const Error &error,
                          int status = exit_status::unusable);

} // namespace kvex::host
