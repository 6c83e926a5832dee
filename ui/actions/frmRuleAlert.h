// The alert action: a text, the account that sends it, and its recipients.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "ui/EntryList.h"
#include "ui/Form.h"
#include "ui/actions/MessageToSend.h"

namespace kvex {

/// Edits the alert of this thread's rule. OK writes it.
class frmRuleAlert final : public Form {
public:
    frmRuleAlert();

private:
    void Form_Load() override;
    void rtAlertText_Change();
    void lvwOutAccount_ItemCheck(int Item);
    void txtMobileNo_Change();
    void txtMobileNo_KeyPress(std::int16_t &KeyAscii);
    void cmdAdd_Click();
    void cmdAddressBook_Click();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdOptions_Click();
    void cmdOK_Click();
    void frmRuleAlert_BuildString();
    void cmdCancel_Click();

    RichTextBox &rtAlertText;
    ListView &lvwOutAccount;
    TextBox &txtMobileNo;
    CommandButton &cmdAdd;
    ListView &lvwPeople;
    MessageToSend alert_;
    EntryList recipients_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleAlertDesign();

} // namespace kvex
