// What the tests of the alert dialog share.
#pragma once

#include "tests/windows/ActionDialogFixture.h"

namespace kvex::test {

class AlertDialog : public ActionDialog {
protected:
    AlertDialog() : ActionDialog(u"frmRuleAlert", row::alert) {
        database.addAccount(2, "Main");
        database.addAccount(5, "Incoming", "RECEIVER");
    }

    static constexpr auto text = u"rtAlertText";
    static constexpr auto accounts = u"lvwOutAccount";
    static constexpr auto number = u"txtMobileNo";
    static constexpr auto people = u"lvwPeople";

    static constexpr auto storedAlert = "<ALERT>Look;5;9812345678;9898989898</ALERT>";

    static std::u16string typed(User &user) { return user.get<RichTextBox>(text).text(); }
    static void add(User &user, std::u16string_view recipient) {
        typeInto(user, number, recipient);
        user.click(u"cmdAdd");
    }
    /// Which of the recipients' buttons and OK are enabled, by their first letters.
    static std::string enabledButtons(User &user) {
        std::string letters;
        for (const auto &[button, letter] : {std::pair{u"cmdRemove", 'R'},
                                             {u"cmdClear", 'C'},
                                             {u"cmdOptions", 'P'},
                                             {u"cmdOK", 'O'}}) {
            letters.append(enabled(user, button) ? 1 : 0, letter);
        }
        return letters;
    }
};

} // namespace kvex::test
