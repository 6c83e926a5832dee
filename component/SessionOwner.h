// The life of a session, and the rules window in it.
#pragma once

#include "platform/Platform.h"
#include "platform/TextRun.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kvex {

/// What is trapped is in the error log. Not copied; one thread.
class SessionOwner {
public:
    /// Makes the objects of this thread's session from `platform`, which must outlive this, and
    /// opens nothing. Raises what making them raises.
    explicit SessionOwner(Platform &platform);
    SessionOwner(const SessionOwner &) = delete;
    SessionOwner &operator=(const SessionOwner &) = delete;

    /// Opens the session and shows the rules window for the user, with the rule editor on
    /// `RuleID` or, when that is "", on a new rule. 99 when an edit was noted, 1 when none was (see
    /// IRuleUI::ShowRules), 0 after a trapped error; what was open then stays open. A second call
    /// fails so: the session is open until release.
    std::int32_t ShowRules(const std::u16string &UserId, const std::u16string &RuleID);

    /// Opens the session alone; false after a trapped error.
    bool OpenRules();

    /// Closes the connection, then the record sets, which stay readable without it until then,
    /// and releases all. To be called once, last; raises what closing raises.
    void release();
};

/// Whether this thread's rules can be read: between the opening of a session and its release.
[[nodiscard]] bool hasOpenSession();

/// Loads the rule into the rule state and describes it, as BuildRuleDescription does. Gives nothing
/// when no rule has this id, or when it is no number. Needs an open session.
[[nodiscard]] std::optional<std::vector<TextRun>> describeRule(const std::u16string &ruleId);

} // namespace kvex
