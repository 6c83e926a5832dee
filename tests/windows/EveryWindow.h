// Walks through every window with a rule that has all conditions and actions. Such a rule enables
// as many controls as possible.
#pragma once

#include "tests/windows/EditorRows.h"
#include "tests/windows/QtOnScreen.h"

#include <functional>
#include <map>
#include <string>

namespace kvex::test {

class EveryWindow : public QtWindowsOnScreen {
protected:
    using Check = std::function<void(QtUser &)>;

    EveryWindow() {
        database.addUser(3, "Asha");
        database.addUser(7, "José Müller");
        database.addAccount(2, "Main modem");
        database.addAccount(4, "दिल्ली कार्यालय");
        whole = database.addRule(
            "Whole",
            "<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022"
            "</PEOPLE><ACCOUNT><CON><ANY>2;4</ACCOUNT><WORD><NOT><ALL>STOP;HALT</WORD>"
            "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>",
            "<DIST>3;7</DIST><REPLY>Received;2</REPLY>"
            "<ALERT>New message;2;9811100033;9811100044</ALERT>"
            "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    }

    /// Shows each window once, in the order in which they open, and leaves it by Esc.
    void walk(const std::map<std::u16string, Check> &checks) {
        const auto checked = [&](const std::u16string &window, const QtPlay::Script &further = {}) {
            play.whenShown(window, [&checks, window, further](QtUser &user) {
                enableEverything(user);
                checks.at(window)(user);
                if (further) {
                    further(user);
                }
                user.press(Key::escape);
            });
        };
        const auto withOptions = [&](QtUser &user) {
            checked(u"frmRuleOptions");
            user.click(u"cmdOptions");
        };
        checked(u"frmRuleEdit", [&, withOptions](QtUser &editor) {
            const auto open = [&](std::u16string_view list, int row, std::u16string_view button,
                                  const std::u16string &window,
                                  const QtPlay::Script &further = {}) {
                editor.clickRow(list, row);
                checked(window, further);
                editor.click(button);
            };
            open(conditions, row::fromPeople, u"cmdEditCondition", u"frmRulePeople");
            open(conditions, row::throughAccounts, u"cmdEditCondition", u"frmRuleAccount");
            open(conditions, row::containsWords, u"cmdEditCondition", u"frmRuleWords", withOptions);
            open(conditions, row::withinDates, u"cmdEditCondition", u"frmRuleDate");
            open(actions, row::distribute, u"cmdConfigureAction", u"frmRuleDistribute");
            open(actions, row::reply, u"cmdConfigureAction", u"frmRuleReply");
            open(actions, row::alert, u"cmdConfigureAction", u"frmRuleAlert");
            checked(u"frmRules");
        });
        showRules(toText(whole));
        sessionOwner->release();
        sessionOwner.reset();
    }

    /// Makes the selections and types the texts that enable further controls.
    static void enableEverything(QtUser &user) {
        if (user.widget(u"lvwRuleConditions") != nullptr) {
            user.clickRow(conditions, row::fromPeople);
        }
        for (const auto *box : {u"txtMobileNo", u"txtWord"}) {
            if (user.widget(box) != nullptr) {
                user.focusOn(box);
                user.type(u"1");
            }
        }
    }

    /// Runs the same check in each window.
    void walk(const Check &check) {
        std::map<std::u16string, Check> checks;
        for (const auto &[window, tabOrder] : tabOrders()) {
            checks[window] = check;
        }
        walk(checks);
    }

    static const std::map<std::u16string, Texts> &tabOrders() {
        static const std::map<std::u16string, Texts> orders{
            {u"frmRules",
             {u"lvwRules", u"cmdNew", u"cmdModify", u"cmdRemove", u"cmdMoveUp", u"cmdMoveDown",
              u"rtRuleDesc", u"cmdOK", u"cmdCancel"}},
            {u"frmRuleEdit",
             {u"lvwRuleConditions", u"cmdEditCondition", u"lvwRuleActions", u"cmdConfigureAction",
              u"rtRuleDesc", u"txtRuleName", u"cmdOK", u"cmdCancel"}},
            {u"frmRulePeople",
             {u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAddressBook", u"cmdAdd", u"cmdOK",
              u"cmdCancel", u"txtMobileNo", u"lvwPeople"}},
            {u"frmRuleAccount",
             {u"lvwAccountSource", u"cmdCancel", u"cmdOK", u"cmdAdd", u"cmdRemove", u"cmdOptions",
              u"cmdClear", u"lvwAccountSelected"}},
            {u"frmRuleWords",
             {u"chkWordAsCommand", u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAdd", u"cmdOK",
              u"cmdCancel", u"txtWord", u"lvwWords"}},
            {u"frmRuleOptions",
             // Tab reaches the selected option of each group.
             {u"opgAllAnyModifier(0)", u"opgConNotmodifier(1)", u"cmdcancel", u"cmdOK",
              u"lvwRuleCondition"}},
            {u"frmRuleDate",
             {u"FromDate", u"FromTime", u"ToDate", u"ToTime", u"cmdOK", u"cmdCancel"}},
            {u"frmRuleDistribute",
             {u"lvwUsersSource", u"cmdSelect", u"cmdAll", u"cmdRemove", u"lvwUsersSelected",
              u"cmdOK", u"cmdCancel"}},
            {u"frmRuleReply",
             {u"rtReplyText", u"txtCharCount", u"lvwOutAccount", u"cmdOK", u"cmdCancel"}},
            {u"frmRuleAlert",
             {u"rtAlertText", u"txtCharCount", u"lvwOutAccount", u"txtMobileNo", u"cmdAdd",
              u"cmdAddressBook", u"lvwPeople", u"cmdRemove", u"cmdClear", u"cmdOK", u"cmdCancel"}},
        };
        return orders;
    }

    std::int64_t whole = 0;
};

} // namespace kvex::test
