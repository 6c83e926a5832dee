#include "ui/actions/frmRuleReply.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/controls/DesignPieces.h"
#include "rules/ReadingHints.h"
#include "rules/RuleState.h"

namespace kvex {

WindowDesign frmRuleReplyDesign() {
    using namespace design;
    return {
        .name = u"frmRuleReply",
        .caption = u"Configure Automated Reply",
        .controls =
            {
                label(u"Label2", u"Type the Message that you want to send as Reply",
                      u"rtReplyText"),
                messageText(u"rtReplyText"),
                messageHint(u"rtReplyText"),
                label(u"Label1", u"Characters :", u"txtCharCount"),
                characterCount(),
                label(u"Label5", u"2. Select the Account to be used for sending the Reply",
                      u"lvwOutAccount"),
                outAccounts(),
                separator(),
                waiting(okButton(), u"Type a text first"),
                cancelButton(),
                listIcons(),
            },
        .layout = aboveButtons({
            place(u"Label2"),
            place(u"rtReplyText", 3),
            countAndHint(u"Label1"),
            place(u"Label5"),
            place(u"lvwOutAccount", 2),
        }),
        .columns = 64,
        .lines = 26,
    };
}

frmRuleReply::frmRuleReply()
    : Form(frmRuleReplyDesign()), rtReplyText(control<RichTextBox>(u"rtReplyText")),
      lvwOutAccount(control<ListView>(u"lvwOutAccount")),
      reply_(rtReplyText, control<TextBox>(u"txtCharCount"), control<Label>(u"lblTextHint"),
             replyTextHint, lvwOutAccount, control<CommandButton>(u"cmdOK")) {
    rtReplyText.onChange = [this] { rtReplyText_Change(); };
    lvwOutAccount.onItemCheck = [this](int row) { lvwOutAccount_ItemCheck(row); };
    onClick(u"cmdOK", &frmRuleReply::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleReply::cmdCancel_Click);
}

void frmRuleReply::Form_Load() {
    trapErrors(u"Form_Load", u"frmRuleReply", [&] {
        const RuleState &rule = ruleState();
        reply_.listAccounts(AccountUse::sending, rule.strReplyAccount);
        rtReplyText.setText(rule.strReplyText);
    });
}

void frmRuleReply::rtReplyText_Change() {
    reply_.textChanged();
}

void frmRuleReply::lvwOutAccount_ItemCheck(int Item) {
    reply_.accountTicked(Item);
}

void frmRuleReply::cmdOK_Click() {
    if (reply_.isBlank()) {
        showMessage(u"Please type some text to send as Reply.", message_box::exclamation);
        return;
    }
    if (reply_.chooseAccount()) {
        BuildString();
        Unload();
    } else {
        showMessage(u"Please select the account through which the Reply should be sent.",
                    message_box::exclamation);
        lvwOutAccount.setFocus();
    }
}

void frmRuleReply::BuildString() {
    ruleState().strReplyText = reply_.text();
    ruleState().strReplyAccount = reply_.account();
}

void frmRuleReply::cmdCancel_Click() {
    Unload();
}

} // namespace kvex
