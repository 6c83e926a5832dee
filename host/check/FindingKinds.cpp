#include "host/check/Finding.h"
#include "host/check/MeaningFindings.h"
#include "host/check/ReferenceFindings.h"
#include "host/check/RowFindings.h"

#include <array>

namespace kvex::host {

std::span<const FindingKind> findingKinds() {
    using enum Severity;
    static constexpr std::array kinds{
        FindingKind{"incomplete-row", error,
                    "Name or ACTIVE has no value, or PRIORITY is no number of up to 8 digits.",
                    findIncompleteRow},
        FindingKind{"unclosed-tag", error,
                    "No closing tag follows an opening one. What comes later is not read.",
                    findUnclosedTag},
        FindingKind{"tag-beyond-reach", error,
                    "A tag ends beyond the position 32767. What comes later is not read.",
                    findTagBeyondReach},
        FindingKind{"repeated-tag", error,
                    "An opening tag stands more than once. Only the first one is read.",
                    findRepeatedTag},
        FindingKind{"contradicting-entry", error,
                    "A number, account or word is in an \"is\" and in an \"is not\" of one rule.",
                    findContradictingEntry},
        FindingKind{"unread-conditions", error,
                    "Conditions stand beside the tag of all messages, and are not read.",
                    findUnreadConditions},
        FindingKind{"missing-modifiers", error,
                    "A list does not begin with the two modifiers that are read there.",
                    findMisreadModifiers},
        FindingKind{"neither-yes-nor-no", error, "A value that must be YES or NO is neither.",
                    findNeitherYesNorNo},
        FindingKind{"cut-text", error,
                    "A \";\" cuts the text of a reply or alert. Its rest is read as the account.",
                    findCutText},
        FindingKind{"empty-list", error, "The tag of a list stands there, but the list is empty.",
                    findEmptyList},
        FindingKind{"empty-entry", warning, "A list has an empty entry.", findEmptyEntry},
        FindingKind{"too-long", error,
                    "The name has more than 50 characters, QueryParam more than 5000, or "
                    "ActionParam more than 2500.",
                    findTooLong},
        FindingKind{"no-id", error, "The id of a user or account is missing, or is no number.",
                    findNoId},
        FindingKind{"unknown-user", error, "A user does not exist, or is deleted.",
                    findUnknownUser},
        FindingKind{"unknown-account", error, "An account does not exist, or is deleted.",
                    findUnknownAccount},
        FindingKind{"wrong-bind-mode", error,
                    "The account of a condition cannot receive, or that of a reply or alert cannot "
                    "send.",
                    findWrongBindMode},
        FindingKind{"malformed-date", error,
                    "The date and time are not two whole moments that exist.", findMalformedDate},
        FindingKind{"reversed-dates", error, "The date and time end before they begin.",
                    findReversedDates},
        FindingKind{"past-dates", warning, "The date and time are wholly past.", findPastDates},
        FindingKind{"refused-by-editor", warning,
                    "The rule editor would refuse to store the rule as it is.",
                    findRefusedByEditor},
        FindingKind{"same-name", warning,
                    "Another rule has the same name, at most with other capital letters.",
                    findSameName},
        FindingKind{"never-runs", warning,
                    "An enabled earlier rule takes every message of this enabled one.",
                    findNeverRuns},
        FindingKind{"reply-to-all", warning,
                    "The rule replies to all messages, and service messages are among them.",
                    findReplyToAll},
        FindingKind{"alert-to-sender", warning, "A listed sender also gets the alert.",
                    findAlertToSender},
        FindingKind{"several-messages", note,
                    "The text of a reply or alert takes more than one short message.",
                    findSeveralMessages},
        FindingKind{"stored-differently", note,
                    "The rule editor would store the rule as another text.", findStoredDifferently},
    };
    return kinds;
}

} // namespace kvex::host
