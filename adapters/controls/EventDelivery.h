// Runs handlers and keeps the errors that leave them away from the toolkit.
#pragma once

#include "platform/Error.h"

#include <functional>
#include <string_view>
#include <utility>

namespace kvex::controls {

/// Learns of an error that left a handler, after it was written to the diagnostic stream.
using ErrorObserver = std::function<void(const Error &)>;

/// Writes the exception being handled to the diagnostic stream, as one line that says in which
/// control (`where`: "frmRules.cmdNew") it happened. Call inside a catch block only.
void reportUnhandled(std::u16string_view where, const ErrorObserver &observer);

/// Runs `handler`, when there is one, with `arguments`. Whatever it throws ends here. The handler
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
