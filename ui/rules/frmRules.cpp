#include "ui/rules/frmRules.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/InputHelpers.h"
#include "rules/RuleDescription.h"
#include "rules/RuleState.h"
#include "ui/ListColumns.h"
#include "ui/ListFilling.h"
#include "ui/rules/frmRuleEdit.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRules";

/// The sub-items of a row.
constexpr int positionItem = 1;
constexpr int ruleIdItem = 2;
constexpr int sortItem = 3;

const std::u16string keyPrefix = u"RU";

std::u16string sortKeyOf(std::u16string_view priority) {
    return PadLeft(priority, 8, u'0');
}

void openEditor(const std::u16string &ruleID) {
    frmRuleEdit editor;
    editor.RuleID = ruleID;
    editor.Show();
}

} // namespace

WindowDesign frmRulesDesign() {
    using namespace design;
    return {
        .name = u"frmRules",
        .caption = u"SMS Rules",
        .controls =
            {
                label(u"Label1", u"These rules will be applied to incoming short messages",
                      u"lvwRules"),
                {.kind = ControlKind::listView,
                 .name = u"lvwRules",
                 .checkBoxes = true,
                 .emptyText = u"The rules appear here. Click New to make the first one.",
                 .imageList = u"ImgListView",
                 .columns = 42,
                 .lines = 12},
                {.kind = ControlKind::imageList,
                 .name = u"ImgListView",
                 .pictures = {Picture::inOrder}},
                button(u"cmdNew", u"&New"),
                button(u"cmdModify", u"&Modify"),
                hiddenButton(u"cmdCopy", u"C&opy"),
                button(u"cmdRemove", u"&Remove"),
                hiddenButton(u"cmdApply", u"&Apply now..."),
                button(u"cmdMoveUp", u"Move &Up"),
                button(u"cmdMoveDown", u"Move &Down"),
                label(u"Label2", u"Rule description", u"rtRuleDesc"),
                {.kind = ControlKind::richTextBox,
                 .name = u"rtRuleDesc",
                 .readOnly = true,
                 .lines = 10},
                separator(),
                okButton(),
                cancelButton(),
            },
        .layout = aboveButtons({
            place(u"Label1"),
            row({place(u"lvwRules", 1),
                 buttonColumn({u"cmdNew", u"cmdModify", u"cmdCopy", u"cmdRemove", u"cmdApply",
                               u"cmdMoveUp", u"cmdMoveDown"})},
                4),
            place(u"Label2"),
            place(u"rtRuleDesc", 3),
        }),
        .columns = 84,
        .lines = 30,
    };
}

frmRules::frmRules()
    : Form(frmRulesDesign()), lvwRules(control<ListView>(u"lvwRules")),
      rtRuleDesc(control<RichTextBox>(u"rtRuleDesc")) {
    onClick(u"cmdNew", &frmRules::cmdNew_Click);
    onClick(u"cmdModify", &frmRules::cmdModify_Click);
    onClick(u"cmdRemove", &frmRules::cmdRemove_Click);
    onClick(u"cmdMoveUp", &frmRules::cmdMoveUp_Click);
    onClick(u"cmdMoveDown", &frmRules::cmdMoveDown_Click);
    onClick(u"cmdOK", &frmRules::cmdOK_Click);
    onClick(u"cmdCancel", &frmRules::cmdCancel_Click);
    lvwRules.onItemClick = [this](int row) { lvwRules_ItemClick(row); };
    lvwRules.onItemCheck = [this](int row) { lvwRules_ItemCheck(row); };
}

void frmRules::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        ListRules();
        if (RuleID.empty()) {
            cmdNew_Click();
            return;
        }
        const int row = lvwRules.rowOfKey(keyPrefix + RuleID);
        lvwRules.select(row);
        lvwRules_ItemClick(row);
        cmdModify_Click();
    });
}

void frmRules::ListRules() {
    trapErrors(u"ListRules", module, [&] {
        beginList(lvwRules, u"Rules", {u"Priority", u"RuleID", u"Priority<SortField>"});

        Recordset &rsRules = *session().rsRules;
        if (session().blnHasRules) {
            rsRules.moveFirst();
        }
        lvwRules.setSorted(false);
        // The sort key is set before the loop, because a rule that cannot be listed ends the loop.
        // Sorting is still off, so rules with equal priorities keep the order of the record set.
        lvwRules.setSortKey(sortItem);
        int position = 0;
        forEachRecord(rsRules, u"rule", u"rules", [&] { addListedRule(++position); });
        lvwRules.setSorted(true);
        lvwRules.setColumnIcon(1, 1);

        if (rsRules.recordCount() < 1) {
            return;
        }
        lvwRules.select(1);
        lvwRules_ItemClick(1);
    });
}

/// Lists the current record of rsRules. All values are read first, so a record that cannot be read
/// adds no row.
void frmRules::addListedRule(int position) {
    const Recordset &rsRules = *session().rsRules;
    const std::u16string id = rsRules.field(u"Id").text();
    const std::u16string name = rsRules.field(u"Name").text();
    const bool active = rsRules.field(u"ACTIVE").int16() == 1;
    const std::u16string sortKey = sortKeyOf(rsRules.field(u"Priority").text());

    const int row = lvwRules.addRow(name, keyPrefix + id);
    lvwRules.setSubItem(row, positionItem, toText(std::int64_t{position}));
    lvwRules.setSubItem(row, ruleIdItem, id);
    lvwRules.setChecked(row, active);
    lvwRules.setSubItem(row, sortItem, sortKey);
}

