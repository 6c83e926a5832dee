// The dialog of the date and time condition on a real toolkit.
#pragma once

#include "platform/controls/DTPicker.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OnScreen.h"

#include <array>
#include <string>
#include <utility>

namespace kvex::test {

class DatesOnScreen : public WindowsOnScreen {
protected:
    using Numbers = std::array<int, 3>;

    /// Opens the dialog from a new rule's editor, by keys, on `range`.
    void playDialog(const std::u16string &range, OnScreen script) {
        play.whenShown(u"frmRuleEdit", [&range](OnScreenUser &editor) {
            editor.clickRow(conditions, row::withinDates);
            editor.press(Key::space);
            ruleState().strDateTime = range;
            editor.pressAccessKey(u'E');
            editor.press(Key::escape);
        });
        play.whenShown(u"frmRuleDate", std::move(script));
        play.whenShown(u"frmRules", [](OnScreenUser &user) { user.press(Key::escape); });
        showRules(u"");
    }
    void closeSession() {
        sessionOwner->release();
        sessionOwner.reset();
    }

    static bool hasValue(OnScreenUser &user, std::u16string_view picker) {
        return user.get<DTPicker>(picker).hasValue();
    }
    static Numbers dateOf(OnScreenUser &user, std::u16string_view picker) {
        const auto &date = user.get<DTPicker>(picker);
        return {date.year(), date.month(), date.day()};
    }
    static Numbers timeOf(OnScreenUser &user, std::u16string_view picker) {
        const auto &time = user.get<DTPicker>(picker);
        return {time.hour(), time.minute(), time.second()};
    }
    static const std::u16string &range() { return ruleState().strDateTime; }

    const std::u16string stored = u"20040514 08:30:00,20040520 17:00:00";
};

} // namespace kvex::test
