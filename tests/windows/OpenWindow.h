// Shows a window of the component without those before it.
#pragma once

#include "ui/conditions/frmRuleOptions.h"
#include "ui/rules/RuleParts.h"
#include "ui/rules/frmRuleEdit.h"
#include "ui/rules/frmRules.h"

namespace kvex::test {

/// Returns when the window is closed. It works on this thread's session and rule.
using Opening = void (*)();

/// The dialog of this row of the editor.
template <int row> void openCondition() {
    ruleConditions()[row - 1].showDialog();
}
template <int row> void openAction() {
    ruleActions()[row - 1].showDialog();
}
inline void openEditor() {
    frmRuleEdit().Show();
}
inline void openRules() {
    frmRules().Show();
}
inline void openOptions() {
    showConditionOptions(u"WORD");
}

} // namespace kvex::test
