// Which errors the component may log, and when. docs/behaviour.md says so to operators.
#pragma once

#include "platform/Error.h"
#include "tests/support/TestUtility.h"

namespace kvex::torture {

/// What has happened so far that can explain an error.
struct Circumstances {
    /// Another program wrote or locked the database since the session opened.
    bool disturbed = false;
    /// Somebody typed ";", "<" or ">" in this run, so rules may read back as something else.
    bool oddTexts = false;
    /// Somebody typed an apostrophe in this run, which the search for a name cannot take.
    bool apostrophes = false;
    /// Somebody unticked a time in this run, which the dialog for dates cannot load.
    bool missingTimes = false;
    /// The session began without rules, so it lists them from wherever the last search ended.
    bool beganEmpty = false;
    /// A rule of the session has no priority, so the list ends at it.
    bool listEnds = false;
    /// The session was opened on a rule that the list does not show.
    bool unlisted = false;
    /// The session was opened without a database, or for a second time.
    bool cannotOpen = false;
};

[[nodiscard]] bool isExpected(const test::LogEntry &entry, const Circumstances &now);
[[nodiscard]] bool isExpected(const test::Report &report);
/// For an error that left a handler without a trap.
[[nodiscard]] bool isExpected(const Error &unhandled, const Circumstances &now);

} // namespace kvex::torture
