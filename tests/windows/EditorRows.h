// The rule editor's two lists, and their rows.
#pragma once

namespace kvex::test {

inline constexpr auto conditions = u"lvwRuleConditions";
inline constexpr auto actions = u"lvwRuleActions";

namespace row {
// Conditions.
inline constexpr int ignoreForService = 1;
inline constexpr int fromPeople = 2;
inline constexpr int throughAccounts = 3;
inline constexpr int containsWords = 4;
inline constexpr int withinDates = 5;
inline constexpr int forAllMessages = 6;

// Actions.
inline constexpr int distribute = 1;
inline constexpr int reply = 2;
inline constexpr int alert = 3;
inline constexpr int deleteIt = 4;
inline constexpr int noMoreRules = 5;
} // namespace row

} // namespace kvex::test
