// The distribution action: the users who receive the message.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "ui/Form.h"

namespace kvex {

/// Edits the distribution list of this thread's rule. Only OK writes it.
class frmRuleDistribute final : public Form {
public:
    frmRuleDistribute();

private:
    void Form_Load() override;
    void cmdSelect_Click();
    void cmdAll_Click();
    void cmdRemove_Click();
    void BuildString();
    void cmdOK_Click();
    void cmdCancel_Click();
    void lvwUsersSource_DblClick();

    void listUsers();
    void enableButtons(bool enabled);

    ListView &lvwUsersSource;
    CommandButton &cmdRemove;
    ListView &lvwUsersSelected;
    CommandButton &cmdOK;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleDistributeDesign();

} // namespace kvex
