#include "adapters/qt/QText.h"
#include "platform/Text.h"
#include "tests/toolkit/qt/QtTest.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QLocale>
#include <QTest>

#include <ctime>

namespace kvex::test {
namespace {

class QtPickerTest : public QtTest {
protected:
    QtPickerTest()
        : shown(window({{.kind = ControlKind::label,
                         .name = u"lbl",
                         .caption = u"&From date",
                         .buddy = u"dtp"},
                        {.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyyy"},
                        {.kind = ControlKind::textBox, .name = u"txt"}})) {
        picker().setDate(2004, 5, 14);
    }

    DTPicker &picker() { return shown->get<DTPicker>(u"dtp"); }
    static QDateTimeEdit &field(const QtUser &user) {
        return *user.widget(u"dtp")->findChild<QDateTimeEdit *>();
    }
    static QCheckBox &tick(const QtUser &user) {
        return *user.widget(u"dtp")->findChild<QCheckBox *>();
    }

    std::unique_ptr<Window> shown;
};

TEST_F(QtPickerTest, ShowsNothingWhileItHasNoValue) {
    show(*shown, [&](QtUser &user) {
        const int width = field(user).sizeHint().width();
        EXPECT_EQ(field(user).text(), QStringLiteral("14/05/2004"));
        picker().clearValue();
        EXPECT_EQ(field(user).text(), QString());
        EXPECT_FALSE(field(user).isEnabled());
        EXPECT_FALSE(tick(user).isChecked());
        EXPECT_EQ(field(user).sizeHint().width(), width);
        picker().setMonth(6);
        EXPECT_EQ(field(user).text(), QStringLiteral("14/06/2004"));
        EXPECT_TRUE(tick(user).isChecked());
    });
}

TEST_F(QtPickerTest, IsUsedByKeyboardAlone) {
    int changes = 0;
    picker().onChange = [&] { ++changes; };
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(QApplication::focusWidget(), &tick(user));
        user.press(Key::space);
        EXPECT_FALSE(picker().hasValue());
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"txt");
        user.press(Key::shiftTab);
        user.press(Key::space);
        EXPECT_TRUE(picker().hasValue());
        user.press(Key::tab);
        EXPECT_EQ(QApplication::focusWidget(), &field(user));
        user.press(Key::up);
        EXPECT_EQ(picker().day(), 15);
        user.type(u"21062010");
        EXPECT_EQ(picker().day(), 21);
        EXPECT_EQ(picker().month(), 6);
        EXPECT_EQ(picker().year(), 2010);
    });
    EXPECT_GE(changes, 4);
}

TEST_F(QtPickerTest, HasRoomForTheCaretBehindItsText) {
    show(*shown, [&](QtUser &user) {
        QDateTimeEdit withoutRoom;
        withoutRoom.setDisplayFormat(field(user).displayFormat());
        withoutRoom.setCalendarPopup(true);
        EXPECT_GE(field(user).sizeHint().width() - withoutRoom.sizeHint().width(),
                  field(user).fontMetrics().averageCharWidth());
    });
}

TEST_F(QtPickerTest, TheNamesOfTheDaysStandOnTheColourOfTheCalendar) {
    show(*shown, [&](QtUser &user) {
        const auto *days = field(user).calendarWidget()->findChild<QAbstractItemView *>(
            "qt_calendar_calendarview");
        ASSERT_NE(days, nullptr);
        const QModelIndex name = days->model()->index(0, 1);
        ASSERT_NE(name.data().toString(), "");
        EXPECT_EQ(name.data(Qt::BackgroundRole).value<QColor>().alpha(), 0);
    });
}

TEST_F(QtPickerTest, ADayIsTypedBeforeTheMonthAndTheYearThatHaveIt) {
    struct Typing {
        QDate from;
        const char16_t *keys;
        QDate to;
    };
    const Typing typings[] = {
        {{2024, 4, 20}, u"31052024", {2024, 5, 31}},  {{2023, 2, 20}, u"31012024", {2024, 1, 31}},
        {{2023, 2, 20}, u"29022024", {2024, 2, 29}},  {{2023, 2, 20}, u"30042024", {2024, 4, 30}},
        {{2024, 2, 29}, u"29022023", {2023, 2, 28}},  {{2024, 12, 31}, u"31042024", {2024, 4, 30}},
        {{2024, 12, 31}, u"29021900", {1900, 2, 28}}, {{2024, 12, 31}, u"29022000", {2000, 2, 29}},
        {{2024, 4, 20}, u"31", {2024, 4, 30}},        {{2024, 4, 20}, u"3105", {2024, 5, 31}},
        {{2024, 4, 20}, u"3110", {2024, 10, 31}},     {{2024, 4, 20}, u"45", {2024, 5, 4}},
        {{2024, 4, 20}, u"001", {2024, 4, 1}},        {{2024, 4, 20}, u"391", {2024, 4, 30}},
        {{2024, 4, 20}, u"01011900", {1900, 1, 1}},   {{2024, 4, 20}, u"31123000", {3000, 12, 31}},
    };
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        for (const Typing &typing : typings) {
            picker().setDate(typing.from.year(), typing.from.month(), typing.from.day());
            field(user).setSelectedSection(QDateTimeEdit::DaySection);
            user.type(typing.keys);
            EXPECT_EQ(QDate(picker().year(), picker().month(), picker().day()), typing.to)
                << qt::toQt(typing.keys).toStdString();
            EXPECT_EQ(field(user).date(), typing.to) << qt::toQt(typing.keys).toStdString();
        }
    });
}

