#include "tests/toolkit/qt/QtTest.h"

#include "adapters/qt/Colours.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimer>

#include <algorithm>

namespace kvex::test {
namespace {

using enum ControlKind;

WindowDesign everything() {
    return {
        .name = u"frmAll",
        .caption = u"Everything [*] there is",
        .controls =
            {
                {.kind = frame, .name = u"fra", .caption = u"Message is received between"},
                {.kind = datePicker, .name = u"FromDate", .format = u"dd/MM/yyyy"},
                {.kind = timePicker, .name = u"FromTime", .format = u"HH:mm:ss"},
                {.kind = label,
                 .name = u"lblHint",
                 .caption = u"Type one mobile number at a time and click Add, or select numbers "
                            u"from the Address Book",
                 .hint = true},
                {.kind = label,
                 .name = u"lblNo",
                 .caption = u"&Mobile number",
                 .buddy = u"txtMobileNo"},
                {.kind = textBox, .name = u"txtMobileNo", .maxLength = 20, .columns = 20},
                {.kind = commandButton, .name = u"cmdAdd", .caption = u"&Add", .isDefault = true},
                {.kind = commandButton,
                 .name = u"cmdEdit",
                 .caption = u"&Edit Currently Selected Condition",
                 .enabled = false,
                 .disabledHint = u"Select a condition first"},
                {.kind = commandButton,
                 .name = u"cmdHidden",
                 .caption = u"Show String Values",
                 .visible = false},
                {.kind = optionButton, .name = u"opg0", .caption = u"&Is", .group = u"opg"},
                {.kind = checkBox, .name = u"chk", .caption = u"A box to &tick"},
                {.kind = listView,
                 .name = u"lvw",
                 .accessibleName = u"Accounts",
                 .columns = 30,
                 .lines = 4},
                {.kind = richTextBox, .name = u"rt", .readOnly = true, .lines = 4},
                {.kind = frame, .name = u"line"},
                {.kind = commandButton, .name = u"cmdOK", .caption = u"&OK"},
                {.kind = commandButton,
                 .name = u"cmdNowhere",
                 .caption = u"&Nowhere",
                 .visible = false},
            },
        .layout = column({
            placeFrame(u"fra", {row({place(u"FromDate"), place(u"FromTime"), spring()})}),
            place(u"lblHint"),
            row({place(u"lblNo"), place(u"txtMobileNo", 1), place(u"cmdAdd")}),
            row({place(u"cmdEdit"), place(u"cmdHidden"), place(u"opg0"), place(u"chk")}),
            place(u"lvw", 2),
            place(u"rt", 1),
            place(u"line"),
            row({spring(), place(u"cmdOK")}),
        }),
        .columns = 70,
        .lines = 30,
    };
}

class QtWindowTest : public QtTest {
protected:
    static QWidget &dialog(const QtUser &user) { return *user.widget(u"cmdOK")->window(); }

