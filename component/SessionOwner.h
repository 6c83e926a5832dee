// The life of a session, and the rules window in it.
#pragma once

#include "platform/Platform.h"
#include "platform/TextRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kvex {

/// Owns the session of this thread. Trapped errors are in the error log. Use it on one thread.
class SessionOwner {
public:
    /// Creates the objects of this thread's session with `platform`, which must live longer than
    /// this. Opens nothing. Throws the error of an object that cannot be created.
    explicit SessionOwner(Platform &platform);
    SessionOwner(const SessionOwner &) = delete;
    SessionOwner &operator=(const SessionOwner &) = delete;

    /// Opens the session and shows the rules window to the user. The rule editor opens on `RuleID`,
    /// or on a new rule when that is "". Returns 99 when an edit was noted and 1 when none was (see
    /// IRuleUI::ShowRules). Returns 0 after a trapped error; whatever was open stays open. So a
    /// second call returns 0.
    std::int32_t ShowRules(const std::u16string &UserId, const std::u16string &RuleID);

    /// Only opens the session. Returns false after a trapped error.
    bool OpenRules();

    /// Closes the connection, then the record sets, and releases all objects. Call it once, as the
    /// last call. Throws an error that occurs while it closes them.
    void release();
};

/// Whether this thread's rules can be read: from the opening of a session until its release.
[[nodiscard]] bool hasOpenSession();

/// Loads the rule into the rule state and describes it as BuildRuleDescription does. Returns
/// nothing when no rule has this id or when the id is no number. Needs an open session.
[[nodiscard]] std::optional<std::vector<TextRun>> describeRule(const std::u16string &ruleId);

} // namespace kvex