TEST_F(QtPickerTest, ATimeIsTypedPartByPart) {
    const auto clock =
        window({{.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"}});
    auto &time = clock->get<DTPicker>(u"dtpTime");
    show(*clock, [&](QtUser &user) {
        user.press(Key::tab);
        for (const char16_t *keys : {u"083015", u"235959", u"000000", u"170000"}) {
            user.press(Key::home);
            user.type(keys);
            EXPECT_EQ(time.hour() * 10000 + time.minute() * 100 + time.second(),
                      toInt32(std::u16string_view(keys)));
        }
    });
}

TEST_F(QtPickerTest, ADayThatWasReplacedIsNotBroughtBack) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.type(u"31");
        picker().setDate(2004, 5, 14);
        field(user).setSelectedSection(QDateTimeEdit::MonthSection);
        user.type(u"06");
        EXPECT_EQ(picker().day(), 14);
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.type(u"30");
        user.press(Key::up);
        EXPECT_EQ(picker().month(), 7);
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.press(Key::down);
        EXPECT_EQ(picker().day(), 29);
        field(user).setSelectedSection(QDateTimeEdit::MonthSection);
        user.type(u"08");
        EXPECT_EQ(picker().day(), 29);
    });
}

TEST_F(QtPickerTest, ADateIsTypedWithSeparatorsOfEveryKindOrNone) {
    struct Typing {
        const char16_t *keys;
        QDate to;
    };
    const Typing typings[] = {
        {u"05/06/2025", {2025, 6, 5}},  {u"5/6/2025", {2025, 6, 5}},
        {u"05.06.2025", {2025, 6, 5}},  {u"1-2-1999", {1999, 2, 1}},
        {u"31/1/2025", {2025, 1, 31}},  {u"1 12 2025", {2025, 12, 1}},
        {u"31/02/2024", {2024, 2, 29}}, {u"05062025", {2025, 6, 5}},
        {u"/11/2030", {2030, 11, 14}},  {u"05//2025", {2025, 5, 5}},
        {u"३/४/२०२५", {2025, 4, 3}},    {u"1/13/2025", {2025, 1, 1}},
    };
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        for (const Typing &typing : typings) {
            picker().setDate(2004, 5, 14);
            field(user).setSelectedSection(QDateTimeEdit::DaySection);
            user.type(typing.keys);
            EXPECT_EQ(QDate(picker().year(), picker().month(), picker().day()), typing.to)
                << qt::toQt(typing.keys).toStdString();
            EXPECT_EQ(user.focused(), u"dtp");
        }
    });
}