    /// Every visible control has at least its minimum size.
    static void expectNothingIsCut(const QtUser &user) {
        const QRect inside = dialog(user).rect();
        for (const ControlDesign &control : everything().controls) {
            const QWidget *widget = user.widget(control.name);
            if (!widget->isVisible()) {
                continue;
            }
            const int needed = widget->hasHeightForWidth() ? widget->heightForWidth(widget->width())
                                                           : widget->minimumSizeHint().height();
            EXPECT_GE(widget->height(), needed) << widget->objectName().toStdString();
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
                << widget->objectName().toStdString();
            EXPECT_TRUE(
                inside.contains(QRect(widget->mapTo(&dialog(user), QPoint()), widget->size())))
                << widget->objectName().toStdString();
        }
    }
};

TEST_F(QtWindowTest, NothingIsCutInSmallAndLargeFontsHoweverSmallTheWindow) {
    for (const int points : {9, 16}) {
        const Theme theme(QApplication::palette(), points);
        const auto shown = toolkit.createWindow(everything());
        show(*shown, [&](QtUser &user) {
            expectNothingIsCut(user);
            dialog(user).resize(1, 1);
            QCoreApplication::processEvents();
            expectNothingIsCut(user);
        });
    }
}

TEST_F(QtWindowTest, ABoxToTickIsMadeOutOnADarkThemeAndGrowsWithTheFont) {
    int smaller = 0;
    for (const int points : {9, 16}) {
        const Theme theme(darkPalette(), points);
        const auto shown = toolkit.createWindow(everything());
        show(*shown, [&](QtUser &user) {
            QWidget &box = *user.widget(u"chk");
            QStyleOptionButton option;
            option.initFrom(&box);
            const QRect indicator =
                box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
            const QColor edge =
                box.grab().toImage().pixelColor(indicator.left(), indicator.center().y());
            EXPECT_GE(qt::contrast(edge, box.palette().color(QPalette::Base)), 3);
            EXPECT_GT(indicator.width(), smaller);
            smaller = indicator.width();
        });
    }
}

/// The greatest difference between a pixel of the widget's caption and the background beside it.
double contrastOfCaption(QWidget &widget) {
    const QImage drawn = widget.grab().toImage();
    const int beside = drawn.width() - 6;
    double most = 1;
    for (int y = 6; y < drawn.height() - 6; ++y) {
        for (int x = drawn.height(); x < beside; ++x) {
            most =
                std::max(most, qt::contrast(drawn.pixelColor(x, y), drawn.pixelColor(beside, y)));
        }
    }
    return most;
}

TEST_F(QtWindowTest, ADisabledCaptionCanBeReadInHighContrastThemes) {
    struct HighContrast {
        QColor background, text, disabled;
    };
    for (const auto &[background, text, disabled] :
         {HighContrast{Qt::black, Qt::white, QColor(70, 70, 70)},
          HighContrast{Qt::white, Qt::black, QColor(190, 190, 190)}}) {
        SCOPED_TRACE(background.name().toStdString());
        QPalette palette(text, background, background, background, background, text, text,
                         background, background);
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
            palette.setColor(QPalette::Disabled, role, disabled);
        }
        const auto before = toolkit.createWindow(everything());
        const Theme theme(palette, 16);
        const auto after = toolkit.createWindow(everything());
        for (Window *window : {before.get(), after.get()}) {
            show(*window, [&](QtUser &user) {
                for (const auto *name : {u"cmdEdit", u"opg0", u"chk", u"fra"}) {
                    SCOPED_TRACE(user.widget(name)->objectName().toStdString());
                    window->get<Control>(name).setEnabled(true);
                    const double enabled = contrastOfCaption(*user.widget(name));
                    window->get<Control>(name).setEnabled(false);
                    const double whenDisabled = contrastOfCaption(*user.widget(name));
                    EXPECT_GE(whenDisabled, qt::leastTextContrast);
                    EXPECT_LT(whenDisabled, enabled);
                }
            });
        }
    }
}

void expectProductIcon(const QIcon &icon) {
    for (const int size : {16, 32, 48, 128}) {
        const QImage drawn = icon.pixmap(size, size).toImage();
        ASSERT_EQ(drawn.width(), size);
        EXPECT_EQ(drawn.pixelColor(size / 2 - 2, size / 3), QColor(0x1c, 0x5d, 0x99)) << size;
        EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0) << size;
    }
}

TEST_F(QtWindowTest, WindowsAndMessageBoxesHaveTheProductsIcon) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) { expectProductIcon(dialog(user).windowIcon()); });
    QTimer::singleShot(0, &play,
                       [&] { expectProductIcon(QApplication::activeModalWidget()->windowIcon()); });
    toolkit.showMessageBox(u"T", u"x", message_box::exclamation);
}

/// Whether dashes surround the button's caption: the pixels of their top line vary.
bool hasFocusDashes(QPushButton &button) {
    const QImage drawn = button.grab().toImage();
    constexpr int line = 3;
    int steps = 0;
    for (int x = 5; x < drawn.width() - 6; ++x) {
        steps += qt::contrast(drawn.pixelColor(x, line), drawn.pixelColor(x + 1, line)) >=
                         qt::leastShapeContrast
                     ? 1
                     : 0;
    }
    return steps > 4;
}

