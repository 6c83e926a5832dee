#include "host/suite/SuiteState.h"

#include "host/suite/ErrorLog.h"

#include <ctime>

namespace kvex::host {

SuiteState &suiteState() {
    static SuiteState state;
    return state;
}

void logEntry(std::u16string_view logFile, std::u16string_view text, const Error *error) {
    suiteState().log.append(logFile, logLine(std::time(nullptr), text, error));
    if (error != nullptr) {
        suiteState().lastError = LoggedError{std::u16string(text), *error};
        if (!suiteState().firstError) {
            suiteState().firstError = suiteState().lastError;
        }
    }
}

} // namespace kvex::host