TEST_F(QtPickerTest, WhatIsShownInAnyLocaleCanBeTyped) {
    for (const char *name : {"de_DE", "en_US", "mr_IN", "fa_IR", "fr_FR", "ar_EG"}) {
        SCOPED_TRACE(name);
        QLocale::setDefault(QLocale(QString::fromLatin1(name)));
        const auto both =
            window({{.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyy"},
                    {.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"}});
        auto &date = both->get<DTPicker>(u"dtp");
        auto &time = both->get<DTPicker>(u"dtpTime");
        show(*both, [&](QtUser &user) {
            const auto fieldOf = [&](const char16_t *picker) -> QDateTimeEdit & {
                return *user.widget(picker)->findChild<QDateTimeEdit *>();
            };
            date.setDate(2025, 6, 5);
            time.setTime(8, 5, 9);
            const std::u16string shownDate = qt::fromQt(fieldOf(u"dtp").text());
            const std::u16string shownTime = qt::fromQt(fieldOf(u"dtpTime").text());
            date.setDate(2004, 3, 31);
            time.setTime(17, 0, 0);
            user.press(Key::tab);
            user.type(shownDate);
            user.press(Key::tab);
            user.press(Key::tab);
            user.type(shownTime);
            EXPECT_EQ(QDate(date.year(), date.month(), date.day()), QDate(2025, 6, 5));
            EXPECT_EQ(QTime(time.hour(), time.minute(), time.second()), QTime(8, 5, 9));
        });
    }
    QLocale::setDefault(QLocale::system());
}

TEST_F(QtPickerTest, ATimeIsTypedWithSeparatorsOrWithout) {
    const auto clock =
        window({{.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"}});
    auto &time = clock->get<DTPicker>(u"dtpTime");
    const std::pair<const char16_t *, QTime> typings[] = {
        {u"08:30:15", {8, 30, 15}},  {u"8:5:9", {8, 5, 9}},    {u"1.2.3", {1, 2, 3}},
        {u"23:59:59", {23, 59, 59}}, {u"00:00:00", {0, 0, 0}}, {u"99:7", {9, 9, 7}}};
    show(*clock, [&](QtUser &user) {
        user.press(Key::tab);
        for (const auto &[keys, wanted] : typings) {
            time.setTime(17, 0, 0);
            user.press(Key::home);
            user.type(keys);
            EXPECT_EQ(QTime(time.hour(), time.minute(), time.second()), wanted)
                << qt::toQt(keys).toStdString();
        }
        EXPECT_EQ(user.focused(), u"dtpTime");
    });
}

TEST_F(QtPickerTest, ControlAndAnArrowKeyChangeThePartAndTakeWhatIsTyped) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        const auto go = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
            QTest::keyClick(&field(user), key, Qt::ControlModifier | held);
            EXPECT_EQ(user.focused(), u"dtp");
            return field(user).currentSection();
        };
        user.type(u"2");
        EXPECT_EQ(go(Qt::Key_Right), QDateTimeEdit::MonthSection);
        user.type(u"1");
        EXPECT_EQ(go(Qt::Key_Right), QDateTimeEdit::YearSection);
        EXPECT_EQ(go(Qt::Key_Right), QDateTimeEdit::YearSection);
        user.type(u"20");
        EXPECT_EQ(go(Qt::Key_Left), QDateTimeEdit::MonthSection);
        EXPECT_EQ(field(user).text(), QStringLiteral("02/01/2004"));
        EXPECT_EQ(go(Qt::Key_Left), QDateTimeEdit::DaySection);
        EXPECT_EQ(go(Qt::Key_Left), QDateTimeEdit::DaySection);
        EXPECT_EQ(QDate(picker().year(), picker().month(), picker().day()), QDate(2004, 1, 2));
        for (const auto held : {Qt::ShiftModifier, Qt::KeypadModifier}) {
            EXPECT_EQ(go(Qt::Key_Left, held), QDateTimeEdit::DaySection);
            EXPECT_EQ(go(Qt::Key_Right, held), QDateTimeEdit::MonthSection);
            EXPECT_EQ(go(Qt::Key_Right, held), QDateTimeEdit::YearSection);
            EXPECT_EQ(go(Qt::Key_Right, held), QDateTimeEdit::YearSection);
            EXPECT_EQ(go(Qt::Key_Left, held), QDateTimeEdit::MonthSection);
            EXPECT_EQ(go(Qt::Key_Left, held), QDateTimeEdit::DaySection);
        }
    });
}

TEST_F(QtPickerTest, WithAllSelectedTypingStartsAnew) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        user.press(Key::selectAll);
        user.type(u"05/06/2025");
        EXPECT_EQ(field(user).date(), QDate(2025, 6, 5));
        for (const Key key : {Key::backspace, Key::deleteKey}) {
            user.press(Key::selectAll);
            user.press(key);
            EXPECT_EQ(field(user).text(), QStringLiteral("05/06/2025"));
            user.type(u"07/08/2026");
            EXPECT_EQ(field(user).date(), QDate(2026, 8, 7));
            picker().setDate(2025, 6, 5);
        }
    });
}

TEST_F(QtPickerTest, ZerosBeforeAYearDoNotCount) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        for (const char16_t *keys : {u"02026", u"002026", u"2026"}) {
            picker().setYear(2004);
            field(user).setSelectedSection(QDateTimeEdit::YearSection);
            user.type(keys);
            EXPECT_EQ(field(user).text(), QStringLiteral("14/05/2026"));
            EXPECT_EQ(picker().year(), 2026);
        }
        picker().setYear(2004);
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.type(u"05/06/02025");
        EXPECT_EQ(field(user).date(), QDate(2025, 6, 5));
        field(user).setSelectedSection(QDateTimeEdit::YearSection);
        user.press(Key::deleteKey);
        user.type(u"01999");
        EXPECT_EQ(picker().year(), 1999);
    });
}

