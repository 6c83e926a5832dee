// The conditions and actions of a rule. Each is one row of a table, and one row of the editor's
// lists.
#pragma once

#include "rules/RuleState.h"

#include <span>
#include <string>

namespace kvex {

/// The name of a part in code. A part's position is its row in the table, and may change.
enum class RulePartId {
    ignoreIfService,
    people,
    accounts,
    words,
    dateTime,
    allMessages,
    distribute,
    reply,
    alert,
    deleteIt,
    ignoreFurtherRules,
    count
};

/// How the user edits the values of a part: with all four fields, or not at all.
struct PartDialog {
    constexpr PartDialog() = default;
    constexpr PartDialog(const char16_t *valueWords, bool (*isComplete)(const RuleState &rule),
                         const char16_t *textOfIncomplete, void (*showing)())
        : values(valueWords), complete(isComplete), incompleteText(textOfIncomplete),
          show(showing) {}

    /// The values in a few words, for the hint of the button that opens the dialog.
    const char16_t *values = nullptr;
    /// Whether the rule has all values of the part.
    bool (*complete)(const RuleState &rule) = nullptr;
    /// The message to the user when a value is missing.
    const char16_t *incompleteText = nullptr;
    /// Shows the dialog until the user closes it.
    void (*show)() = nullptr;
};

struct RulePart {
    /// `editing` is empty for a part without values.
    constexpr RulePart(RulePartId partId, const char16_t *rowText,
                       bool (*isHeld)(const RuleState &rule),
                       void (*onTick)(RuleState &rule, bool ticked), PartDialog editing = {})
        : id(partId), text(rowText), held(isHeld), setTicked(onTick), dialog(editing) {}

    RulePartId id;
    /// The row's text.
    const char16_t *text;
    /// Whether the rule holds the part. Its row is then ticked.
    bool (*held)(const RuleState &rule);
    /// Takes the tick of the row into the rule. Unticking removes the part's values.
    void (*setTicked)(RuleState &rule, bool ticked);
    PartDialog dialog;

    [[nodiscard]] constexpr bool hasDialog() const { return dialog.show != nullptr; }
    void showDialog() const { dialog.show(); }
};

[[nodiscard]] std::span<const RulePart> ruleConditions();
[[nodiscard]] std::span<const RulePart> ruleActions();

/// The part's row in its list; the first row is 1.
[[nodiscard]] int rowOf(RulePartId id);
[[nodiscard]] const RulePart &rulePart(RulePartId id);

/// The values that dialogs of `parts` edit, as in "people, words or date/time".
[[nodiscard]] std::u16string editableValues(std::span<const RulePart> parts);

} // namespace kvex