std::u16string frmRules::ruleIdOf(int row) const {
    return lvwRules.subItem(row, ruleIdItem);
}

/// Loads the rule of the row as this thread's rule and describes it. The check box of the row says
/// whether the rule is active.
void frmRules::loadRuleOf(int row, HelpContext ofErrors) {
    LoadRuleFromDB(ruleIdOf(row), ofErrors);
    ruleState().intRuleActive = lvwRules.checked(row) ? 1 : 0;
    BuildRuleDescription(rtRuleDesc);
}

void frmRules::lvwRules_ItemClick(int Item) {
    loadRuleOf(Item);
}

void frmRules::lvwRules_ItemCheck(int Item) {
    lvwRules.select(Item);
    session().blnChanged = true;
    Recordset &rsRules = *session().rsRules;
    findRecordById(rsRules, lvwRules.key(Item).substr(keyPrefix.size()));
    rsRules.setField(u"ACTIVE", std::int64_t{lvwRules.checked(Item) ? 1 : 0});
    rsRules.update();
    lvwRules_ItemClick(Item);
}

void frmRules::cmdNew_Click() {
    trapErrors(u"cmdNew_Click", module, [&] {
        openEditor({});
        if (session().rsRules->recordCount() != lvwRules.rowCount()) {
            ListRules();
            BuildRuleDescription(rtRuleDesc);
        }
    });
}

void frmRules::cmdModify_Click() {
    trapErrors(u"cmdModify_Click", module, [&] {
        const int row = lvwRules.selectedRow();
        if (row == 0) {
            return;
        }
        loadRuleOf(row, HelpContext::ruleReadInPart);
        const std::u16string id = ruleIdOf(row);
        openEditor(id);
        Recordset &rsRules = *session().rsRules;
        findRecordById(rsRules, id);
        lvwRules.setText(row, rsRules.field(u"Name").text());
        BuildRuleDescription(rtRuleDesc);
    });
}

void frmRules::cmdRemove_Click() {
    trapErrors(u"cmdRemove_Click", module, [&] {
        const int row = lvwRules.selectedRow();
        if (row == 0) {
            return;
        }
        // Stays 0 unless a rule is removed. The click on row 0 below then fails and ends the
        // handler.
        int position = 0;
        if (removeRuleOf(row)) {
            position = row;
            lvwRules.removeRow(row);
            lvwRules.setFocus();
        }
        if (lvwRules.rowCount() > 0) {
            lvwRules_ItemClick(position);
        } else {
            rtRuleDesc.setText({});
        }
    });
}

/// Asks the user, then removes the rule of the row. False when the answer is No.
bool frmRules::removeRuleOf(int row) {
    bool isConfirmed = false;
    const auto remove = [&] {
        isConfirmed = showMessage(u"Are you sure you want to remove this rule?",
                                  message_box::yesNo) == message_box::yes;
        if (isConfirmed) {
            Recordset &rsRules = *session().rsRules;
            findRecordById(rsRules, ruleIdOf(row));
            rsRules.deleteCurrent();
            rsRules.update();
        }
    };
    explainErrors(HelpContext::ruleNotRemoved, remove, [&] {
        return u"The rule " + quotedRuleName(lvwRules.text(row)) + u" was not removed.";
    });
    return isConfirmed;
}

void frmRules::cmdMoveUp_Click() {
    trapErrors(u"MoveUp", module, [&] { moveSelectedRule(-1); });
}

void frmRules::cmdMoveDown_Click() {
    trapErrors(u"MoveDown", module, [&] { moveSelectedRule(+1); });
}

/// Exchanges the selected row with its neighbour. Their sort keys become their position numbers,
/// while all other rows keep the stored priority. Both agree once OK has renumbered the rules.
/// Afterwards the row at the neighbour's place is selected.
void frmRules::moveSelectedRule(int step) {
    session().blnChanged = true;
    const int row = lvwRules.selectedRow();
    const int neighbour = row + step;
    if (row == 0 || neighbour < 1 || neighbour > lvwRules.rowCount()) {
        return;
    }
    const std::int32_t position = toInt32(lvwRules.subItem(row, positionItem));
    const std::int32_t neighbourPosition = toInt32(lvwRules.subItem(neighbour, positionItem));
    const auto renumber = [&](int renumbered, std::int32_t newPosition) {
        const std::u16string text = toText(std::int64_t{newPosition});
        lvwRules.setSubItem(renumbered, positionItem, text);
        lvwRules.setSubItem(renumbered, sortItem, sortKeyOf(text));
    };
    renumber(neighbour, position);
    renumber(row, neighbourPosition);
    lvwRules.setSorted(false);
    lvwRules.setSorted(true);
    lvwRules.refresh();
    lvwRules.select(neighbour);
}

void frmRules::cmdOK_Click() {
    trapErrors(u"cmdOK_Click", module, [&] {
        if (session().blnHasRules) {
            storeOrder(lvwRules.rowCount());
        }
        LastButtonPressed = u"OK";
        Unload();
    });
}

void frmRules::cmdCancel_Click() {
    LastButtonPressed = u"CANCEL";
    Unload();
}

} // namespace kvex
