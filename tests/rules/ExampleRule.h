// A rule with most conditions and actions.
#pragma once

#include "rules/RuleState.h"

namespace kvex::test {

[[nodiscard]] inline RuleState exampleRule() {
    RuleState rule;
    rule.strPeople = u"9811100011;9811100022";
    rule.strWords = u"STOP;HALT";
    rule.intWordsNot = 1;
    rule.intWordsAll = 1;
    rule.intAsCommand = 1;
    rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    rule.strDistribution = u"3;7";
    rule.strReplyText = u"Received";
    rule.strReplyAccount = u"2";
    rule.strAlertText = u"New message";
    rule.strAlertAccount = u"2";
    rule.strAlertRecipients = u"9811100033;9811100044";
    rule.strIgnoreFurtherRules = u"YES";
    return rule;
}

} // namespace kvex::test
