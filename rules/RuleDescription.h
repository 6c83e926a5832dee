// The description of a rule in plain language.
#pragma once

#include "platform/TextRun.h"
#include "platform/controls/RichTextBox.h"
#include "rules/RuleState.h"

#include <exception>
#include <vector>

namespace kvex {

struct Description {
    /// One line for each condition and action. Fixed words are black, the user's values blue, the
    /// command remark red. Neighbours differ in colour, and no run is empty. Lines end in CR LF.
    std::vector<TextRun> runs;
    /// The error that ended the description early, or null. One such error is a reply or alert
    /// account that is no number.
    std::exception_ptr error;
};

[[nodiscard]] Description describe(const RuleState &rule);

/// Shows the description of this thread's rule in `target`, and changes nothing else. Traps its
/// errors; `target` then shows what was written before.
void BuildRuleDescription(RichTextBox &target);
/// The same for a caller without a text box.
[[nodiscard]] std::vector<TextRun> BuildRuleDescription();

} // namespace kvex
