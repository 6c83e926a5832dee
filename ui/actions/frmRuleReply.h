// The reply action: a text, and the account that sends it.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "ui/Form.h"
#include "ui/actions/MessageToSend.h"

namespace kvex {

/// Edits the reply of this thread's rule. Only OK writes it.
class frmRuleReply final : public Form {
public:
    frmRuleReply();

private:
    void Form_Load() override;
    void rtReplyText_Change();
    void lvwOutAccount_ItemCheck(int Item);
    void cmdOK_Click();
    void cmdCancel_Click();
    void BuildString();

    RichTextBox &rtReplyText;
    ListView &lvwOutAccount;
    MessageToSend reply_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleReplyDesign();

} // namespace kvex
