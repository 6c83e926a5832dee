#include "ui/rules/frmRuleEdit.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "rules/RuleDescription.h"
#include "ui/ListColumns.h"

#include <limits>

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRuleEdit";

const RulePart &partOf(std::span<const RulePart> parts, int row) {
    return parts[static_cast<std::size_t>(row - 1)];
}

/// Fills the list with one column and a row for each part, and selects the first row.
void fillList(ListView &list, const std::u16string &column, std::span<const RulePart> parts) {
    beginList(list, column);
    for (const RulePart &part : parts) {
        list.addRow(part.text);
    }
    list.select(1);
}

void tickRows(ListView &list, const std::vector<bool> &ticks) {
    for (int row = 1; row <= list.rowCount(); ++row) {
        if (ticks[static_cast<std::size_t>(row - 1)]) {
            list.setChecked(row, true);
        }
    }
}

std::u16string yesOrNo(bool yes) {
    return yes ? u"YES" : u"NO";
}

} // namespace

frmRuleEdit::frmRuleEdit()
    : Form(frmRuleEditDesign()), lvwRuleConditions(control<ListView>(u"lvwRuleConditions")),
      cmdEditCondition(control<CommandButton>(u"cmdEditCondition")),
      lvwRuleActions(control<ListView>(u"lvwRuleActions")),
      cmdConfigureAction(control<CommandButton>(u"cmdConfigureAction")),
      rtRuleDesc(control<RichTextBox>(u"rtRuleDesc")),
      txtRuleName(control<TextBox>(u"txtRuleName")) {
    lvwRuleConditions.onItemCheck = [this](int row) { lvwRuleConditions_ItemCheck(row); };
    lvwRuleConditions.onItemClick = [this](int row) { lvwRuleConditions_ItemClick(row); };
    lvwRuleActions.onItemCheck = [this](int row) { lvwRuleActions_ItemCheck(row); };
    lvwRuleActions.onItemClick = [this](int row) { lvwRuleActions_ItemClick(row); };
    // Each button works on the selected row, so it is disabled without one.
    lvwRuleConditions.onDeselect = [this] { cmdEditCondition.setEnabled(false); };
    lvwRuleActions.onDeselect = [this] { cmdConfigureAction.setEnabled(false); };
    onClick(u"cmdEditCondition", &frmRuleEdit::cmdEditCondition_Click);
    onClick(u"cmdConfigureAction", &frmRuleEdit::cmdConfigureAction_Click);
    txtRuleName.onChange = [this] { txtRuleName_Change(); };
    onClick(u"cmdShow", &frmRuleEdit::cmdShow_Click);
    onClick(u"cmdOK", &frmRuleEdit::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleEdit::cmdCancel_Click);
}

void frmRuleEdit::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        if (trimmed(RuleID).empty()) {
            prepareNewRule();
        } else {
            window().setCaption(u"Modify Rule");
            loadedName_ = session().rsRules->field(u"Name").text();
        }
        fillList(lvwRuleConditions, u"RuleConditions", ruleConditions());
        fillList(lvwRuleActions, u"RuleActions", ruleActions());
        Populate_Data();
        lvwRuleConditions.select(1);
        lvwRuleConditions_ItemClick(1);
        lvwRuleActions.select(1);
        lvwRuleActions_ItemClick(1);
        // This also discards what the rules window has noted before.
        session().blnChanged = false;
    });
}

/// Names a new rule after the highest ID so far. The database gives the rule its own ID.
void frmRuleEdit::prepareNewRule() {
    ClearRuleData();
    window().setCaption(u"New Rule");
    session().strSQL = u"SELECT MAX(ID) MAXID FROM SMS_RULES";
    const auto highest = session().platform->createRecordset();
    highest->open(session().strSQL, *session().cnMain);
    const ValueView maxId = highest->field(u"MAXID");
    const std::int64_t number = maxId.isNull() ? 0 : maxId.int64();
    if (number == std::numeric_limits<std::int64_t>::max()) {
        throw Error(error_number::overflow);
    }
    ruleState().strRuleName = u"New Rule #" + toText(number + 1);
    highest->close();
    ruleState().intRuleActive = 1;
}

void frmRuleEdit::describeRule() {
    BuildRuleDescription(rtRuleDesc);
}

void frmRuleEdit::Populate_Data() {
    trapErrors(u"Populate_Data", module, [&] {
        txtRuleName.setText(ruleState().strRuleName);
        describeRule();
        tickConditions();
        tickActions();
    });
}

void frmRuleEdit::tickConditions() {
    if (ruleState().blnAllMessages) {
        const int allMessages = rowOf(RulePartId::allMessages);
        lvwRuleConditions.setChecked(allMessages, true);
        lvwRuleConditions_ItemCheck(allMessages);
    } else {
        tickRows(lvwRuleConditions, heldTicks(ruleState()).conditions);
    }
}

void frmRuleEdit::tickActions() {
    tickRows(lvwRuleActions, heldTicks(ruleState()).actions);
    lockFurtherRules(ruleState().varDelete == u"YES");
}

