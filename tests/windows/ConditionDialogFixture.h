// What the tests of the conditions' dialogs share.
#pragma once

#include "platform/Text.h"
#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/Questions.h"
#include "ui/conditions/frmRuleOptions.h"
#include "ui/rules/RuleParts.h"

namespace kvex::test {

/// A condition: its row in the editor, its dialog, and the list of entries there.
struct Condition {
    int row;
    const char16_t *window;
    const char16_t *list;
};
inline constexpr Condition people{row::fromPeople, u"frmRulePeople", u"lvwPeople"};
inline constexpr Condition accounts{row::throughAccounts, u"frmRuleAccount", u"lvwAccountSelected"};
inline constexpr Condition words{row::containsWords, u"frmRuleWords", u"lvwWords"};

/// The buttons that are disabled while there is no entry.
inline const Texts noButtons;
inline const Texts allButtons = {u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"};

class ConditionDialog : public ComponentTest {
protected:
    /// Shows the condition's dialog on this thread's rule, and plays in it.
    void playDialog(const Condition &condition, Script script) {
        if (!sessionOwner) {
            openSession();
        }
        whenShown(condition.window, std::move(script));
        ruleConditions()[static_cast<std::size_t>(condition.row - 1)].showDialog();
    }
    /// Shows the options of the condition `kind`, and plays in them.
    void playOptions(const std::u16string &kind, Script script) {
        if (!sessionOwner) {
            openSession();
        }
        whenShown(u"frmRuleOptions", std::move(script));
        showConditionOptions(kind);
    }

    /// Opens the editor on the stored rule `id`, or on a new one for 0, and plays in it. Then
    /// leaves it by Esc if it is still open.
    void playEditor(std::int64_t id, Script script) {
        whenShown(u"frmRuleEdit", [this, script = std::move(script)](User &editor) {
            script(editor);
            whenShown(u"frmRules", [](User &rules) { rules.click(u"cmdCancel"); });
            if (editor.isOpen()) {
                editor.press(Key::escape);
            }
        });
        showRules(id == 0 ? u"" : toText(id));
    }
    /// Goes to the condition in the editor, ticks it unless it is ticked, presses its button, and
    /// plays in its dialog.
    void edit(User &editor, const Condition &condition, Script script) {
        if (editor.get<ListView>(conditions).checked(condition.row)) {
            editor.clickRow(conditions, condition.row);
        } else {
            editor.tickRow(conditions, condition.row);
        }
        whenShown(condition.window, std::move(script));
        editor.click(u"cmdEditCondition");
    }
    /// Saves the edited rule with an action, and gives its stored conditions.
    std::string save(User &editor) {
        editor.tickRow(actions, row::noMoreRules);
        editor.click(u"cmdOK");
        return database.value("SELECT QueryParam FROM SMS_RULES ORDER BY ID DESC LIMIT 1");
    }
    static std::u16string description(User &editor) {
        return editor.get<RichTextBox>(u"rtRuleDesc").text();
    }

    /// The enabled buttons among `allButtons`.
    static Texts enabledButtons(User &user) {
        Texts enabled;
        for (const std::u16string &button : allButtons) {
            if (user.get<CommandButton>(button).enabled()) {
                enabled.push_back(button);
            }
        }
        return enabled;
    }
    static bool enabled(User &user, std::u16string_view button) {
        return user.get<CommandButton>(button).enabled();
    }
    /// Runs the button's handler, even while the button is disabled.
    static void runClick(User &user, std::u16string_view button) {
        user.get<CommandButton>(button).onClick();
    }
    void paste(User &user, std::u16string text) {
        toolkit.clipboard().setText(std::move(text));
        user.press(Key::paste);
    }
    /// "1;2;…" up to `last`.
    static std::u16string numbersUpTo(int last) {
        std::u16string joined;
        for (int number = 1; number <= last; ++number) {
            joined.append(number > 1 ? u";" : u"").append(toText(std::int64_t{number}));
        }
        return joined;
    }
};

} // namespace kvex::test
