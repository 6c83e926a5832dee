// The error trap of a procedure: an error goes to the error log and ends the procedure.
#pragma once

#include "platform/Error.h"

#include <string>
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

/// Runs `body`, and adds what its error means for the user: `context`, and what `more` says. An
/// error of the database says that itself, and so does one that was explained before. When `more`
/// fails, the error keeps its own words.
template <class Body, class More>
void explainErrors(HelpContext context, Body &&body, const More &more) {
    try {
        body();
    } catch (...) {
        const Error error = Error::current();
        if (error.concernsUser()) {
            throw;
        }
        std::u16string said;
        try {
            said = more();
        } catch (const Error &) { // NOLINT(bugprone-empty-catch): the first error counts
        }
        throw error.explained(context, said);
    }
}

} // namespace kvex
