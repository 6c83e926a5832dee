// The dialogs of conditions on a real toolkit.
#pragma once

#include "platform/Text.h"
#include "tests/windows/OnScreen.h"
#include "ui/conditions/frmRuleOptions.h"
#include "ui/rules/RuleParts.h"

namespace kvex::test {

class ConditionsOnScreen : public WindowsOnScreen {
protected:
    /// Shows the dialog of the condition in this row of the editor, and plays in it.
    void playDialog(int condition, OnScreen script) {
        openSession();
        play.whenShown(u"", std::move(script));
        ruleConditions()[static_cast<std::size_t>(condition - 1)].showDialog();
    }
    void playOptions(const std::u16string &kind, OnScreen script) {
        openSession();
        play.whenShown(u"frmRuleOptions", std::move(script));
        showConditionOptions(kind);
    }
    void openSession() {
        if (!sessionOwner) {
            sessionOwner = std::make_unique<SessionOwner>(platform);
            ASSERT_TRUE(sessionOwner->OpenRules());
        }
    }
    /// Whether the buttons are all enabled, or all disabled.
    static void expectEnabled(OnScreenUser &user, bool expected) {
        for (const auto *button : {u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"}) {
            EXPECT_EQ(user.isUsable(button), expected) << utf8(button);
        }
    }
    static Texts rowsBelowHeading(OnScreenUser &user, const char16_t *list) {
        Texts rows = user.rows(list);
        rows.erase(rows.begin());
        return rows;
    }
    static std::u16string numbersUpTo(int last) {
        std::u16string joined;
        for (int number = 1; number <= last; ++number) {
            joined.append(number > 1 ? u";" : u"").append(toText(std::int64_t{number}));
        }
        return joined;
    }
};

} // namespace kvex::test