TEST_F(QtWindowTest, TheFocusedButtonHasDashesAndTheOneThatEnterPressesAnOutline) {
    for (const QPalette &palette : {QApplication::palette(), darkPalette()}) {
        const Theme theme(palette, QApplication::font().pointSize());
        const auto shown = window(
            {{.kind = ControlKind::textBox, .name = u"txt"},
             {.kind = ControlKind::commandButton, .name = u"cmdOther", .caption = u"Something"},
             {.kind = ControlKind::commandButton,
              .name = u"cmdOK",
              .caption = u"Something",
              .isDefault = true}});
        std::u16string pressed;
        for (const auto *name : {u"cmdOther", u"cmdOK"}) {
            shown->get<CommandButton>(name).onClick = [&pressed, name] { pressed += name; };
        }
        show(*shown, [&](QtUser &user) {
            auto &other = dynamic_cast<QPushButton &>(*user.widget(u"cmdOther"));
            auto &ok = dynamic_cast<QPushButton &>(*user.widget(u"cmdOK"));
            const auto expect = [&](bool otherHasFocus, bool okHasFocus) {
                EXPECT_EQ(hasFocusDashes(other), otherHasFocus);
                EXPECT_EQ(hasFocusDashes(ok), okHasFocus);
                EXPECT_EQ(other.isDefault(), otherHasFocus);
                EXPECT_EQ(ok.isDefault(), !otherHasFocus);
                user.press(Key::enter);
                EXPECT_EQ(std::exchange(pressed, {}), otherHasFocus ? u"cmdOther" : u"cmdOK");
            };
            expect(false, false);
            user.press(Key::tab);
            expect(true, false);
            user.press(Key::tab);
            expect(false, true);
            user.press(Key::tab);
            expect(false, false);
        });
    }
}

TEST_F(QtWindowTest, ItStartsInItsDesignsSizeAsFarAsTheScreenHasRoom) {
    WindowDesign design = everything();
    design.columns = 1000;
    design.lines = 20;
    const auto shown = toolkit.createWindow(design);
    show(*shown, [&](QtUser &user) {
        const int available = dialog(user).screen()->availableSize().width();
        EXPECT_GT(dialog(user).width(), available * 9 / 10);
        EXPECT_LT(dialog(user).width(), available) << "the window leaves no room for its frame";
        EXPECT_GE(dialog(user).height(), 20 * dialog(user).fontMetrics().lineSpacing());
        EXPECT_LT(dialog(user).height(), dialog(user).screen()->availableSize().height());
    });
}

TEST_F(QtWindowTest, AControlThatIsNotVisibleTakesNoRoom) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        const int before = user.widget(u"opg0")->x();
        shown->get<Control>(u"cmdHidden").setVisible(true);
        QCoreApplication::processEvents();
        EXPECT_GT(user.widget(u"opg0")->x(), before + user.widget(u"cmdHidden")->width());
        shown->get<Control>(u"cmdHidden").setVisible(false);
        QCoreApplication::processEvents();
        EXPECT_EQ(user.widget(u"opg0")->x(), before);
    });
}

TEST_F(QtWindowTest, AControlWithoutAPlaceIsNotShown) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        shown->get<Control>(u"cmdNowhere").setVisible(true);
        EXPECT_TRUE(shown->get<Control>(u"cmdNowhere").visible());
        EXPECT_FALSE(user.widget(u"cmdNowhere")->isVisible());
    });
}

TEST_F(QtWindowTest, ItsTitleIsItsCaptionAndItsWidgetsHaveTheControlsNames) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(dialog(user).objectName(), QStringLiteral("frmAll"));
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog(user))->text(QAccessible::Name),
                  QStringLiteral("Everything [*] there is"));
        for (const ControlDesign &control : everything().controls) {
            EXPECT_EQ(dialog(user)
                          .findChildren<QWidget *>(QString::fromStdU16String(control.name))
                          .size(),
                      1);
        }
    });
}

