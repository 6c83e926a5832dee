// The options of a list condition. A message must or must not match the list: all of its entries,
// or any one of them.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/ListView.h"
#include "rules/RuleState.h"
#include "ui/Form.h"

namespace kvex {

/// How the sentence of a condition begins. A heading row above its entries says it.
namespace condition_heading {
inline constexpr const char16_t *people = u"Where the message is from ";
inline constexpr const char16_t *accounts = u"Where the message is received through ";
inline constexpr const char16_t *words = u"Where the message contains the words ";
} // namespace condition_heading

/// OK writes both modifiers of the condition into this thread's rule.
class frmRuleOptions final : public Form {
public:
    frmRuleOptions();

    /// In: "PEOPLE", "ACCOUNT", "WORD" or "DATE", exactly. Any other text shows and stores nothing.
    std::u16string RunFor;

private:
    void Form_Load() override;
    void opgAllAnyModifier_Click();
    void opgConNotmodifier_Click();
    void cmdOK_Click();
    void cmdcancel_Click();

    struct Kind;
    [[nodiscard]] const Kind *kind() const;
    void describe(const Kind &kind);
    void disableAllAny();

    /// The two buttons of a group, with the indexes 0 and 1.
    struct Choice {
        OptionButton &first, &second;
        void select(bool isFirst) { (isFirst ? first : second).select(); }
    };
    Choice opgAllAnyModifier;
    Choice opgConNotmodifier;
    ListView &lvwRuleCondition;
};

/// Shows the options of the condition `runFor`.
void showConditionOptions(const std::u16string &runFor);

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleOptionsDesign();

} // namespace kvex
