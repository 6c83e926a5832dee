// The dialog of the date and time condition on a real toolkit.
#pragma once

#include "platform/controls/DTPicker.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OnScreen.h"

#include <array>
#include <string>
#include <utility>

namespace kvex::test {

/// Expects the dialog on `range`, which the user opens from a new rule's editor by keys.
inline void expectDates(OnScreenStage &stage, const std::u16string &range, OnScreen script) {
    stage.whenShown(u"frmRuleEdit", [range](OnScreenUser &editor) {
        editor.clickRow(conditions, row::withinDates);
        editor.press(Key::space);
        ruleState().strDateTime = range;
        editor.pressAccessKey(u'E');
        editor.press(Key::escape);
    });
    stage.whenShown(u"frmRuleDate", std::move(script));
    stage.whenShown(u"frmRules", [](OnScreenUser &user) { user.press(Key::escape); });
}

class DatesOnScreen : public WindowsOnScreen {
protected:
    using Numbers = std::array<int, 3>;

    void playDialog(const std::u16string &range, OnScreen script) {
        expectDates(play, range, std::move(script));
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
