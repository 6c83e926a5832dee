// The rules window: lists the rules, switches them on and off, orders and removes them, and opens
// the rule editor.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "ui/Form.h"

namespace kvex {

class frmRules final : public Form {
public:
    frmRules();

    /// In: the rule that the editor opens on at once; "" opens it on a new rule.
    std::u16string RuleID;
    /// Out: "OK" or "CANCEL", by the button that closed the window; its frame leaves it alone.
    std::u16string LastButtonPressed;

private:
    void Form_Load() override;
    void ListRules();
    void lvwRules_ItemClick(int Item);
    void lvwRules_ItemCheck(int Item);
    void cmdNew_Click();
    void cmdModify_Click();
    void cmdRemove_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    void addListedRule(int position);
    [[nodiscard]] std::u16string ruleIdOf(int row) const;
    void loadRuleOf(int row);
    void moveSelectedRule(int step);

    ListView &lvwRules;
    RichTextBox &rtRuleDesc;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRulesDesign();

} // namespace kvex
