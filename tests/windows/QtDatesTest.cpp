#include "adapters/qt/QText.h"
#include "tests/windows/DatesOnScreen.h"
#include "tests/windows/QtOnScreen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDateTimeEdit>

#include <set>

namespace kvex::test {
namespace {

class QtDates : public QtWindowsOnScreen {
protected:
    void playDialog(const std::u16string &range, const QtPlay::Script &script) {
        expectDates(*stage, range, [&script](OnScreenUser &user) { script(qtUser(user)); });
        showRules(u"");
    }

    static QDateTimeEdit &field(const QtUser &user, const std::u16string &picker) {
        return *user.widget(picker)->findChild<QDateTimeEdit *>();
    }
    static QAbstractButton &tick(const QtUser &user, const std::u16string &picker) {
        return *user.widget(picker)->findChild<QAbstractButton *>(qt::toQt(picker) +
                                                                  QStringLiteral("HasValue"));
    }
    static std::string text(const QtUser &user, const std::u16string &picker) {
        return field(user, picker).text().toStdString();
    }
    /// Types into the picker from its first part on.
    static void typeInto(QtUser &user, const std::u16string &picker, std::u16string_view keys) {
        user.focusOn(picker + u"Value");
        field(user, picker).setCurrentSectionIndex(0);
        user.press(Key::home);
        user.type(keys);
    }
    static const std::u16string &range() { return ruleState().strDateTime; }

