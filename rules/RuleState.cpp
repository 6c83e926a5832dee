#include "rules/RuleState.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/VisibleText.h"
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

namespace {

void loadRule(const std::u16string &ruleID) {
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
}

} // namespace

void LoadRuleFromDB(const std::u16string &ruleID, HelpContext ofErrors) {
    trapErrors(u"LoadRuleFromDB", u"General", [&] {
        explainErrors(
            ofErrors, [&] { loadRule(ruleID); },
            [&] {
                const std::u16string &name = ruleState().strRuleName;
                return u"Parts of the rule with the ID " + ruleID +
                       (name.empty() ? u"" : u", " + quotedRuleName(name) + u",") +
                       u" could not be read.";
            });
    });
}

std::u16string quotedRuleName(std::u16string_view name) {
    return quoted(name, 60);
}

} // namespace kvex
