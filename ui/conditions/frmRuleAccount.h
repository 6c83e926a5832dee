// The account condition: the accounts through which a message may come.
#pragma once

#include "platform/controls/ListView.h"
#include "ui/EntryList.h"
#include "ui/Form.h"

namespace kvex {

/// Edits the accounts of this thread's rule. OK writes them, and Options writes them before its
/// dialog opens.
class frmRuleAccount final : public Form {
public:
    frmRuleAccount();

private:
    void Form_Load() override;
    void cmdAdd_Click();
    void lvwAccountSource_DblClick();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdOptions_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void frmRuleAccount_BuildString();

    ListView &lvwAccountSource;
    ListView &lvwAccountSelected;
    EntryList accounts_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleAccountDesign();

} // namespace kvex
