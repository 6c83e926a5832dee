// What the host suite knows in this process: its configuration and its error log.
#pragma once

#include "host/suite/ErrorLog.h"
#include "platform/Error.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

struct LoggedError {
    /// The entry's text: which procedure met the error.
    std::u16string text;
    Error error;
};

struct SuiteState {
    /// The server's database, as utility objects give it out.
    std::u16string connectionString;
    /// What they give out as the second text.
    std::u16string secondText;
    ErrorLog log;
    /// The first and the last error that were logged since somebody reset them.
    std::optional<LoggedError> firstError = std::nullopt;
    std::optional<LoggedError> lastError = std::nullopt;
};

/// The one that all objects of the suite in this module share. Set it before the first is made.
[[nodiscard]] SuiteState &suiteState();

/// Adds an entry to the log of suiteState(): `text`, and `error` unless it is null. Keeps the error
/// as the last one, and as the first one when there is none yet. `logFile` as ErrorLog::append
/// takes it.
void logEntry(std::u16string_view logFile, std::u16string_view text, const Error *error);

} // namespace kvex::host
