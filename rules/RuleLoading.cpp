#include "rules/RuleLoading.h"

#include "component/session/ErrorTrap.h"
#include "component/session/RecordSearch.h"
#include "component/session/Session.h"
#include "rules/ParameterStrings.h"

namespace kvex {

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
