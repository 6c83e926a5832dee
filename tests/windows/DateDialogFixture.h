// What the tests of the date and time condition's dialog share.
#pragma once

#include "platform/Text.h"
#include "platform/controls/DTPicker.h"
#include "tests/support/ComponentTest.h"
#include "tests/windows/EditorRows.h"

#include <array>
#include <ctime>
#include <string>
#include <utility>

namespace kvex::test {

using Date = std::array<int, 3>;
using Time = std::array<int, 3>;

[[nodiscard]] inline Date today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

/// The pickers of one end of the range.
struct RangeEnd {
    const char16_t *date;
    const char16_t *time;
    Time timeAtFirst;
};

inline constexpr RangeEnd start{u"FromDate", u"FromTime", {0, 0, 0}};
inline constexpr RangeEnd end{u"ToDate", u"ToTime", {23, 59, 59}};

/// The last days of months, in leap years too, and the limits of the pickers.
inline constexpr Date edges[] = {{1900, 1, 1},  {1900, 2, 28},  {2000, 2, 29},  {2023, 2, 28},
                                 {2024, 2, 28}, {2024, 2, 29},  {2100, 2, 28},  {2024, 1, 29},
                                 {2024, 1, 30}, {2024, 1, 31},  {2024, 4, 29},  {2024, 4, 30},
                                 {2024, 6, 30}, {2024, 9, 30},  {2024, 11, 30}, {2024, 12, 31},
                                 {2400, 2, 29}, {2999, 12, 31}, {3000, 12, 31}};

/// The dialog, opened by the editor of a new rule.
class DateDialog : public ComponentTest {
protected:
    DateDialog() : dayBefore(today()) {}

    /// Opens the dialog on `range`, and cancels the editor afterwards. Ticking the condition does
    /// not count as a change here.
    void playDialog(const std::u16string &range, Script script) {
        playEditor({std::move(script)}, [&range](User &editor) {
            editor.tickRow(conditions, row::withinDates);
            ruleState().strDateTime = range;
            session().blnChanged = false;
            editor.click(u"cmdEditCondition");
            editor.press(Key::escape);
        });
    }
    /// Plays in the editor of a rule, "" for a new one, and in the dialogs that it opens.
    void playEditor(std::vector<Script> dialogs, Script inEditor,
                    const std::u16string &ruleId = u"") {
        whenShown(u"frmRuleEdit", std::move(inEditor));
        for (Script &script : dialogs) {
            whenShown(u"frmRuleDate", std::move(script));
        }
        whenShown(u"frmRules", [](User &rules) { rules.press(Key::escape); });
        closeSession();
        showRules(ruleId);
    }

    static DTPicker &picker(User &user, const char16_t *name) { return user.get<DTPicker>(name); }
    static Date dateOf(User &user, const RangeEnd &at) {
        const DTPicker &date = picker(user, at.date);
        return {date.year(), date.month(), date.day()};
    }
    static Time timeOf(User &user, const RangeEnd &at) {
        const DTPicker &time = picker(user, at.time);
        return {time.hour(), time.minute(), time.second()};
    }
    static bool hasValue(User &user, const char16_t *name) { return picker(user, name).hasValue(); }
    static bool enabled(User &user, const char16_t *name) { return picker(user, name).enabled(); }

    /// The date is today. Should midnight pass during the test, either day is right.
    void expectToday(const Date &shown) {
        EXPECT_GE(shown, dayBefore);
        EXPECT_LE(shown, today());
    }
    static void pick(User &user, const RangeEnd &at, const Date &date) {
        user.pickDate(at.date, date[0], date[1], date[2]);
    }
    static void pick(User &user, const RangeEnd &at, const Date &date, const Time &time) {
        pick(user, at, date);
        user.pickTime(at.time, time[0], time[1], time[2]);
    }

    static std::u16string digitsOf(const Date &date) {
        return toText(std::int64_t{date[0] * 10000 + date[1] * 100 + date[2]});
    }
    static const std::u16string &range() { return ruleState().strDateTime; }

    const Date dayBefore;
    const std::u16string stored = u"20040514 08:30:00,20040520 17:00:00";
};

} // namespace kvex::test
