// The columns of every list once its window is loaded, and its heading row.
#include "adapters/controls/ListRows.h"
#include "platform/Text.h"
#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"
#include "ui/conditions/frmRuleOptions.h"
#include "ui/rules/RuleParts.h"

namespace kvex::test {
namespace {

/// "Header 95%" for each column, followed by "icon 1" when the header has a picture.
std::vector<std::string> columnsOf(const controls::ListRows &list) {
    std::vector<std::string> columns;
    for (int number = 1; number <= list.columnCount(); ++number) {
        const controls::ListRows::Column &column = list.column(number);
        std::string text = toUtf8(column.header) + ' ' + toUtf8(toText(column.width * 100)) + '%';
        text += column.icon == 0 ? "" : " icon " + std::to_string(column.icon);
        columns.push_back(text);
    }
    return columns;
}

using Columns = std::vector<std::string>;

class ListColumns : public ComponentTest {
protected:
    struct Expected {
        std::u16string list;
        Columns columns;
        Texts rows;
    };
    /// Expects `window` next, with these lists, and leaves it by Esc.
    void expectLists(const std::u16string &window, const std::vector<Expected> &lists) {
        whenShown(window, [lists](User &user) {
            for (const Expected &expected : lists) {
                EXPECT_EQ(columnsOf(user.get<controls::ListRows>(expected.list)), expected.columns);
                EXPECT_EQ(user.rows(expected.list), expected.rows);
            }
            user.press(Key::escape);
        });
    }
    static void open(std::span<const RulePart> parts, int row) {
        parts[static_cast<std::size_t>(row - 1)].showDialog();
    }
};

TEST_F(ListColumns, AreTheseInTheRulesWindowAndTheEditor) {
    expectLists(
        u"frmRuleEdit",
        {{u"lvwRuleConditions",
          {"RuleConditions 95%"},
          {u"Ignore this Rule for Service messages", u"Where the message is From specified people",
           u"Where the message is received through specified Accounts",
           u"Where the message content contains specified Words",
           u"Where the message is received within specified Date/Time", u"For All Messages"}},
         {u"lvwRuleActions",
          {"RuleActions 95%"},
          {u"Distribute to specific users", u"Send an Automatic Reply",
           u"Send an Alert to specified people", u"Delete it", u"Do not process any more Rules"}}});
    expectLists(u"frmRules",
                {{u"lvwRules",
                  {"Rules 95% icon 1", "Priority 0%", "RuleID 0%", "Priority<SortField> 0%"},
                  {}}});
    showRules(u"");
}

TEST_F(ListColumns, AreTheseInTheConditionsDialogs) {
    openSession();
    expectLists(u"frmRulePeople",
                {{u"lvwPeople", {"People 95%"}, {u"Where the message is from "}}});
    open(ruleConditions(), row::fromPeople);
    expectLists(u"frmRuleAccount",
                {{u"lvwAccountSource", {"Available Accounts 95%", "AccountID 0%"}, {}},
                 {u"lvwAccountSelected",
                  {"Selected Accounts 95%", "AccountID 0%"},
                  {u"Where the message is received through "}}});
    open(ruleConditions(), row::throughAccounts);
    expectLists(u"frmRuleWords",
                {{u"lvwWords", {"Word 95%"}, {u"Where the message contains the words "}}});
    open(ruleConditions(), row::containsWords);
}

TEST_F(ListColumns, AreTheseInTheConditionOptions) {
    openSession();
    struct Case {
        std::u16string runFor;
        Columns columns;
        Texts rows;
    };
    for (const auto &[runFor, columns, rows] :
         {Case{u"PEOPLE", {"People 95%"}, {u"Where the message is from "}},
          Case{u"ACCOUNT", {"Account 95%"}, {u"Where the message is received through "}},
          Case{u"WORD", {"Word 95%"}, {u"Where the message contains the words "}},
          Case{u"DATE", {}, {}}, Case{u"word", {}, {}}}) {
        expectLists(u"frmRuleOptions", {{u"lvwRuleCondition", columns, rows}});
        showConditionOptions(runFor);
    }
}

TEST_F(ListColumns, AreTheseInTheActionsDialogs) {
    database.addUser(3, "Asha");
    openSession();
    expectLists(u"frmRuleDistribute",
                {{u"lvwUsersSource", {"Available Users 95%", "ID 0%"}, {u"Asha"}},
                 {u"lvwUsersSelected", {"Selected Users 95%", "ID 0%"}, {}}});
    open(ruleActions(), row::distribute);
    const Expected accounts{u"lvwOutAccount", {"Available Accounts 95%", "AccountID 0%"}, {}};
    expectLists(u"frmRuleReply", {accounts});
    open(ruleActions(), row::reply);
    expectLists(u"frmRuleAlert", {accounts, {u"lvwPeople", {"People 95%"}, {}}});
    open(ruleActions(), row::alert);
}

} // namespace
} // namespace kvex::test
