#include "rules/RuleState.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "rules/ParameterStrings.h"

namespace kvex {

RuleState &ruleState() noexcept {
    thread_local RuleState current;
    return current;
}

void ClearRuleData() {
    static const RuleState empty;
    const std::int16_t asCommand = ruleState().intAsCommand;
    ruleState() = empty;
    ruleState().intAsCommand = asCommand;
}

void LoadRuleFromDB(const std::u16string &ruleID) {
    trapErrors(u"LoadRuleFromDB", u"General", [&] {
        ClearRuleData();
        if (ruleID.empty()) {
            return;
        }
        Recordset &rsRules = *session().rsRules;
        findRecordById(rsRules, ruleID);
        RuleState &rule = ruleState();
        rule.strRuleName = rsRules.field(u"Name").text();
        rule.intRuleActive = rsRules.field(u"Active").int16();
        readQueryParam(rsRules.field(u"QueryParam").textOrEmpty(), rule);
        readActionParam(rsRules.field(u"ActionParam").textOrEmpty(), rule);
    });
}

} // namespace kvex