TEST_F(QtWindowTest, AssistiveTechnologyLearnsWhatAControlIsFor) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        const auto nameOf = [&](std::u16string_view control) {
            return QAccessible::queryAccessibleInterface(user.widget(control))
                ->text(QAccessible::Name)
                .toStdString();
        };
        EXPECT_EQ(nameOf(u"txtMobileNo"), "Mobile number");
        EXPECT_EQ(nameOf(u"lvw"), "Accounts");
        EXPECT_EQ(nameOf(u"cmdAdd"), "Add");
        EXPECT_EQ(nameOf(u"chk"), "A box to tick");
    });
}

TEST_F(QtWindowTest, ADisabledControlSaysWhatItWaitsFor) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(user.widget(u"cmdEdit")->toolTip(), QStringLiteral("Select a condition first"));
        shown->get<Control>(u"cmdEdit").setEnabled(true);
        EXPECT_EQ(user.widget(u"cmdEdit")->toolTip(), QString());
        shown->get<Control>(u"cmdEdit").setEnabled(false);
        EXPECT_EQ(user.widget(u"cmdEdit")->toolTip(), QStringLiteral("Select a condition first"));
    });
}

TEST_F(QtWindowTest, AWindowStandsOverTheOneWhoseHandlerShowedIt) {
    const auto outer = toolkit.createWindow(everything());
    outer->get<CommandButton>(u"cmdOK").onClick = [&] {
        const auto inner = toolkit.createWindow(everything());
        show(*inner, [&](QtUser &user) {
            QWidget &above = dialog(user);
            ASSERT_NE(above.parentWidget(), nullptr);
            EXPECT_EQ(above.parentWidget()->objectName(), QStringLiteral("frmAll"));
            EXPECT_FALSE(above.parentWidget() == &above);
            EXPECT_EQ(QApplication::activeModalWidget(), &above);
        });
    };
    show(*outer, [&](QtUser &user) {
        user.click(u"cmdOK");
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog(user));
    });
}

TEST_F(QtWindowTest, AMessageBoxStandsOverTheActiveWindowAndShowsItsTextAsItIs) {
    const auto shown = toolkit.createWindow(everything());
    show(*shown, [&](QtUser &user) {
        QWidget *over = nullptr;
        bool isPlain = false;
        QTimer::singleShot(0, &play, [&] {
            auto *box = dynamic_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            over = box->parentWidget();
            isPlain = box->textFormat() == Qt::PlainText;
        });
        EXPECT_EQ(toolkit.showMessageBox(u"T", u"a\rb <i>c</i>", message_box::exclamation),
                  message_box::ok);
        EXPECT_EQ(over, &dialog(user));
        EXPECT_TRUE(isPlain);
    });
    ASSERT_EQ(play.messageBoxes().size(), 1U);
    EXPECT_EQ(play.messageBoxes()[0].text, u"a\nb <i>c</i>");
}

TEST_F(QtWindowTest, AnOptionIsSelectedByArrowKeys) {
    const auto shown = window(
        {{.kind = optionButton, .name = u"a", .caption = u"A", .group = u"g", .selected = true},
         {.kind = optionButton, .name = u"b", .caption = u"B", .group = u"g"}});
    int clicks = 0;
    shown->get<OptionButton>(u"b").onClick = [&] { ++clicks; };
    show(*shown, [&](QtUser &user) {
        user.press(Key::down);
        EXPECT_EQ(user.focused(), u"b");
        EXPECT_TRUE(shown->get<OptionButton>(u"b").selected());
    });
    EXPECT_EQ(clicks, 1);
}

/// A sanitizer finds a call to a window of which only the widgets are left.
TEST_F(QtWindowTest, MayGoWhileOneOfItsWidgetsHasTheFocus) {
    auto going = window({{.kind = textBox, .name = u"txt"}});
    const auto windows = QApplication::topLevelWidgets();
    const auto dialog = std::ranges::find(windows, QStringLiteral("frmTest"), &QWidget::objectName);
    ASSERT_NE(dialog, windows.end());
    (*dialog)->show();
    QApplication::setActiveWindow(*dialog);
    (*dialog)->findChild<QLineEdit *>()->setFocus();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    going.reset();
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

} // namespace
} // namespace kvex::test
