// The designs of the rules window and of the rule editor, control by control.
#include "tests/support/DesignTable.h"
#include "ui/rules/frmRuleEdit.h"
#include "ui/rules/frmRules.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

TEST(RuleDesigns, TheRulesWindowHasTheseControls) {
    expectDesign(frmRulesDesign(), "frmRules", "SMS Rules",
                 {
                     R"(label Label1 "These rules will be applied to incoming short messages")"
                     R"( for="lvwRules")",
                     R"(list lvwRules checkBoxes)"
                     R"( empty="The rules appear here. Click New to make the first one.")"
                     R"( images="ImgListView")",
                     R"(images ImgListView inOrder)",
                     R"(button cmdNew "&New")",
                     R"(button cmdModify "&Modify")",
                     R"(button cmdCopy "C&opy" hidden)",
                     R"(button cmdRemove "&Remove")",
                     R"(button cmdApply "&Apply now..." hidden)",
                     R"(button cmdMoveUp "Move &Up")",
                     R"(button cmdMoveDown "Move &Down")",
                     R"(label Label2 "Rule description" for="rtRuleDesc")",
                     R"(richText rtRuleDesc readOnly)",
                     R"(frame Frame1)",
                     R"(button cmdOK "&OK" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                 });
}

TEST(RuleDesigns, TheRuleEditorHasTheseControls) {
    expectDesign(frmRuleEditDesign(), "frmRuleEdit", "Edit Rule",
                 {
                     R"(label Label1 "1. Select the &Conditions for your rule")"
                     R"( for="lvwRuleConditions")",
                     R"(list lvwRuleConditions checkBoxes noHeaders)"
                     R"( greyed="Not available while "For All Messages" is ticked")",
                     R"(button cmdEditCondition "&Edit Currently Selected Condition" disabled)"
                     R"( waits="Select and tick a condition that has values: people, accounts,)"
                     R"( words or date/time")",
                     R"(label Label2 "2. Select the &Actions for your rule" for="lvwRuleActions")",
                     R"(list lvwRuleActions checkBoxes noHeaders)"
                     R"( greyed="Stays ticked while "Delete it" is ticked")",
                     R"(button cmdConfigureAction "Configure Currently &Selected Action" disabled)"
                     R"( waits="Select and tick an action that has values: distribute, reply or)"
                     R"( alert")",
                     R"(label Label3 "3. Rule &Description" for="rtRuleDesc")",
                     R"(hint Label5 "Select your Conditions and Actions first, then specify their)"
                     R"( values in Description")",
                     R"(richText rtRuleDesc readOnly)",
                     R"(label Label4 "4. Rule &Name" for="txtRuleName")",
                     R"(text txtRuleName max=50)",
                     R"(button cmdShow "Show String Values" hidden)",
                     R"(frame Frame1)",
                     R"(button cmdOK "&OK" default)",
                     R"(button cmdCancel "&Cancel" cancel)",
                 });
}

} // namespace
} // namespace kvex::test
