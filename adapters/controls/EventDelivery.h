// Runs handlers. An error that leaves a handler never reaches the toolkit.
#pragma once

#include "platform/Error.h"

#include <functional>
#include <string_view>
#include <utility>

namespace kvex::controls {

/// Called with an error that left a handler, after the diagnostic stream has it.
using ErrorObserver = std::function<void(const Error &)>;

/// Writes the current exception to the diagnostic stream, as one line with escapes. `where` names
/// the control, such as "frmRules.cmdNew". Call it only in a catch block.
void reportUnhandled(std::u16string_view where, const ErrorObserver &observer);

/// Runs `handler` with `arguments` unless it is empty. Whatever it throws ends here. The handler
/// may replace itself while it runs.
template <class... Parameters, class... Arguments>
void deliver(const std::function<void(Parameters...)> &handler, std::u16string_view where,
             const ErrorObserver &observer, Arguments &&...arguments) {
    if (!handler) {
        return;
    }
    try {
        const auto running = handler;
        running(std::forward<Arguments>(arguments)...);
    } catch (...) {
        reportUnhandled(where, observer);
    }
}

} // namespace kvex::controls
