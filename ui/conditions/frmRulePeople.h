// The people condition: the mobile numbers from which a message may come.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "ui/EntryList.h"
#include "ui/Form.h"

namespace kvex {

/// Edits the numbers of this thread's rule. OK writes them, and Options writes them before its
/// dialog opens.
class frmRulePeople final : public Form {
public:
    frmRulePeople();

private:
    void Form_Load() override;
    void cmdAdd_Click();
    void cmdAddressBook_Click();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdOptions_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void txtMobileNo_Change();
    void txtMobileNo_KeyPress(std::int16_t &KeyAscii);
    void BuildString();

    CommandButton &cmdAdd;
    TextBox &txtMobileNo;
    ListView &lvwPeople;
    EntryList numbers_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRulePeopleDesign();

} // namespace kvex