    const std::u16string stored = u"20040514 08:30:00,20040520 17:00:00";
};

TEST_F(QtDates, ANewRangeIsTickedAndTypedByKeysAlone) {
    playDialog(u"", [](QtUser &user) {
        EXPECT_EQ(QApplication::focusWidget(), &tick(user, u"FromDate"));
        user.press(Key::space);
        user.press(Key::tab);
        user.type(u"14052004");
        user.press(Key::tab);
        EXPECT_EQ(QApplication::focusWidget(), &tick(user, u"FromTime"));
        user.press(Key::tab);
        user.type(u"083000");
        user.press(Key::tab);
        EXPECT_EQ(QApplication::focusWidget(), &tick(user, u"ToDate"));
        user.press(Key::space);
        user.press(Key::tab);
        user.type(u"20052004");
        user.press(Key::tab);
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"ToTime");
        user.type(u"170000");
        user.press(Key::enter);
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(range(), stored);
    EXPECT_EQ(utility.messages, std::vector<Message>());
}

TEST_F(QtDates, ARangeIsTypedAsItIsShownAndEnterStoresIt) {
    playDialog(stored, [](QtUser &user) {
        user.focusOn(u"FromDateValue");
        user.press(Key::home);
        user.type(u"05/06/2005");
        EXPECT_EQ(user.focused(), u"FromDate");
        user.press(Key::tab);
        user.press(Key::tab);
        user.type(u"9:05:07");
        typeInto(user, u"ToDate", u"6.7.2005");
        user.press(Key::selectAll);
        user.type(u"07/08/2005\n");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(range(), u"20050605 09:05:07,20050807 17:00:00");
    EXPECT_EQ(utility.messages, std::vector<Message>());
}

TEST_F(QtDates, AStoredRangeIsShownWithItsYearsInFull) {
    playDialog(stored, [](QtUser &user) {
        EXPECT_EQ(user.window().caption(), u"Select Date/Time Range");
        EXPECT_EQ(text(user, u"FromDate"), "14/05/2004");
        EXPECT_EQ(text(user, u"FromTime"), "08:30:00");
        EXPECT_EQ(text(user, u"ToDate"), "20/05/2004");
        EXPECT_EQ(text(user, u"ToTime"), "17:00:00");
        user.press(Key::escape);
    });
    EXPECT_EQ(range(), stored);
}

TEST_F(QtDates, WithoutADateTheTimeIsEmptyAndWaitsForIt) {
    playDialog(u"", [](QtUser &user) {
        for (const auto &[date, time] :
             {std::pair(u"FromDate", u"FromTime"), std::pair(u"ToDate", u"ToTime")}) {
            EXPECT_EQ(text(user, date), "");
            EXPECT_TRUE(tick(user, date).isEnabled());
            EXPECT_EQ(text(user, time), "");
            EXPECT_FALSE(field(user, time).isEnabled());
            EXPECT_FALSE(tick(user, time).isEnabled());
            EXPECT_NE(user.widget(time)->toolTip(), "");
            user.tryToClick(std::u16string(time) + u"HasValue");
            EXPECT_EQ(text(user, time), "");
            user.tickPicker(date, true);
            EXPECT_TRUE(field(user, time).isEnabled());
            EXPECT_TRUE(tick(user, time).isChecked());
            EXPECT_EQ(user.widget(time)->toolTip(), "");
        }
        EXPECT_EQ(text(user, u"FromTime"), "00:00:00");
        EXPECT_EQ(text(user, u"ToTime"), "23:59:59");
        user.press(Key::escape);
    });
}

TEST_F(QtDates, ADayBeyondTheMonthBecomesItsLastDay) {
    playDialog(stored, [](QtUser &user) {
        typeInto(user, u"FromDate", u"31042004");
        EXPECT_EQ(text(user, u"FromDate"), "30/04/2004");
        typeInto(user, u"FromDate", u"29022003");
        EXPECT_EQ(text(user, u"FromDate"), "28/02/2003");
        typeInto(user, u"FromDate", u"29021900");
        EXPECT_EQ(text(user, u"FromDate"), "28/02/1900");
        typeInto(user, u"ToDate", u"29022100");
        user.press(Key::enter);
    });
    EXPECT_EQ(range(), u"19000228 08:30:00,21000228 17:00:00");
}

TEST_F(QtDates, ARefusedRangeMovesTheFocusIntoTheFieldOfItsEnd) {
    playDialog(stored, [](QtUser &user) {
        typeInto(user, u"ToDate", u"13052004");
        user.click(u"cmdOK");
        EXPECT_EQ(QApplication::focusWidget(), &field(user, u"ToDate"));
        typeInto(user, u"ToDate", u"14052004");
        typeInto(user, u"ToTime", u"082959");
        user.pressAccessKey(u'O');
        EXPECT_EQ(QApplication::focusWidget(), &field(user, u"ToTime"));
        user.press(Key::escape);
    });
    EXPECT_EQ(utility.messages.size(), 2U);
}

TEST_F(QtDates, TabWalksThePickersInTheirOrder) {
    playDialog(stored, [](QtUser &user) {
        for (const auto *picker : {u"FromDate", u"FromTime", u"ToDate", u"ToTime"}) {
            EXPECT_EQ(QApplication::focusWidget(), &tick(user, picker));
            user.press(Key::tab);
            EXPECT_EQ(QApplication::focusWidget(), &field(user, picker));
            user.press(Key::tab);
        }
        EXPECT_EQ(user.focused(), u"cmdOK");
        user.press(Key::shiftTab);
        EXPECT_EQ(QApplication::focusWidget(), &field(user, u"ToTime"));
        user.press(Key::escape);
    });
}

TEST_F(QtDates, EveryPartOfEveryPickerHasANameOfItsOwn) {
    playDialog(stored, [](QtUser &user) {
        std::set<QString> names;
        for (const auto *picker : {u"FromDate", u"FromTime", u"ToDate", u"ToTime"}) {
            for (QWidget *part : {static_cast<QWidget *>(&tick(user, picker)),
                                  static_cast<QWidget *>(&field(user, picker))}) {
                names.insert(QAccessible::queryAccessibleInterface(part)->text(QAccessible::Name));
            }
        }
        EXPECT_EQ(names,
                  (std::set<QString>{"From Date", "From Date: has a value", "From Time",
                                     "From Time: has a value", "To Date", "To Date: has a value",
                                     "To Time", "To Time: has a value"}));
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
