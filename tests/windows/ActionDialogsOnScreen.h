// The dialogs of actions on a real toolkit.
#pragma once

#include "platform/controls/TextBox.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OnScreen.h"

#include <array>

namespace kvex::test {

class ActionDialogsOnScreen : public WindowsOnScreen {
protected:
    ActionDialogsOnScreen() {
        database.addUser(1, "SYSTEM");
        database.addUser(3, "Asha");
        database.addUser(7, "Ravi");
        database.addUser(9, "Meena");
        database.addAccount(2, "Main");
        database.addAccount(5, "Spare");
    }

    /// Ticks the action in the editor on a new rule, and plays in its dialog.
    void play(int action, OnScreen dialog) {
        constexpr auto names =
            std::array{u"", u"frmRuleDistribute", u"frmRuleReply", u"frmRuleAlert"};
        WindowsOnScreen::play.whenShown(u"frmRuleEdit", [action](OnScreenUser &user) {
            user.tickRow(actions, action);
            user.pressAccessKey(u'S');
            user.press(Key::escape);
        });
        WindowsOnScreen::play.whenShown(names.at(static_cast<std::size_t>(action)),
                                        std::move(dialog));
        WindowsOnScreen::play.whenShown(u"frmRules",
                                        [](OnScreenUser &user) { user.press(Key::escape); });
        showRules(u"");
        sessionOwner->release();
        sessionOwner.reset();
    }
    static std::vector<int> ticked(OnScreenUser &user) {
        return tickedRows(user.get<ListView>(u"lvwOutAccount"));
    }
    static std::u16string count(OnScreenUser &user) {
        return user.get<TextBox>(u"txtCharCount").text();
    }
};

} // namespace kvex::test
