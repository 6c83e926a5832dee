// The suites of saving, activation, removal and re-ordering that every kind of database passes.
#pragma once

#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {

inline const std::u16string appliedToAll =
    u"Apply this Rule after the message arrives\r\nFor ALL Messages";
inline const std::u16string disabledForAll = u"This Rule is disabled\r\nFor ALL Messages";

/// The database gives the ids. Each is higher than those before, but not always by one.
class RuleScenarios : public ComponentTest, public testing::WithParamInterface<DatabaseKind> {
protected:
    RuleScenarios() : ComponentTest(GetParam()) {}

    std::string idOf(const std::string &name) {
        return database.value("SELECT ID FROM SMS_RULES WHERE Name = '" + name + "'");
    }
};

/// Saving in the rule editor.
class RuleSaving : public RuleScenarios {
protected:
    static void name(User &user, std::u16string_view text) {
        user.focusOn(u"txtRuleName");
        user.press(Key::selectAll);
        user.press(Key::deleteKey);
        user.type(text);
    }
    static void completeRule(User &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(actions, row::noMoreRules);
    }
    /// OK shows this message and the editor stays open. After the message, `focus` has the focus.
    void expectRefused(User &user, const std::u16string &message,
                       const std::u16string &focus = u"cmdOK") {
        utility.onMessage = [&user] { EXPECT_EQ(user.focused(), u"cmdOK"); };
        user.click(u"cmdOK");
        utility.onMessage = {};
        expectMessages({{message, 48}});
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), focus);
    }
    std::vector<std::string> rules() {
        return database.rows("SELECT Name, QueryParam, ActionParam FROM SMS_RULES ORDER BY ID");
    }
};

/// Activation, removal and re-ordering in the rules window.
class RulesWindow : public RuleScenarios {
protected:
    void addThree(int first = 1, int step = 1) {
        for (const char *name : {"A", "B", "C"}) {
            database.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, first);
            first += step;
        }
    }
    static ListView &list(User &user) { return user.get<ListView>(u"lvwRules"); }
    static std::u16string description(User &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }
    static Texts column(User &user, int subItem) {
        Texts texts;
        for (int row = 1; row <= list(user).rowCount(); ++row) {
            texts.push_back(list(user).subItem(row, subItem));
        }
        return texts;
    }
    std::vector<std::string> storedOrder() {
        return database.rows("SELECT Name, PRIORITY FROM SMS_RULES ORDER BY PRIORITY, ID");
    }
};

} // namespace kvex::test
