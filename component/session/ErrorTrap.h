// The error trap of a procedure: whatever is raised goes to the error log, and the procedure ends.
#pragma once

#include <string_view>

namespace kvex {

/// Hands the exception being handled to the utility object's error log, under the text of the
/// procedure `sub` of `module`. What the log itself raises passes on.
void logCurrentError(std::u16string_view sub, std::u16string_view module);

/// Runs `body`. Nothing is undone, retried or shown when it fails.
template <class Body>
void trapErrors(std::u16string_view sub, std::u16string_view module, Body &&body) {
    try {
        body();
    } catch (...) {
        logCurrentError(sub, module);
    }
}

} // namespace kvex
