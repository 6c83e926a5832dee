// What each procedure of the windows does with a failure. With a trap, it logs the failure under
// its Sub and Module, and the window goes on. Without one, the failure ends at the toolkit.
#include "tests/support/BreakableList.h"
#include "tests/support/ComponentTest.h"
#include "tests/support/RaisedError.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OpenWindow.h"
#include "tests/windows/Questions.h"

namespace kvex::test {
namespace {

using What = Breakage::What;

/// A button, the log entry when it is pressed while the list is broken, and whether the rule then
/// counts as changed. Procedures that edit set the change flag first.
struct Press {
    const char16_t *button;
    const char16_t *logged;
    bool changes = true;
};

class ErrorTraps : public ComponentTest {
protected:
    ErrorTraps() {
        database.addUser(3, "Asha");
        database.addAccount(2, "Main");
        breakable.addressBook.numbers = {u"97"};
    }

    /// Begins a session in which `list` can break, on a rule that has every condition and action.
    void begin(const std::u16string &list) {
        closeSession();
        breakage.list = list;
        sessionOwner = std::make_unique<SessionOwner>(breakable);
        ASSERT_TRUE(sessionOwner->OpenRules());
        session().strUserID = u"1";
        RuleState &rule = ruleState();
        rule = RuleState();
        rule.strPeople = u"98;99";
        rule.varAccounts = u"2";
        rule.strWords = u"STOP;HALT";
        rule.strDistribution = u"3";
        rule.strReplyText = u"Hi";
        rule.strReplyAccount = u"2";
        rule.strAlertText = u"Look";
        rule.strAlertAccount = u"2";
        rule.strAlertRecipients = u"98";
    }
    /// Runs `action` while the list is broken.
    template <class Action> void whileBroken(const Action &action, What what = What::everything) {
        breakage.what = what;
        utility.answers = {message_box::yes};
        action();
        utility.answers.clear();
        breakage.what = What::nothing;
    }

    /// Breaks the list in the window's load procedure, then for each button.
    void expectTraps(
        const char16_t *window, const char16_t *list, Opening open, const char16_t *loadLogged,
        const std::vector<Press> &presses, const Script &prepare = [](User &) {}) {
        begin(list);
        whenShown(window, [](User &user) { user.closeByFrame(); });
        whileBroken(open);
        expectLog({loadLogged});
        for (const Press &press : presses) {
            begin(list);
            whenShown(window, [&](User &user) {
                prepare(user);
                session().blnChanged = false;
                whileBroken([&] { user.get<CommandButton>(press.button).onClick(); });
                expectLog({press.logged});
                EXPECT_EQ(session().blnChanged, press.changes);
                if (user.isOpen()) {
                    user.closeByFrame();
                }
            });
            open();
        }
    }
    /// Each step fails in a procedure without a trap; the window stays open.
    void expectNoTraps(const char16_t *window, const char16_t *list, Opening open,
                       const std::vector<Script> &failing) {
        begin(list);
        whenShown(window, [&](User &user) {
            for (const Script &step : failing) {
                const std::size_t before = toolkit.unhandledErrors().size();
                whileBroken([&] { step(user); });
                EXPECT_EQ(toolkit.unhandledErrors().size(), before + 1);
                EXPECT_TRUE(user.isOpen());
                expectLog({});
            }
            user.closeByFrame();
        });
        open();
        expectedUnhandledErrors += failing.size();
    }
    static Script click(const char16_t *button) {
        return [button](User &user) { user.click(button); };
    }
    /// Types a number that Add can add.
    static void typeNumber(User &user) {
        user.focusOn(u"txtMobileNo");
        user.type(u"1");
    }