/// The server never applies further rules to a deleted message, so "Delete it" locks that row.
void frmRuleEdit::lockFurtherRules(bool locked) {
    lvwRuleActions.setRowColour(rowOf(RulePartId::ignoreFurtherRules),
                                locked ? RowColour::greyText : RowColour::windowText);
}

void frmRuleEdit::lvwRuleConditions_ItemCheck(int Item) {
    RuleState &rule = ruleState();
    const int allMessages = rowOf(RulePartId::allMessages);
    if (Item != allMessages && rule.blnAllMessages && lvwRuleConditions.checked(Item)) {
        lvwRuleConditions.setChecked(Item, false);
    }
    partOf(ruleConditions(), Item).setTicked(rule, lvwRuleConditions.checked(Item));
    rule.blnAllMessages = lvwRuleConditions.checked(allMessages);
    // "For All Messages" excludes every other condition.
    for (int row = 1; row <= lvwRuleConditions.rowCount(); ++row) {
        if (row == allMessages) {
            continue;
        }
        if (rule.blnAllMessages) {
            lvwRuleConditions.setChecked(row, false);
        }
        lvwRuleConditions.setRowColour(row, rule.blnAllMessages ? RowColour::greyText
                                                                : RowColour::windowText);
    }
    lvwRuleConditions_ItemClick(Item);
    finishTick(lvwRuleConditions, Item);
}

void frmRuleEdit::lvwRuleConditions_ItemClick(int Item) {
    cmdEditCondition.setEnabled(lvwRuleConditions.checked(Item) && !ruleState().blnAllMessages &&
                                partOf(ruleConditions(), Item).hasDialog());
}

void frmRuleEdit::cmdEditCondition_Click() {
    editSelectedPart(lvwRuleConditions, ruleConditions());
}

void frmRuleEdit::lvwRuleActions_ItemCheck(int Item) {
    RuleState &rule = ruleState();
    const int furtherRules = rowOf(RulePartId::ignoreFurtherRules);
    const bool ticked = lvwRuleActions.checked(Item);
    partOf(ruleActions(), Item).setTicked(rule, ticked);
    const auto tickFurtherRules = [&] {
        lvwRuleActions.setChecked(furtherRules, true);
        rule.strIgnoreFurtherRules = u"YES";
    };
    if (Item == rowOf(RulePartId::deleteIt)) {
        if (ticked) {
            tickFurtherRules();
        }
        lockFurtherRules(ticked);
    } else if (Item == furtherRules && !ticked && rule.varDelete == u"YES") {
        tickFurtherRules();
    }
    lvwRuleActions_ItemClick(Item);
    finishTick(lvwRuleActions, Item);
}

void frmRuleEdit::lvwRuleActions_ItemClick(int Item) {
    cmdConfigureAction.setEnabled(lvwRuleActions.checked(Item) &&
                                  partOf(ruleActions(), Item).hasDialog());
}

/// Every tick and untick ends with this.
void frmRuleEdit::finishTick(ListView &list, int row) {
    list.select(row);
    session().blnChanged = true;
    describeRule();
}

void frmRuleEdit::cmdConfigureAction_Click() {
    editSelectedPart(lvwRuleActions, ruleActions());
}

/// Shows the dialog of the selected part, which reads the rule and writes it back. Then describes
/// the rule again, however the user left the dialog.
void frmRuleEdit::editSelectedPart(const ListView &list, std::span<const RulePart> parts) {
    const int row = list.selectedRow();
    if (row > 0 && partOf(parts, row).hasDialog()) {
        partOf(parts, row).showDialog();
    }
    describeRule();
}

void frmRuleEdit::txtRuleName_Change() {
    session().blnChanged = true;
}

void frmRuleEdit::cmdCancel_Click() {
    Unload();
}

void frmRuleEdit::cmdShow_Click() {
    const RuleState &rule = ruleState();
    if (rule.blnAllMessages) {
        showMessage(u"<ALL>", message_box::exclamation);
        return;
    }
    const std::pair<const char16_t *, std::u16string> values[] = {
        {u"IGNOREServiceMessages : ", yesOrNo(rule.strIgnoreIfService == u"YES")},
        {u"PEOPLEList : ", rule.strPeople},
        {u"ACCOUNTList : ", rule.varAccounts},
        {u"WORDList : ", rule.strWords},
        {u"DATETIMEList : ", rule.strDateTime},
        {u"DISTRIBUTIONList : ", rule.strDistribution},
        {u"REPLYText : ", rule.strReplyText},
        {u"ALERTText : ", rule.strAlertText},
        {u"ALERTList : ", rule.strAlertRecipients},
        {u"DELETEMessage : ", yesOrNo(rule.varDelete == u"YES")},
        {u"IGNOREFurtherRules : ", yesOrNo(rule.strIgnoreFurtherRules == u"YES")},
    };
    std::u16string text;
    for (const auto &[label, value] : values) {
        text.append(text.empty() ? u"" : u"\r").append(label).append(value);
    }
    showMessage(text, message_box::exclamation);
}

} // namespace kvex
