#include "ui/conditions/frmRulePeople.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/InputHelpers.h"
#include "rules/RuleState.h"
#include "ui/AddressBookExchange.h"
#include "ui/ListColumns.h"
#include "ui/conditions/frmRuleOptions.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRulePeople";

} // namespace

WindowDesign frmRulePeopleDesign() {
    using namespace design;
    const std::u16string numberAwaited = u"Add a mobile number first";
    return {
        .name = u"frmRulePeople",
        .caption = u"Select People",
        .controls =
            {
                separator(),
                waitingButton(u"cmdClear", u"Clear &List", numberAwaited),
                waitingButton(u"cmdOptions", u"Op&tions", numberAwaited),
                waitingButton(u"cmdRemove", u"&Remove", numberAwaited),
                button(u"cmdAddressBook", u"Address &Book"),
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a mobile number first")),
                waiting(plainOkButton(), numberAwaited),
                cancelButton(),
                {.kind = ControlKind::textBox, .name = u"txtMobileNo", .maxLength = 20},
                hintOn(u"txtMobileNo", u"lblNumberHint"),
                {.kind = ControlKind::listView,
                 .name = u"lvwPeople",
                 .accessibleName = u"Selected people",
                 .columns = 44,
                 .lines = 10},
                label(u"Label1", u"&People", u"txtMobileNo"),
                hint(u"Label4", u"Type one mobile number at a time and click Add, or select "
                                u"numbers from the Address Book"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtMobileNo"), place(u"lblNumberHint"), place(u"lvwPeople", 1)},
                        1),
                 buttonColumn(
                     {u"cmdAdd", u"cmdAddressBook", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                1),
        }),
        .columns = 74,
        .lines = 24,
    };
}

frmRulePeople::frmRulePeople()
    : Form(frmRulePeopleDesign()), cmdAdd(control<CommandButton>(u"cmdAdd")),
      txtMobileNo(control<TextBox>(u"txtMobileNo")), lvwPeople(control<ListView>(u"lvwPeople")),
      numbers_(lvwPeople, EntryList::Heading::firstRow,
               buttons({u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"})) {
    numbers_.explainBy(control<Label>(u"lblNumberHint"), txtMobileNo, peopleHint);
    onClick(u"cmdAdd", &frmRulePeople::cmdAdd_Click);
    onClick(u"cmdAddressBook", &frmRulePeople::cmdAddressBook_Click);
    onClick(u"cmdRemove", &frmRulePeople::cmdRemove_Click);
    onClick(u"cmdClear", &frmRulePeople::cmdClear_Click);
    onClick(u"cmdOptions", &frmRulePeople::cmdOptions_Click);
    onClick(u"cmdOK", &frmRulePeople::cmdOK_Click);
    onClick(u"cmdCancel", &frmRulePeople::cmdCancel_Click);
    txtMobileNo.onChange = [this] { txtMobileNo_Change(); };
    txtMobileNo.onKeyPress = [this](std::int16_t &key) { txtMobileNo_KeyPress(key); };
    txtMobileNo.setFocus();
}

void frmRulePeople::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        beginList(lvwPeople, u"People");
        lvwPeople.addRow(condition_heading::people);
        numbers_.addJoined(ruleState().strPeople);
    });
}

void frmRulePeople::txtMobileNo_KeyPress(std::int16_t &KeyAscii) {
    if (!IsNumericKey(KeyAscii, true)) {
        KeyAscii = 0;
    }
}

void frmRulePeople::txtMobileNo_Change() {
    cmdAdd.setEnabled(!trimmed(txtMobileNo.text()).empty());
    numbers_.updateHint();
}

void frmRulePeople::cmdAdd_Click() {
    trapErrors(u"cmdAdd_Click", module, [&] {
        session().blnChanged = true;
        const std::u16string number = txtMobileNo.text();
        if (!trimmed(number).empty()) {
            if (isNumeric(number)) {
                numbers_.add(number);
            } else {
                showMessage(u"Please enter a numeric mobile number.", message_box::exclamation);
            }
        }
        numbers_.finishTyping(txtMobileNo);
    });
}

void frmRulePeople::cmdAddressBook_Click() {
    // The log names the rule editor as the module, because readers of the log expect this error
    // there.
    trapErrors(u"cmdAddressBook_Click", u"frmRuleEdit", [&] { addFromAddressBook(numbers_); });
}

void frmRulePeople::cmdRemove_Click() {
    trapErrors(u"cmdRemove_Click", module, [&] { numbers_.removeSelected(); });
}

void frmRulePeople::cmdClear_Click() {
    trapErrors(u"cmdClear_Click", module, [&] { numbers_.clearIfConfirmed(); });
}

void frmRulePeople::cmdOptions_Click() {
    BuildString();
    showConditionOptions(u"PEOPLE");
}

void frmRulePeople::cmdOK_Click() {
    BuildString();
    Unload();
}

void frmRulePeople::cmdCancel_Click() {
    Unload();
}

void frmRulePeople::BuildString() {
    trapErrors(u"BuildString", module, [&] { ruleState().strPeople = numbers_.joined(); });
}

} // namespace kvex
