// The error trap of a procedure: an error goes to the error log and ends the procedure.
#pragma once

#include <string_view>

namespace kvex {

/// Writes the exception that is being handled to the utility object's error log. The text names the
/// procedure `sub` of `module`. An error while it writes the log goes to the caller.
void logCurrentError(std::u16string_view sub, std::u16string_view module);

/// Runs `body` and logs its error, if it fails. Undoes, repeats and shows nothing.
template <class Body>
void trapErrors(std::u16string_view sub, std::u16string_view module, Body &&body) {
    try {
        body();
    } catch (...) {
        logCurrentError(sub, module);
    }
}

} // namespace kvex
