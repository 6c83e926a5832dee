#include "ui/actions/frmRuleAlert.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/InputHelpers.h"
#include "rules/ReadingHints.h"
#include "rules/RuleState.h"
#include "ui/AddressBookExchange.h"
#include "ui/ListColumns.h"
#include "ui/conditions/frmRuleOptions.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRuleAlert";

/// Tells the user what is missing, and moves the focus to its control.
void refuse(const std::u16string &text, Control &missing) {
    showMessage(text, message_box::exclamation);
    missing.setFocus();
}

} // namespace

WindowDesign frmRuleAlertDesign() {
    using namespace design;
    const std::u16string recipientAwaited = u"Add a recipient first";
    return {
        .name = u"frmRuleAlert",
        .caption = u"Configure Alert",
        .controls =
            {
                label(u"Label2", u"1. Type the Alert Text", u"rtAlertText"),
                messageText(u"rtAlertText"),
                messageHint(u"rtAlertText"),
                label(u"Label3", u"Characters :", u"txtCharCount"),
                characterCount(),
                hint(u"Label6", u"Tip: To include the original message in the Alert text use "
                                u"@@SMS@@ and @@SENDER@@ for the Sender mobile number"),
                label(u"Label5", u"2. Select the Account to be used for sending the Alert",
                      u"lvwOutAccount"),
                outAccounts(),
                label(u"Label4",
                      u"3. Select the Alert Recipients. Type the mobile number and click Add"),
                label(u"Label1", u"Alert &Recipients", u"txtMobileNo"),
                {.kind = ControlKind::textBox, .name = u"txtMobileNo"},
                hintOn(u"txtMobileNo", u"lblNumberHint"),
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a mobile number first")),
                button(u"cmdAddressBook", u"Address &Book"),
                {.kind = ControlKind::listView,
                 .name = u"lvwPeople",
                 .accessibleName = u"Selected recipients",
                 .emptyText = u"The recipients that you add appear here.",
                 .imageList = u"imgListIcons",
                 .rowPicture = personPicture,
                 .columns = 32,
                 .lines = 5},
                waitingButton(u"cmdRemove", u"&Remove", recipientAwaited),
                waitingButton(u"cmdClear", u"Clear &List", recipientAwaited),
                waiting(hiddenButton(u"cmdOptions", u"O&ptions"), recipientAwaited),
                separator(),
                waiting(plainOkButton(), u"Type a text and add a recipient first"),
                cancelButton(),
                listIcons(),
            },
        .layout = aboveButtons({
            place(u"Label2"),
            place(u"rtAlertText", 2),
            countAndHint(u"Label3"),
            place(u"Label6"),
            place(u"Label5"),
            place(u"lvwOutAccount", 2),
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtMobileNo"), place(u"lblNumberHint"), place(u"lvwPeople", 1)},
                        1),
                 buttonColumn(
                     {u"cmdAdd", u"cmdAddressBook", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                2),
        }),
        .columns = 68,
        .lines = 38,
    };
}

