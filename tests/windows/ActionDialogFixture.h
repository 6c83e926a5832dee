// The tests of the action dialogs share this: the way from the rules window to the dialog and back.
#pragma once

#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"

#include <utility>

namespace kvex::test {

class ActionDialog : public ComponentTest {
protected:
    /// `dialog` belongs to `row` of the editor's actions.
    ActionDialog(std::u16string dialog, int row) : dialog_(std::move(dialog)), row_(row) {}

    /// Stores the rule that the functions below open. Without it, they open a new rule.
    void storeRule(std::string_view actionParam) {
        rule_ = toText(database.addRule("Stored", "<ALLMESSAGES>", actionParam));
    }
    /// A script for a window that the next dialog opens. Calls queue up in the order of showing.
    void whenShownWithin(std::u16string window, Script script) {
        within_.emplace_back(std::move(window), std::move(script));
    }
    /// Opens the editor, ticks the row unless it is ticked, runs `beforeDialog` and clears the
    /// change flag. Then plays in the dialog and in the editor. Gives the result of ShowRules.
    std::int32_t play(Script dialog, Script editor = cancel) {
        whenShown(u"frmRuleEdit", [this, editor = std::move(editor)](User &user) {
            if (user.get<ListView>(actions).checked(row_)) {
                user.clickRow(actions, row_);
            } else {
                user.tickRow(actions, row_);
            }
            if (beforeDialog) {
                beforeDialog();
            }
            session().blnChanged = false;
            user.click(u"cmdConfigureAction");
            editor(user);
        });
        whenShown(dialog_, std::move(dialog));
        for (auto &[window, script] : std::exchange(within_, {})) {
            whenShown(std::move(window), std::move(script));
        }
        whenShown(u"frmRules", cancel);
        return showRules(rule_);
    }
    /// Does the same in a new session, as another run of the host does.
    std::int32_t playAgain(Script dialog, Script editor = cancel) {
        closeSession();
        return play(std::move(dialog), std::move(editor));
    }

    static void cancel(User &user) { user.click(u"cmdCancel"); }
    static void confirm(User &user) { user.click(u"cmdOK"); }
    /// Saves the rule, for all messages.
    static void save(User &user) {
        if (!user.get<ListView>(conditions).checked(row::forAllMessages)) {
            user.tickRow(conditions, row::forAllMessages);
        }
        user.click(u"cmdOK");
    }
    std::string savedAction() { return database.value("SELECT ActionParam FROM SMS_RULES"); }

    /// Types after the box's text.
    static void typeInto(User &user, std::u16string_view box, std::u16string_view text) {
        user.focusOn(box);
        user.type(text);
    }
    void paste(User &user, std::u16string_view box, const std::u16string &text) {
        toolkit.clipboard().setText(text);
        user.focusOn(box);
        user.press(Key::paste);
    }
    static void empty(User &user, std::u16string_view box) {
        user.focusOn(box);
        user.press(Key::selectAll);
        user.press(Key::deleteKey);
    }
    static bool enabled(User &user, std::u16string_view button) {
        return user.get<CommandButton>(button).enabled();
    }
    static std::u16string count(User &user) { return user.get<TextBox>(u"txtCharCount").text(); }
    static std::vector<int> ticked(User &user) {
        return tickedRows(user.get<ListView>(u"lvwOutAccount"));
    }
    static std::u16string description(User &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }
    /// Adds accounts with the names and ids 1 to `last`.
    void addAccounts(int last) {
        database.execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(last) +
            ") INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) SELECT i, 'Account ' || i, "
            "'TRANSCEIVER' FROM n");
    }

    std::function<void()> beforeDialog;

private:
    std::u16string dialog_;
    int row_;
    std::u16string rule_;
    std::vector<std::pair<std::u16string, Script>> within_;
};

} // namespace kvex::test
