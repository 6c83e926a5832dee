// What the host suite knows in this process: its configuration and its error log.
#pragma once

#include "host/suite/ErrorLog.h"
#include "platform/Error.h"

#include <string>
#include <string_view>

namespace kvex::host {

struct SuiteState {
    /// The server's database, as utility objects give it out.
    std::u16string connectionString;
    /// What they give out as the second text.
    std::u16string secondText;
    ErrorLog log;
    /// Why the last error that was logged happened; "" while there was none.
    std::u16string lastReason;
};

/// The one that all objects of the suite in this module share. Set it before the first is made.
[[nodiscard]] SuiteState &suiteState();

/// Adds an entry to the log of suiteState(): `text`, and the error, when there is one, which is the
/// last one from then on. `logFile` as ErrorLog::append takes it.
void logEntry(std::u16string_view logFile, std::u16string_view text, const Error *error);

} // namespace kvex::host
