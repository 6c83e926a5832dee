// OK in the rule editor: checks the rule, builds its two strings and writes them.
#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "rules/ParameterStrings.h"
#include "ui/rules/frmRuleEdit.h"

namespace kvex {
namespace {

void warn(const std::u16string &text, Control *focus = nullptr) {
    showMessage(text, message_box::exclamation);
    if (focus != nullptr) {
        focus->setFocus();
    }
}

bool hasTickedRow(const ListView &list) {
    int row = list.rowCount();
    while (row > 0 && !list.checked(row)) {
        --row;
    }
    return row > 0;
}

/// Whether every ticked part has its values. If one does not, it shows the message of the first.
bool confirmValues(const ListView &list, std::span<const RulePart> parts) {
    int row = 0;
    for (const RulePart &part : parts) {
        if (list.checked(++row) && part.hasDialog() && !part.dialog.complete(ruleState())) {
            warn(part.dialog.incompleteText);
            return false;
        }
    }
    return true;
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
    if (!confirmComplete()) {
        return;
    }
    if (isNameTaken()) {
        warn(u"A Rule already exists in this name, please select a different name.", &txtRuleName);
        return;
    }
    const std::u16string queryParam = buildQueryParam(ruleState());
    const std::u16string actionParam = buildActionParam(ruleState());
    if (queryParam.size() > longestQueryParam) {
        warn(u"Length of Condition parameter cannot exceed 5000 characters.", &rtRuleDesc);
        return;
    }
    if (actionParam.size() > longestActionParam) {
        warn(u"Length of Action parameter cannot exceed 2500 characters.", &rtRuleDesc);
        return;
    }
    saveRule(queryParam, actionParam);
    Unload();
}

bool frmRuleEdit::confirmComplete() {
    if (!hasTickedRow(lvwRuleConditions)) {
        warn(u"Please select some conditions for this Rule.");
        return false;
    }
    if (!hasTickedRow(lvwRuleActions)) {
        warn(u"Please select some actions for this Rule.");
        return false;
    }
    if (typedName().empty()) {
        warn(u"Type a name for this Rule.", &txtRuleName);
        return false;
    }
    return confirmValues(lvwRuleConditions, ruleConditions()) &&
           confirmValues(lvwRuleActions, ruleActions());
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
    rsRules.find(u"Name = '" + upperCase(name) + u"'");
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
