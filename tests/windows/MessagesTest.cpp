// Every message that a window shows its user: its text, its style, and the control that has the
// focus after it.
#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OpenWindow.h"
#include "tests/windows/Questions.h"

namespace kvex::test {
namespace {

struct Case {
    std::string name;
    const char16_t *window;
    Opening open;
    /// What the user does until the message is shown.
    void (*act)(User &);
    Message message;
    std::u16string focus;
    Texts log = {};
};

class Messages : public ComponentTest, public testing::WithParamInterface<Case> {
protected:
    Messages() {
        database.addAccount(2, "Main");
        database.addRule("Taken");
        openSession();
    }
};

TEST_P(Messages, HaveTheirTextsTheirStylesAndTheFocusAfterwards) {
    const Case &one = GetParam();
    if (one.open == openRules) {
        whenShown(u"frmRuleEdit", [](User &editor) { editor.press(Key::escape); });
    }
    whenShown(one.window, [&one](User &user) {
        one.act(user);
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), one.focus);
        user.closeByFrame();
    });
    one.open();
    expectMessages({one.message});
    expectLog(one.log);
}

void retype(User &user, std::u16string_view box, std::u16string_view text) {
    user.focusOn(box);
    user.press(Key::selectAll);
    user.press(Key::deleteKey);
    user.type(text);
}
void confirm(User &user) {
    user.click(u"cmdOK");
}
template <int condition> void confirmWithCondition(User &user) {
    user.tickRow(conditions, condition);
    user.tickRow(actions, row::noMoreRules);
    confirm(user);
}
template <int action> void confirmWithAction(User &user) {
    user.tickRow(conditions, row::forAllMessages);
    user.tickRow(actions, action);
    confirm(user);
}
void clearTyped(User &user) {
    user.type(u"98");
    user.press(Key::enter);
    user.click(u"cmdClear");
}

const auto nameOf = [](const auto &one) { return one.param.name; };

Case ofRules() {
    return {"Removal",
            u"frmRules",
            openRules,
            [](User &user) {
                user.clickRow(u"lvwRules", 1);
                user.click(u"cmdRemove");
            },
            removeQuestion,
            u"cmdRemove",
            // Without a removal there is no row to describe.
            {u"Sub: cmdRemove_Click, Module: frmRules"}};
}
INSTANTIATE_TEST_SUITE_P(Rules, Messages, testing::Values(ofRules()), nameOf);

