// The rule editor: composes one rule from conditions and actions, names and saves it.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "ui/Form.h"
#include "ui/rules/RuleParts.h"

#include <span>

namespace kvex {

/// Works on this thread's rule; writes it to rsRules only when OK succeeds. Cancel leaves the
/// edited rule in the rule state and writes nothing.
class frmRuleEdit final : public Form {
public:
    frmRuleEdit();

    /// In: "" (or blanks) for a new rule, else the ID of the rule that the caller has loaded and
    /// on whose record rsRules stands.
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

    /// Whether the rule can be saved; if not, the user has been told what is missing.
    [[nodiscard]] bool confirmComplete();
    [[nodiscard]] bool isNameTaken() const;
    [[nodiscard]] std::u16string typedName() const;
    void saveRule(const std::u16string &queryParam, const std::u16string &actionParam);

    ListView &lvwRuleConditions;
    CommandButton &cmdEditCondition;
    ListView &lvwRuleActions;
    CommandButton &cmdConfigureAction;
    RichTextBox &rtRuleDesc;
    TextBox &txtRuleName;

    /// The rule's name as it was when the editor opened, "" for a new rule.
    std::u16string loadedName_;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleEditDesign();

} // namespace kvex
