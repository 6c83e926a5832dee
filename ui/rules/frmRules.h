// The rules window: lists, switches, orders and removes the rules, and opens the rule editor.
#pragma once

#include "platform/Error.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "ui/Form.h"

namespace kvex {

class frmRules final : public Form {
public:
    frmRules();

    /// In: the ID of the rule on which the editor opens at once; "" opens it on a new rule.
    std::u16string RuleID;
    /// Out: "OK" or "CANCEL" after that button closed the window. Closing by the frame leaves it
    /// alone.
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
    void loadRuleOf(int row, HelpContext ofErrors = HelpContext::none);
    void moveSelectedRule(int step);
    bool removeRuleOf(int row);
    void storeOrder(int last);

    ListView &lvwRules;
    RichTextBox &rtRuleDesc;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRulesDesign();

} // namespace kvex
