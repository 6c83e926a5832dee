// The words condition: the words and phrases that a message contains.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "ui/EntryList.h"
#include "ui/Form.h"

namespace kvex {

/// Edits the words of this thread's rule. OK writes them, and Options writes them before its dialog
/// opens. The check box for commands writes to the rule at once.
class frmRuleWords final : public Form {
public:
    frmRuleWords();

private:
    void Form_Load() override;
    void cmdAdd_Click();
    void chkWordAsCommand_Click();
    void cmdRemove_Click();
    void cmdClear_Click();
    void cmdOptions_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void txtWord_Change();
    void BuildString();

    CheckBox &chkWordAsCommand;
    CommandButton &cmdAdd;
    TextBox &txtWord;
    ListView &lvwWords;
    EntryList words_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleWordsDesign();

} // namespace kvex