    Breakage breakage;
    BreakableToolkit breakableToolkit{toolkit, breakage};
    TestPlatform breakable{utility, breakableToolkit, database.provider()};
};

TEST_F(ErrorTraps, LogEachFailureOfTheRulesWindow) {
    database.addRule("A");
    begin(u"lvwRules");
    const auto leave = [](User &user) { user.press(Key::escape); };
    whenShown(u"frmRuleEdit", leave);
    whenShown(u"frmRules", leave);
    whileBroken(openRules);
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: cmdNew_Click, Module: frmRules"});
    whenShown(u"frmRules", leave);
    whileBroken([] {
        frmRules rules;
        rules.RuleID = u"1";
        rules.Show();
    });
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: Form_Load, Module: frmRules"});
    for (const Press &press :
         {Press{u"cmdNew", u"Sub: cmdNew_Click, Module: frmRules", false},
          Press{u"cmdModify", u"Sub: cmdModify_Click, Module: frmRules", false},
          Press{u"cmdRemove", u"Sub: cmdRemove_Click, Module: frmRules", false},
          Press{u"cmdMoveUp", u"Sub: MoveUp, Module: frmRules"},
          Press{u"cmdMoveDown", u"Sub: MoveDown, Module: frmRules"},
          Press{u"cmdOK", u"Sub: cmdOK_Click, Module: frmRules", false}}) {
        whenShown(u"frmRuleEdit", leave);
        whenShown(u"frmRules", [&](User &user) {
            if (std::u16string_view(press.button) == u"cmdNew") {
                whenShown(u"frmRuleEdit", leave);
            }
            session().blnChanged = false;
            whileBroken([&] { user.click(press.button); });
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(session().blnChanged, press.changes);
            expectLog({press.logged});
            user.press(Key::escape);
        });
        openRules();
    }
}

TEST_F(ErrorTraps, DoNotCoverTheListEventsOfTheRulesWindow) {
    database.addRule("A");
    whenShown(u"frmRuleEdit", [](User &user) { user.press(Key::escape); });
    expectNoTraps(u"frmRules", u"lvwRules", openRules,
                  {[](User &user) { user.clickRow(u"lvwRules", 1); },
                   [](User &user) { user.tickRow(u"lvwRules", 1); }});
}

TEST_F(ErrorTraps, LogEachFailureOfTheEditor) {
    database.addRule("A");
    expectTraps(u"frmRuleEdit", u"lvwRuleConditions", openEditor,
                u"Sub: Form_Load, Module: frmRuleEdit",
                {{u"cmdOK", u"Sub: cmdOK_Click, Module: frmRuleEdit", false}});
}

TEST_F(ErrorTraps, OfTheEditorKeepWhatWasFilledBefore) {
    begin(u"lvwRuleActions");
    whenShown(u"frmRuleEdit", [](User &user) {
        EXPECT_EQ(user.get<ListView>(u"lvwRuleConditions").rowCount(), 6);
        EXPECT_EQ(user.get<ListView>(u"lvwRuleConditions").selectedRow(), 1);
        EXPECT_EQ(user.window().caption(), u"New Rule");
        user.press(Key::escape);
    });
    whileBroken(openEditor);
    expectLog({u"Sub: Form_Load, Module: frmRuleEdit"});
}

/// The rest of the load procedure runs: it lists the rows and selects the first ones.
TEST_F(ErrorTraps, OfTheEditorsTicksLetTheLoadingGoOn) {
    database.addRule("A");
    begin(u"lvwRuleConditions");
    session().blnChanged = true;
    whenShown(u"frmRuleEdit", [](User &user) {
        EXPECT_EQ(user.get<ListView>(u"lvwRuleConditions").rowCount(), 6);
        EXPECT_EQ(user.get<ListView>(u"lvwRuleActions").selectedRow(), 1);
        EXPECT_FALSE(session().blnChanged);
        user.press(Key::escape);
    });
    whileBroken(
        [] {
            frmRuleEdit editor;
            editor.RuleID = u"1";
            editor.Show();
        },
        What::ticking);
    expectLog({u"Sub: Populate_Data, Module: frmRuleEdit"});
}

TEST_F(ErrorTraps, DoNotCoverTheListsAndDialogButtonsOfTheEditor) {
    const auto tick = [](const char16_t *list, int row) {
        return [list, row](User &user) { user.tickRow(list, row); };
    };
    const auto select = [](const char16_t *list) {
        return [list](User &user) { user.clickRow(list, 1); };
    };
    expectNoTraps(
        u"frmRuleEdit", u"lvwRuleConditions", openEditor,
        {tick(conditions, row::ignoreForService), select(u"lvwRuleConditions"), [](User &user) {
             user.get<CommandButton>(u"cmdEditCondition").setEnabled(true);
             user.click(u"cmdEditCondition");
         }});
    expectNoTraps(u"frmRuleEdit", u"lvwRuleActions", openEditor,
                  {tick(actions, row::distribute), select(u"lvwRuleActions"), [](User &user) {
                       user.get<CommandButton>(u"cmdConfigureAction").setEnabled(true);
                       user.click(u"cmdConfigureAction");
                   }});
}

TEST_F(ErrorTraps, OfThePeopleLogTheAddressBookUnderTheEditorsName) {
    expectTraps(u"frmRulePeople", u"lvwPeople", openCondition<row::fromPeople>,
                u"Sub: Form_Load, Module: frmRulePeople",
                {{u"cmdAdd", u"Sub: cmdAdd_Click, Module: frmRulePeople"},
                 {u"cmdAddressBook", u"Sub: cmdAddressBook_Click, Module: frmRuleEdit"},
                 {u"cmdRemove", u"Sub: cmdRemove_Click, Module: frmRulePeople"},
                 {u"cmdClear", u"Sub: cmdClear_Click, Module: frmRulePeople"},
                 {u"cmdOK", u"Sub: BuildString, Module: frmRulePeople", false}},
                typeNumber);
    expectMessages({clearQuestion});
}

TEST_F(ErrorTraps, LogEachFailureOfTheAccounts) {
    expectTraps(u"frmRuleAccount", u"lvwAccountSelected", openCondition<row::throughAccounts>,
                u"Sub: Form_Load(), Module: frmRuleAccount",
                {{u"cmdAdd", u"Sub: cmdAdd_Click, Module: frmRuleAccount"},
                 {u"cmdRemove", u"Sub: cmdRemove_Click, Module: frmRuleAccount"},
                 {u"cmdClear", u"Sub: cmdClear_Click, Module: frmRuleAccount"},
                 {u"cmdOK", u"Sub: frmRuleAccount_BuildString, Module: frmRuleAccount", false}});
    expectMessages({clearQuestion});
}

TEST_F(ErrorTraps, DoNotCoverTheWords) {
    begin(u"lvwWords");
    whileBroken([] {
        EXPECT_EQ(errorNumber(openCondition<row::containsWords>), error_number::automationError);
    });
    expectNoTraps(u"frmRuleWords", u"lvwWords", openCondition<row::containsWords>,
                  {[](User &user) {
                       user.type(u"GO");
                       user.click(u"cmdAdd");
                   },
                   click(u"cmdRemove"), click(u"cmdClear"), click(u"cmdOptions"), click(u"cmdOK")});
    expectMessages({clearQuestion});
}

TEST_F(ErrorTraps, DoNotCoverTheConditionOptions) {
    begin(u"lvwRuleCondition");
    whileBroken([] { EXPECT_EQ(errorNumber(openOptions), error_number::automationError); });
}

TEST_F(ErrorTraps, LogEachFailureOfTheDistribution) {
    expectTraps(u"frmRuleDistribute", u"lvwUsersSelected", openAction<row::distribute>,
                u"Sub: Form_Load, Module: frmRuleDistribute",
                {{u"cmdSelect", u"Sub: cmdSelect_Click, Module: frmRuleDistribute"},
                 {u"cmdAll", u"Sub: cmdAll_Click, Module: frmRuleDistribute"},
                 {u"cmdRemove", u"Sub: cmdRemove_Click, Module: frmRuleDistribute"},
                 {u"cmdOK", u"Sub: BuildString, Module: frmRuleDistribute", false}});
}

TEST_F(ErrorTraps, CoverOnlyTheLoadingOfTheReply) {
    expectTraps(u"frmRuleReply", u"lvwOutAccount", openAction<row::reply>,
                u"Sub: Form_Load, Module: frmRuleReply", {});
    expectNoTraps(u"frmRuleReply", u"lvwOutAccount", openAction<row::reply>,
                  {[](User &user) { user.tickRow(u"lvwOutAccount", 1); }, click(u"cmdOK")});
}

TEST_F(ErrorTraps, LogEachFailureOfTheAlert) {
    expectTraps(u"frmRuleAlert", u"lvwPeople", openAction<row::alert>,
                u"Sub: Form_Load, Module: frmRuleAlert",
                {{u"cmdAdd", u"Sub: cmdAdd_Click, Module: frmRuleAlert"},
                 {u"cmdAddressBook", u"Sub: cmdAddressBook_Click, Module: frmRuleAlert"},
                 {u"cmdRemove", u"Sub: cmdRemove_Click, Module: frmRuleAlert"},
                 {u"cmdClear", u"Sub: cmdClear_Click, Module: frmRuleAlert"}},
                typeNumber);
    expectMessages({clearQuestion});
    expectNoTraps(u"frmRuleAlert", u"lvwOutAccount", openAction<row::alert>,
                  {[](User &user) { user.tickRow(u"lvwOutAccount", 1); }, click(u"cmdOK")});
}

} // namespace
} // namespace kvex::test