Case ofEditor(const char *name, void (*act)(User &), const char16_t *text,
              const char16_t *focus = u"cmdOK") {
    return {name, u"frmRuleEdit", openEditor, act, {text, 48}, focus};
}
INSTANTIATE_TEST_SUITE_P(
    Editor, Messages,
    testing::Values(
        ofEditor("NoCondition", confirm, u"Please select some conditions for this Rule."),
        ofEditor(
            "NoAction",
            [](User &user) {
                user.tickRow(conditions, row::forAllMessages);
                confirm(user);
            },
            u"Please select some actions for this Rule."),
        ofEditor(
            "NoName",
            [](User &user) {
                retype(user, u"txtRuleName", u" ");
                confirmWithCondition<row::forAllMessages>(user);
            },
            u"Type a name for this Rule.", u"txtRuleName"),
        ofEditor(
            "NameTaken",
            [](User &user) {
                retype(user, u"txtRuleName", u"Taken");
                confirmWithCondition<row::forAllMessages>(user);
            },
            u"A Rule already exists in this name, please select a different name.", u"txtRuleName"),
        ofEditor("People", confirmWithCondition<row::fromPeople>,
                 u"Insufficient information. Please select the People for this rule."),
        ofEditor("Accounts", confirmWithCondition<row::throughAccounts>,
                 u"Insufficient information. Please select the Accounts for this rule."),
        ofEditor("Words", confirmWithCondition<row::containsWords>,
                 u"Insufficient information. Please select the Words for this rule."),
        ofEditor("Dates", confirmWithCondition<row::withinDates>,
                 u"Insufficient information. Please select the Date/Time for this rule."),
        ofEditor("Distribution", confirmWithAction<row::distribute>,
                 u"Insufficient information. Please configure the Distribution List for this "
                 u"rule."),
        ofEditor("Reply", confirmWithAction<row::reply>,
                 u"Insufficient information. Please configure the Reply text for this rule."),
        ofEditor("Alert", confirmWithAction<row::alert>,
                 u"Insufficient information. Please configure the Alerts for this rule."),
        ofEditor(
            "LongConditions",
            [](User &user) {
                ruleState().strWords = std::u16string(5000, u'x');
                confirmWithCondition<row::containsWords>(user);
            },
            u"Length of Condition parameter cannot exceed 5000 characters.", u"rtRuleDesc"),
        ofEditor(
            "LongActions",
            [](User &user) {
                ruleState().strReplyText = std::u16string(2500, u'x');
                ruleState().strReplyAccount = u"2";
                confirmWithAction<row::reply>(user);
            },
            u"Length of Action parameter cannot exceed 2500 characters.", u"rtRuleDesc")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Conditions, Messages,
    testing::Values(Case{"NoNumber",
                         u"frmRulePeople",
                         openCondition<row::fromPeople>,
                         [](User &user) {
                             user.get<TextBox>(u"txtMobileNo").setText(u"abc");
                             user.click(u"cmdAdd");
                         },
                         {u"Please enter a numeric mobile number.", 48},
                         u"txtMobileNo"},
                    Case{"ClearPeople", u"frmRulePeople", openCondition<row::fromPeople>,
                         clearTyped, clearQuestion, u"cmdClear"},
                    Case{"ClearAccounts", u"frmRuleAccount", openCondition<row::throughAccounts>,
                         [](User &user) {
                             user.doubleClickRow(u"lvwAccountSource", 1);
                             user.click(u"cmdClear");
                         },
                         clearQuestion, u"cmdClear"},
                    Case{"ClearWords", u"frmRuleWords", openCondition<row::containsWords>,
                         clearTyped, clearQuestion, u"cmdClear"}),
    nameOf);

Case ofDates(const char *name, void (*act)(User &), const char16_t *text, const char16_t *focus) {
    return {name, u"frmRuleDate", openCondition<row::withinDates>, act, {text, 48}, focus};
}
INSTANTIATE_TEST_SUITE_P(
    Dates, Messages,
    testing::Values(ofDates("NoRange", confirm, u"Please select a valid date range.", u"cmdOK"),
                    ofDates(
                        "EndBeforeStart",
                        [](User &user) {
                            user.pickDate(u"FromDate", 2024, 3, 2);
                            user.pickDate(u"ToDate", 2024, 3, 1);
                            confirm(user);
                        },
                        u"To Date cannot be less than From Date.", u"ToDate"),
                    ofDates(
                        "TimesOnOneDay",
                        [](User &user) {
                            user.pickDate(u"FromDate", 2024, 3, 1);
                            user.pickTime(u"FromTime", 9, 0, 1);
                            user.pickDate(u"ToDate", 2024, 3, 1);
                            user.pickTime(u"ToTime", 9, 0, 0);
                            confirm(user);
                        },
                        u"You have selected to define the filter for a single day."
                        u"In such case 'To Time' cannot be less than 'From Time'",
                        u"ToTime")),
    nameOf);

Case ofReply(const char *name, void (*act)(User &), const char16_t *text, const char16_t *focus) {
    return {name, u"frmRuleReply", openAction<row::reply>, act, {text, 48}, focus};
}
Case ofAlert(const char *name, void (*act)(User &), const char16_t *text, const char16_t *focus) {
    return {name, u"frmRuleAlert", openAction<row::alert>, act, {text, 48}, focus};
}
INSTANTIATE_TEST_SUITE_P(
    Actions, Messages,
    testing::Values(
        ofReply(
            "ReplyWithoutText",
            [](User &user) {
                retype(user, u"rtReplyText", u" ");
                confirm(user);
            },
            u"Please type some text to send as Reply.", u"cmdOK"),
        ofReply(
            "ReplyWithoutAccount",
            [](User &user) {
                retype(user, u"rtReplyText", u"Hi");
                confirm(user);
            },
            u"Please select the account through which the Reply should be sent.", u"lvwOutAccount"),
        ofAlert(
            "AlertWithoutText",
            [](User &user) {
                retype(user, u"rtAlertText", u" ");
                confirm(user);
            },
            u"Please type some text to send as Alert.", u"rtAlertText"),
        ofAlert(
            "AlertWithoutAccount",
            [](User &user) {
                retype(user, u"rtAlertText", u"Look");
                confirm(user);
            },
            u"Please select the account through which the Alert should be sent.", u"lvwOutAccount"),
        ofAlert(
            "AlertWithoutRecipients",
            [](User &user) {
                retype(user, u"rtAlertText", u"Look");
                user.tickRow(u"lvwOutAccount", 1);
                confirm(user);
            },
            u"Please select the recipient(s) to whom the Alert would be sent.", u"lvwPeople"),
        Case{"ClearRecipients", u"frmRuleAlert", openAction<row::alert>,
             [](User &user) {
                 retype(user, u"txtMobileNo", u"98");
                 user.click(u"cmdAdd");
                 user.click(u"cmdClear");
             },
             clearQuestion, u"cmdClear"}),
    nameOf);

} // namespace
} // namespace kvex::test
