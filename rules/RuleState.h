// The rule that the user sees or edits. All windows of a thread share it.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex {

/// A list joins its entries with ";" and does not end in one. Flags are 0 or 1. Yes/no values are
/// "YES" or "NO".
struct RuleState {
    std::u16string strRuleName;
    /// Unused. It keeps its fixed name.
    std::u16string strRuleText;
    /// 1 when the server applies the rule.
    std::int16_t intRuleActive = 0;

    bool blnAllMessages = false;
    std::u16string strIgnoreIfService = u"NO";
    /// Mobile numbers of senders.
    std::u16string strPeople;
    std::int16_t intPeopleNot = 0;
    std::int16_t intPeopleAll = 0;
    /// Ids of SMS_ACCOUNT.
    std::u16string varAccounts;
    std::int16_t intAccountNot = 0;
    std::int16_t intAccountAll = 0;
    std::u16string strWords;
    std::int16_t intWordsNot = 0;
    std::int16_t intWordsAll = 0;
    /// 1 when the words are an SMS command.
    std::int16_t intAsCommand = 0;
    /// The modifiers of a date. Only the options dialog uses them; no record stores them.
    std::int16_t intOptionNot = 0;
    std::int16_t intOptionAll = 0;
    /// "yyyymmdd hh:mm:ss,yyyymmdd hh:mm:ss".
    std::u16string strDateTime;

    /// Ids of SMS_USERS.
    std::u16string strDistribution;
    std::u16string strReplyText;
    /// An id of SMS_ACCOUNT, as in strAlertAccount.
    std::u16string strReplyAccount;
    std::u16string strAlertText;
    std::u16string strAlertAccount;
    /// Mobile numbers.
    std::u16string strAlertRecipients;
    std::u16string varDelete = u"NO";
    std::u16string strIgnoreFurtherRules = u"NO";
};

/// This thread's rule.
[[nodiscard]] RuleState &ruleState() noexcept;

/// Empties the rule. intAsCommand keeps its value on purpose: it only matters beside words, and
/// loading words sets it.
void ClearRuleData();

/// Loads the rule with the ID `ruleID` from rsRules into this thread's rule. Leaves rsRules on its
/// record. With "" it clears the rule and moves nothing. A parameter string without a value has no
/// tags.
///
/// Traps its errors: an unknown id, no value in Name or ACTIVE, an opening tag without its closing
/// tag. The rule then holds what was read before. The error names the rule, and has the context
/// `ofErrors`. The caller gives ruleReadInPart when the user is about to edit the rule.
void LoadRuleFromDB(const std::u16string &ruleID, HelpContext ofErrors = HelpContext::none);

/// A rule's name as messages write it: in quotation marks, a very long one without its middle.
[[nodiscard]] std::u16string quotedRuleName(std::u16string_view name);

} // namespace kvex
