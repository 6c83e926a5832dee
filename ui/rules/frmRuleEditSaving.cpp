// OK in the rule editor: checks the rule, builds its two strings and writes them.
#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "ui/rules/SavingChecks.h"
#include "ui/rules/frmRuleEdit.h"

namespace kvex {
namespace {

std::vector<bool> ticksOf(const ListView &list) {
    std::vector<bool> ticks;
    for (int row = 1; row <= list.rowCount(); ++row) {
        ticks.push_back(list.checked(row));
    }
    return ticks;
}

} // namespace

void frmRuleEdit::cmdOK_Click() {
    trapErrors(u"cmdOK_Click", u"frmRuleEdit", [&] {
        explainErrors(
            HelpContext::ruleNotStored, [&] { saveIfComplete(); },
            [&] { return u"The rule " + quotedRuleName(typedName()) + u" was not stored."; });
    });
}

void frmRuleEdit::saveIfComplete() {
    const RowTicks ticks{ticksOf(lvwRuleConditions), ticksOf(lvwRuleActions)};
    if (const auto refusal = refusalOfIncomplete(ruleState(), ticks, typedName())) {
        refuse(*refusal);
        return;
    }
    if (isNameTaken()) {
        refuse(refusalOfTakenName());
        return;
    }
    const std::u16string queryParam = buildQueryParam(ruleState());
    const std::u16string actionParam = buildActionParam(ruleState());
    if (const auto refusal = refusalOfLength(queryParam, actionParam)) {
        refuse(*refusal);
        return;
    }
    saveRule(queryParam, actionParam);
    Unload();
}

void frmRuleEdit::refuse(const Refusal &refusal) {
    showMessage(refusal.text, message_box::exclamation);
    if (refusal.part == RefusedPart::name) {
        txtRuleName.setFocus();
    } else if (refusal.part == RefusedPart::description) {
        rtRuleDesc.setFocus();
    }
}

std::u16string frmRuleEdit::typedName() const {
    return std::u16string(trimmed(txtRuleName.text()));
}

/// The search of the record set decides whether case counts. A session that began without rules
/// finds no name.
bool frmRuleEdit::isNameTaken() const {
    const std::u16string name = typedName();
    if (name == loadedName_ || !session().blnHasRules) {
        return false;
    }
    Recordset &rsRules = *session().rsRules;
    rsRules.moveFirst();
    rsRules.find(u"Name = '" + searchedName(name) + u"'");
    return !rsRules.eof();
}

void frmRuleEdit::saveRule(const std::u16string &queryParam, const std::u16string &actionParam) {
    Recordset &rsRules = *session().rsRules;
    if (RuleID.empty()) {
        rsRules.addNew();
    } else {
        findRecordById(rsRules, RuleID);
    }
    rsRules.setField(u"Name", typedName());
    rsRules.setField(u"QueryParam", std::u16string(trimmed(queryParam)));
    rsRules.setField(u"ActionParam", std::u16string(trimmed(actionParam)));
    rsRules.update();
    explainErrors(
        HelpContext::ruleNotStored,
        [&] {
            try {
                rsRules.resyncCurrent();
            } catch (...) {
                // The rule is stored. The next OK must change this rule and not add a second one.
                RuleID = rsRules.field(u"ID").text();
                loadedName_ = typedName();
                throw;
            }
        },
        [] { return std::u16string(u"The rule is stored, but could not be read again."); });
}

} // namespace kvex
