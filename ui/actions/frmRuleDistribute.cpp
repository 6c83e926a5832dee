#include "ui/actions/frmRuleDistribute.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/Lookups.h"
#include "rules/RuleState.h"
#include "ui/EntryList.h"
#include "ui/ListColumns.h"
#include "ui/ListFilling.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRuleDistribute";

/// The sub-item that holds a user's id.
constexpr int idItem = 1;

void addUser(ListView &list, const std::u16string &name, const std::u16string &id) {
    list.setSubItem(list.addRow(name), idItem, id);
}

} // namespace

namespace {

ControlDesign users(std::u16string name, std::u16string emptyText) {
    return {.kind = ControlKind::listView,
            .name = std::move(name),
            .multiSelect = true,
            .emptyText = std::move(emptyText),
            .imageList = u"imgListIcons",
            .rowPicture = 1,
            .columns = 30,
            .lines = 12};
}

} // namespace

WindowDesign frmRuleDistributeDesign() {
    using namespace design;
    return {
        .name = u"frmRuleDistribute",
        .caption = u"Distribution List",
        .controls =
            {
                label(u"Label2", u"Available users", u"lvwUsersSource"),
                users(u"lvwUsersSource", u"The server's users appear here."),
                button(u"cmdSelect", u"&Select ->"),
                button(u"cmdAll", u"&All ->"),
                button(u"cmdRemove", u"&Remove"),
                label(u"Label1", u"Selected users for distribution", u"lvwUsersSelected"),
                users(u"lvwUsersSelected", u"The users that you select appear here."),
                separator(),
                waiting(okButton(), u"Select a user first"),
                cancelButton(),
                {.kind = ControlKind::imageList,
                 .name = u"imgListIcons",
                 .pictures = {Picture::person}},
            },
        .layout = aboveButtons({
            row({column({place(u"Label2"), place(u"lvwUsersSource", 1)}, 1),
                 column({spring(), place(u"cmdSelect"), place(u"cmdAll"), place(u"cmdRemove"),
                         spring()}),
                 column({place(u"Label1"), place(u"lvwUsersSelected", 1)}, 1)},
                1),
        }),
        .columns = 84,
        .lines = 24,
    };
}

frmRuleDistribute::frmRuleDistribute()
    : Form(frmRuleDistributeDesign()), lvwUsersSource(control<ListView>(u"lvwUsersSource")),
      cmdRemove(control<CommandButton>(u"cmdRemove")),
      lvwUsersSelected(control<ListView>(u"lvwUsersSelected")),
      cmdOK(control<CommandButton>(u"cmdOK")) {
    lvwUsersSource.onDoubleClick = [this] { lvwUsersSource_DblClick(); };
    onClick(u"cmdSelect", &frmRuleDistribute::cmdSelect_Click);
    onClick(u"cmdAll", &frmRuleDistribute::cmdAll_Click);
    onClick(u"cmdRemove", &frmRuleDistribute::cmdRemove_Click);
    onClick(u"cmdOK", &frmRuleDistribute::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleDistribute::cmdCancel_Click);
}

void frmRuleDistribute::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        // Both lists begin before anything can fail, because rows do not show without a column.
        beginList(lvwUsersSource, u"Available Users", {u"ID"});
        beginList(lvwUsersSelected, u"Selected Users", {u"ID"});
        listUsers();
        lvwUsersSource.setMultiSelect(false);
        lvwUsersSource.select(1);
        lvwUsersSource.setMultiSelect(true);

        const std::u16string &stored = ruleState().strDistribution;
        if (!stored.empty()) {
            forEachEntry(stored, u"selected users", [&](std::u16string_view entry) {
                const std::int32_t id = toInt32(entry);
                addUser(lvwUsersSelected, GetUserName(id), toText(std::int64_t{id}));
            });
            enableButtons(true);
        }

        lvwUsersSource.setMultiSelect(false);
        lvwUsersSource.select(1);
        lvwUsersSelected.setMultiSelect(false);
        if (lvwUsersSelected.rowCount() > 0) {
            lvwUsersSource.setMultiSelect(true);
            lvwUsersSelected.select(1);
            lvwUsersSelected.setMultiSelect(true);
        }
    });
}

/// Lists every user except the built-in one, in the order of the record set. A user without a name
/// is left out.
void frmRuleDistribute::listUsers() {
    Recordset &rsUsers = *session().rsUsers;
    rsUsers.moveFirst();
    forEachRecord(rsUsers, u"user", u"users", [&] {
        const ValueView name = rsUsers.field(u"NAME");
        if (!name.isNull() && name.text() != u"SYSTEM") {
            addUser(lvwUsersSource, name.text(), rsUsers.field(u"ID").text());
        }
    });
}

void frmRuleDistribute::enableButtons(bool enabled) {
    cmdRemove.setEnabled(enabled);
    cmdOK.setEnabled(enabled);
}

void frmRuleDistribute::cmdSelect_Click() {
    trapErrors(u"cmdSelect_Click", module, [&] {
        session().blnChanged = true;
        const int user = lvwUsersSource.selectedRow();
        if (user == 0) {
            return;
        }
        const std::u16string name = lvwUsersSource.text(user);
        if (lvwUsersSelected.findItem(name, FindMatch::wholeText) > 0) {
            return;
        }
        addUser(lvwUsersSelected, name, lvwUsersSource.subItem(user, idItem));
        enableButtons(true);
    });
}

void frmRuleDistribute::lvwUsersSource_DblClick() {
    cmdSelect_Click();
}

void frmRuleDistribute::cmdAll_Click() {
    trapErrors(u"cmdAll_Click", module, [&] {
        session().blnChanged = true;
        lvwUsersSelected.clearRows();
        for (int user = 1; user <= lvwUsersSource.rowCount(); ++user) {
            addUser(lvwUsersSelected, lvwUsersSource.text(user),
                    lvwUsersSource.subItem(user, idItem));
        }
        enableButtons(true);
    });
}

void frmRuleDistribute::cmdRemove_Click() {
    trapErrors(u"cmdRemove_Click", module, [&] {
        session().blnChanged = true;
        if (const int user = lvwUsersSelected.selectedRow(); user > 0) {
            lvwUsersSelected.removeRow(user);
        }
        if (lvwUsersSelected.rowCount() == 0) {
            enableButtons(false);
        }
    });
}

void frmRuleDistribute::BuildString() {
    trapErrors(u"BuildString", module,
               [&] { ruleState().strDistribution = joinedRows(lvwUsersSelected, 1, idItem); });
}

void frmRuleDistribute::cmdOK_Click() {
    BuildString();
    Unload();
}

void frmRuleDistribute::cmdCancel_Click() {
    Unload();
}

} // namespace kvex
