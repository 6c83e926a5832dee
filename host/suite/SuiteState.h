// The host suite's state in this process: its configuration and its error log.
#pragma once

#include "host/suite/ErrorLog.h"
#include "platform/Error.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

struct LoggedError {
    /// The entry's text. It names the procedure that met the error.
    std::u16string text;
    Error error;
};

struct SuiteState {
    /// The connection string that utility objects give out.
    std::u16string connectionString;
    /// The second text that they give out.
    std::u16string secondText;
    ErrorLog log;
    /// The first and the last logged error since their last reset.
    std::optional<LoggedError> firstError = std::nullopt;
    std::optional<LoggedError> lastError = std::nullopt;
};

/// All objects of the suite in this module share it. Set it before you create the first one.
[[nodiscard]] SuiteState &suiteState();

/// Adds an entry with `text`, and with `error` unless it is null, to the log of suiteState(). Keeps
/// the error as the last one, and as the first one if there is none yet. `logFile` is as
/// ErrorLog::append takes it.
void logEntry(std::u16string_view logFile, std::u16string_view text, const Error *error);

} // namespace kvex::host
