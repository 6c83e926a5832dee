// The rule editor: the user composes, names and saves one rule.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "ui/Form.h"
#include "ui/rules/RuleParts.h"
#include "ui/rules/SavingChecks.h"

#include <span>

namespace kvex {

/// Edits this thread's rule. Only a successful OK writes it to rsRules. Cancel writes nothing and
/// leaves the edited rule in the rule state.
class frmRuleEdit final : public Form {
public:
    frmRuleEdit();

    /// In: "" or blanks for a new rule. Else the ID of a rule that the caller has loaded; rsRules
    /// must stand on its record.
    std::u16string RuleID;

private:
    void Form_Load() override;
    void Populate_Data();
    void lvwRuleConditions_ItemCheck(int Item);
    void lvwRuleConditions_ItemClick(int Item);
    void lvwRuleActions_ItemCheck(int Item);
    void lvwRuleActions_ItemClick(int Item);
    void cmdEditCondition_Click();
    void cmdConfigureAction_Click();
    void txtRuleName_Change();
    void cmdShow_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    void prepareNewRule();
    void tickConditions();
    void tickActions();
    void lockFurtherRules(bool locked);
    void finishTick(ListView &list, int row);
    void editSelectedPart(const ListView &list, std::span<const RulePart> parts);
    void describeRule();

    void saveIfComplete();
    void refuse(const Refusal &refusal);
    [[nodiscard]] bool isNameTaken() const;
    [[nodiscard]] std::u16string typedName() const;
    void saveRule(const std::u16string &queryParam, const std::u16string &actionParam);

    ListView &lvwRuleConditions;
    CommandButton &cmdEditCondition;
    ListView &lvwRuleActions;
    CommandButton &cmdConfigureAction;
    RichTextBox &rtRuleDesc;
    TextBox &txtRuleName;

    /// The name of the rule when the editor opened; "" for a new rule.
    std::u16string loadedName_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleEditDesign();

} // namespace kvex