frmRuleAlert::frmRuleAlert()
    : Form(frmRuleAlertDesign()), rtAlertText(control<RichTextBox>(u"rtAlertText")),
      lvwOutAccount(control<ListView>(u"lvwOutAccount")),
      txtMobileNo(control<TextBox>(u"txtMobileNo")), cmdAdd(control<CommandButton>(u"cmdAdd")),
      lvwPeople(control<ListView>(u"lvwPeople")),
      alert_(rtAlertText, control<TextBox>(u"txtCharCount"), control<Label>(u"lblTextHint"),
             alertTextHint, lvwOutAccount, control<CommandButton>(u"cmdOK")),
      recipients_(lvwPeople, EntryList::Heading::none,
                  buttons({u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"})) {
    recipients_.explainBy(control<Label>(u"lblNumberHint"), txtMobileNo, recipientsHint);
    rtAlertText.onChange = [this] { rtAlertText_Change(); };
    lvwOutAccount.onItemCheck = [this](int row) { lvwOutAccount_ItemCheck(row); };
    txtMobileNo.onChange = [this] { txtMobileNo_Change(); };
    txtMobileNo.onKeyPress = [this](std::int16_t &key) { txtMobileNo_KeyPress(key); };
    onClick(u"cmdAdd", &frmRuleAlert::cmdAdd_Click);
    onClick(u"cmdAddressBook", &frmRuleAlert::cmdAddressBook_Click);
    onClick(u"cmdRemove", &frmRuleAlert::cmdRemove_Click);
    onClick(u"cmdClear", &frmRuleAlert::cmdClear_Click);
    onClick(u"cmdOptions", &frmRuleAlert::cmdOptions_Click);
    onClick(u"cmdOK", &frmRuleAlert::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleAlert::cmdCancel_Click);
}

void frmRuleAlert::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        const RuleState &rule = ruleState();
        // The list begins before anything can fail, because recipients do not show without a
        // column.
        beginList(lvwPeople, u"People");
        alert_.listAccounts(AccountUse::any, rule.strAlertAccount);
        if (rule.strAlertRecipients.empty()) {
            return;
        }
        recipients_.addJoined(rule.strAlertRecipients);
        rtAlertText.setText(rule.strAlertText);
    });
}

void frmRuleAlert::rtAlertText_Change() {
    alert_.textChanged();
}

void frmRuleAlert::lvwOutAccount_ItemCheck(int Item) {
    alert_.accountTicked(Item);
}

void frmRuleAlert::txtMobileNo_Change() {
    cmdAdd.setEnabled(!trimmed(txtMobileNo.text()).empty());
    recipients_.updateHint();
}

void frmRuleAlert::txtMobileNo_KeyPress(std::int16_t &KeyAscii) {
    if (!IsNumericKey(KeyAscii, true)) {
        KeyAscii = 0;
    }
}

void frmRuleAlert::cmdAdd_Click() {
    trapErrors(u"cmdAdd_Click", module, [&] {
        session().blnChanged = true;
        const std::u16string number = txtMobileNo.text();
        if (!trimmed(number).empty()) {
            recipients_.add(number);
        }
        recipients_.finishTyping(txtMobileNo);
    });
}

void frmRuleAlert::cmdAddressBook_Click() {
    trapErrors(u"cmdAddressBook_Click", module, [&] { addFromAddressBook(recipients_); });
}

void frmRuleAlert::cmdRemove_Click() {
    trapErrors(u"cmdRemove_Click", module, [&] { recipients_.removeSelected(); });
}

void frmRuleAlert::cmdClear_Click() {
    trapErrors(u"cmdClear_Click", module, [&] { recipients_.clearIfConfirmed(); });
}

void frmRuleAlert::cmdOptions_Click() {
    frmRuleAlert_BuildString();
    showConditionOptions(u"PEOPLE");
}

void frmRuleAlert::cmdOK_Click() {
    if (alert_.isBlank()) {
        refuse(u"Please type some text to send as Alert.", rtAlertText);
    } else if (!alert_.chooseAccount()) {
        refuse(u"Please select the account through which the Alert should be sent.", lvwOutAccount);
    } else if (recipients_.empty()) {
        refuse(u"Please select the recipient(s) to whom the Alert would be sent.", lvwPeople);
    } else {
        frmRuleAlert_BuildString();
        Unload();
    }
}

/// Writes each value as soon as it is known. Without a chosen account, only the text is written.
void frmRuleAlert::frmRuleAlert_BuildString() {
    trapErrors(u"frmRuleAlert_BuildString", module, [&] {
        RuleState &rule = ruleState();
        rule.strAlertText = alert_.text();
        rule.strAlertAccount = alert_.account();
        rule.strAlertRecipients.clear();
        if (recipients_.empty()) {
            refuse(u"Please select some Recipients.", txtMobileNo);
        } else {
            rule.strAlertRecipients = recipients_.joined();
        }
    });
}

void frmRuleAlert::cmdCancel_Click() {
    Unload();
}

} // namespace kvex
