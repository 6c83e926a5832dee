// What an event of the user may change in the database, and what the user saw before it.
#pragma once

#include "adapters/headless/HeadlessWindow.h"
#include "rules/RuleState.h"
#include "tests/torture/monkey/Event.h"
#include "tests/torture/monkey/Tables.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvex::torture {

struct Act {
    enum class Kind { none, activation, removal, saving, order };
    Kind kind = Kind::none;
    std::u16string window;
    /// The ID of the rule that the act is about; 0 for a new rule.
    std::int64_t rule = 0;
    /// Activation: the box after the tick.
    bool active = false;
    /// Removal: the user says Yes.
    bool confirmed = false;
    /// Saving: the name in its box, the rule, and its description in the editor.
    std::u16string name = {};
    RuleState typed = {};
    std::u16string description = {};
    /// Order: the IDs of the rows, from the top.
    std::vector<std::int64_t> rows = {};
};

/// The ID of the rule in a row of the rules window.
[[nodiscard]] std::int64_t ruleOf(const headless::HeadlessWindow &rulesWindow, int row);
/// The selected row of the rules window; 0 without one.
[[nodiscard]] int selectedRule(const headless::HeadlessWindow &rulesWindow);

/// What `event` will do in the window. `edited` is the rule in the editor, and `answersYes` what
/// the user says to questions.
[[nodiscard]] Act actOf(const Event &event, const headless::HeadlessWindow &window,
                        std::int64_t edited, bool answersYes);

/// `before`, with what the act may change as it is in `now`.
[[nodiscard]] Tables permitted(const Act &act, const Tables &before, const Tables &now);

} // namespace kvex::torture
