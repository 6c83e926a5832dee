#include "ui/conditions/frmRuleAccount.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/Lookups.h"
#include "rules/RuleState.h"
#include "ui/Accounts.h"
#include "ui/ListColumns.h"
#include "ui/ListFilling.h"
#include "ui/conditions/frmRuleOptions.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRuleAccount";

/// The sub-item that holds an account's id.
constexpr int idItem = 1;

} // namespace

WindowDesign frmRuleAccountDesign() {
    using namespace design;
    const std::u16string accountAwaited = u"Add an account first";
    const auto withHint = [&](ControlDesign control) {
        control.disabledHint = accountAwaited;
        return control;
    };
    return {
        .name = u"frmRuleAccount",
        .caption = u"Select Accounts",
        .controls =
            {
                {.kind = ControlKind::listView,
                 .name = u"lvwAccountSource",
                 .emptyText = u"The server's accounts appear here.",
                 .columns = 44,
                 .lines = 6},
                cancelButton(),
                withHint(plainOkButton()),
                byEnter(button(u"cmdAdd", u"&Add")),
                withHint(button(u"cmdRemove", u"&Remove")),
                withHint(button(u"cmdOptions", u"O&ptions")),
                withHint(button(u"cmdClear", u"Clear &List")),
                separator(),
                {.kind = ControlKind::listView,
                 .name = u"lvwAccountSelected",
                 .accessibleName = u"Selected Accounts",
                 .columns = 44,
                 .lines = 6},
                hint(u"Label4", u"Select an Account below and click Add"),
                label(u"Label1", u"&Accounts", u"lvwAccountSource"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"lvwAccountSource", 1), place(u"lvwAccountSelected", 1)}, 1),
                 // Each half stands beside its list.
                 column({buttonColumn({u"cmdAdd"}, 1),
                         buttonColumn({u"cmdRemove", u"cmdClear", u"cmdOptions"}, 1)})},
                1),
        }),
        .columns = 68,
        .lines = 28,
    };
}

frmRuleAccount::frmRuleAccount()
    : Form(frmRuleAccountDesign()), lvwAccountSource(control<ListView>(u"lvwAccountSource")),
      lvwAccountSelected(control<ListView>(u"lvwAccountSelected")),
      accounts_(lvwAccountSelected, EntryList::Heading::firstRow,
                buttons({u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"})) {
    lvwAccountSource.onDoubleClick = [this] { lvwAccountSource_DblClick(); };
    onClick(u"cmdAdd", &frmRuleAccount::cmdAdd_Click);
    onClick(u"cmdRemove", &frmRuleAccount::cmdRemove_Click);
    onClick(u"cmdClear", &frmRuleAccount::cmdClear_Click);
    onClick(u"cmdOptions", &frmRuleAccount::cmdOptions_Click);
    onClick(u"cmdOK", &frmRuleAccount::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleAccount::cmdCancel_Click);
}

void frmRuleAccount::Form_Load() {
    trapErrors(u"Form_Load()", module, [&] {
        // Both lists begin before anything can fail, because the user may still add accounts after
        // a failure.
        beginList(lvwAccountSource, u"Available Accounts", {u"AccountID"});
        beginList(lvwAccountSelected, u"Selected Accounts", {u"AccountID"});
        lvwAccountSelected.addRow(condition_heading::accounts);
        forEachAccount(AccountUse::receiving,
                       [&](const std::u16string &name, const std::u16string &id) {
                           lvwAccountSource.setSubItem(lvwAccountSource.addRow(name), idItem, id);
                       });
        if (lvwAccountSource.rowCount() > 0) {
            lvwAccountSource.select(1);
        }
        if (ruleState().varAccounts.empty()) {
            return;
        }
        forEachEntry(ruleState().varAccounts, u"selected accounts", [&](std::u16string_view id) {
            const int row = accounts_.add(GetAccountName(toInt32(id)));
            lvwAccountSelected.setSubItem(row, idItem, std::u16string(id));
        });
        accounts_.finishAdding();
    });
}

void frmRuleAccount::cmdAdd_Click() {
    trapErrors(u"cmdAdd_Click", module, [&] {
        session().blnChanged = true;
        if (const int source = lvwAccountSource.selectedRow(); source > 0) {
            const std::u16string name = lvwAccountSource.text(source);
            if (lvwAccountSelected.findItem(indented(name)) > 0) {
                return;
            }
            lvwAccountSelected.setSubItem(accounts_.add(name), idItem,
                                          lvwAccountSource.subItem(source, idItem));
        }
        accounts_.finishAdding();
    });
}

void frmRuleAccount::lvwAccountSource_DblClick() {
    cmdAdd_Click();
}

void frmRuleAccount::cmdRemove_Click() {
    trapErrors(u"cmdRemove_Click", module, [&] { accounts_.removeSelected(); });
}

void frmRuleAccount::cmdClear_Click() {
    trapErrors(u"cmdClear_Click", module, [&] { accounts_.clearIfConfirmed(); });
}

void frmRuleAccount::cmdOptions_Click() {
    frmRuleAccount_BuildString();
    showConditionOptions(u"ACCOUNT");
}

void frmRuleAccount::cmdOK_Click() {
    frmRuleAccount_BuildString();
    Unload();
}

void frmRuleAccount::cmdCancel_Click() {
    Unload();
}

void frmRuleAccount::frmRuleAccount_BuildString() {
    trapErrors(u"frmRuleAccount_BuildString", module,
               [&] { ruleState().varAccounts = accounts_.joined(idItem); });
}

} // namespace kvex
