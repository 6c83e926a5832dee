#include "ui/rules/frmRuleEdit.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {
namespace {

ControlDesign partList(std::u16string name, std::span<const RulePart> parts,
                       std::u16string greyedRowHint) {
    return {.kind = ControlKind::listView,
            .name = std::move(name),
            .checkBoxes = true,
            .columnHeaders = false,
            .greyedRowHint = std::move(greyedRowHint),
            .columns = 56,
            .lines = static_cast<int>(parts.size())};
}

std::u16string quoted(RulePartId part) {
    return u"\"" + std::u16string(rulePart(part).text) + u"\"";
}

} // namespace

WindowDesign frmRuleEditDesign() {
    using namespace design;
    return {
        .name = u"frmRuleEdit",
        .caption = u"Edit Rule",
        .controls =
            {
                label(u"Label1", u"1. Select the &Conditions for your rule", u"lvwRuleConditions"),
                partList(u"lvwRuleConditions", ruleConditions(),
                         u"Not available while " + quoted(RulePartId::allMessages) + u" is ticked"),
                waitingButton(u"cmdEditCondition", u"&Edit Currently Selected Condition",
                              u"Select and tick a condition that has values: " +
                                  editableValues(ruleConditions())),
                label(u"Label2", u"2. Select the &Actions for your rule", u"lvwRuleActions"),
                partList(u"lvwRuleActions", ruleActions(),
                         u"Stays ticked while " + quoted(RulePartId::deleteIt) + u" is ticked"),
                waitingButton(u"cmdConfigureAction", u"Configure Currently &Selected Action",
                              u"Select and tick an action that has values: " +
                                  editableValues(ruleActions())),
                label(u"Label3", u"3. Rule &Description", u"rtRuleDesc"),
                hint(u"Label5", u"Select your Conditions and Actions first, then specify their "
                                u"values in Description"),
                {.kind = ControlKind::richTextBox,
                 .name = u"rtRuleDesc",
                 .readOnly = true,
                 .lines = 5},
                label(u"Label4", u"4. Rule &Name", u"txtRuleName"),
                {.kind = ControlKind::textBox, .name = u"txtRuleName", .maxLength = 50},
                hiddenButton(u"cmdShow", u"Show String Values"),
                separator(),
                okButton(),
                cancelButton(),
            },
        .layout = aboveButtons({
            place(u"Label1"),
            place(u"lvwRuleConditions"),
            row({spring(), place(u"cmdEditCondition")}),
            place(u"Label2"),
            place(u"lvwRuleActions"),
            row({spring(), place(u"cmdConfigureAction")}),
            place(u"Label3"),
            place(u"Label5"),
            place(u"rtRuleDesc", 1),
            place(u"Label4"),
            place(u"txtRuleName"),
            place(u"cmdShow"),
        }),
        .columns = 76,
        .lines = 42,
    };
}

} // namespace kvex