TEST_F(QtPickerTest, AYearBegunIsNoYear) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        field(user).setSelectedSection(QDateTimeEdit::YearSection);
        user.type(u"020");
        EXPECT_EQ(field(user).text(), QStringLiteral("14/05/20"));
        EXPECT_EQ(picker().year(), 2004);
        user.press(Key::home);
        EXPECT_EQ(picker().year(), 2004);
    });
}

TEST_F(QtPickerTest, EnterPressesTheDefaultButtonWithWhatIsTyped) {
    shown = window({{.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyy"},
                    {.kind = ControlKind::commandButton, .name = u"cmd", .isDefault = true}});
    picker().setDate(2004, 5, 14);
    std::vector<QDate> taken;
    shown->get<CommandButton>(u"cmd").onClick = [&] {
        taken.emplace_back(picker().year(), picker().month(), picker().day());
    };
    show(*shown, [&](QtUser &user) {
        user.press(Key::tab);
        user.type(u"05/06/2025\n");
        user.press(Key::home);
        user.type(u"7\n");
    });
    EXPECT_EQ(taken, (std::vector<QDate>{{2025, 6, 5}, {2025, 6, 7}}));
}

TEST_F(QtPickerTest, ADigitTypedAfterAClickBeginsTheDayAnew) {
    show(*shown, [&](QtUser &user) {
        user.focusOn(u"dtpValue");
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.type(u"2");
        EXPECT_EQ(picker().day(), 2);
        field(user).setSelectedSection(QDateTimeEdit::MonthSection);
        field(user).setSelectedSection(QDateTimeEdit::DaySection);
        user.type(u"1");
        EXPECT_EQ(picker().day(), 1);
    });
}

TEST_F(QtPickerTest, TheSystemsTimeZoneMovesNoDateAndNoTime) {
    const QByteArray zone = qgetenv("TZ");
    const auto inZone = [&](const char *zoneName) {
        qputenv("TZ", zoneName);
        tzset();
        const auto time =
            window({{.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"},
                    {.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyyy"}});
        show(*time, [&](QtUser &user) {
            const auto fieldOf = [&](const char16_t *name) {
                return user.widget(name)->findChild<QDateTimeEdit *>();
            };
            auto &clock = time->get<DTPicker>(u"dtpTime");
            clock.setTime(2, 30, 0);
            EXPECT_EQ(fieldOf(u"dtpTime")->text(), QStringLiteral("02:30:00"));
            user.pickTime(u"dtpTime", 23, 59, 59);
            EXPECT_EQ(clock.hour() * 10000 + clock.minute() * 100 + clock.second(), 235959);
            auto &day = time->get<DTPicker>(u"dtp");
            // A time zone in which clocks go forward between 2 and 3.
            day.setDate(2024, 3, 10);
            day.setTime(2, 30, 0);
            EXPECT_EQ(fieldOf(u"dtp")->text(), QStringLiteral("10/03/2024"));
            for (const QDate date : {QDate(1900, 1, 1), QDate(3000, 12, 31)}) {
                user.pickDate(u"dtp", date.year(), date.month(), date.day());
                EXPECT_EQ(QDate(day.year(), day.month(), day.day()), date);
                EXPECT_EQ(day.hour() * 100 + day.minute(), 230);
            }
        });
    };
    for (const char *name : {"Asia/Kolkata", "America/New_York", "Pacific/Kiritimati"}) {
        SCOPED_TRACE(name);
        inZone(name);
    }
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    tzset();
}

TEST_F(QtPickerTest, ItsAccessKeyLeadsIntoIt) {
    show(*shown, [&](QtUser &user) {
        user.click(u"txt");
        user.pressAccessKey(u'f');
        EXPECT_EQ(user.focused(), u"dtp");
    });
}

TEST_F(QtPickerTest, ItsPartsHaveNamesOfTheirOwn) {
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(field(user).objectName(), QStringLiteral("dtpValue"));
        EXPECT_EQ(tick(user).objectName(), QStringLiteral("dtpHasValue"));
        EXPECT_EQ(field(user).accessibleName(), QStringLiteral("From date"));
        EXPECT_EQ(tick(user).accessibleName(), QStringLiteral("From date: has a value"));
    });
}

TEST_F(QtPickerTest, APickerThatIsDisabledPassesTheFocusOn) {
    show(*shown, [&](QtUser &user) {
        picker().setFocus();
        EXPECT_EQ(QApplication::focusWidget(), &field(user));
        picker().setEnabled(false);
        EXPECT_EQ(user.focused(), u"txt");
    });
}

} // namespace
} // namespace kvex::test
