#include "tests/toolkit/qt/QtTest.h"

#include <QCheckBox>
#include <QDateTimeEdit>

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

TEST_F(QtPickerTest, IsWorkedByKeysAlone) {
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
