// How each control looks: the text of its cells and their attributes.
#include "tests/terminal/Looks.h"
#include "platform/Text.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using terminal::Characters;

ControlDesign list() {
    return control(ControlKind::listView, u"lvw");
}

TEST_F(Looks, ASelectedRowIsReverseAndDimWithoutTheFocus) {
    show(
        {list(), control(ControlKind::textBox, u"txt")},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addRow(u"one");
            rows.addRow(u"two");
            rows.select(2);
        },
        [&](TerminalUser &user) {
            EXPECT_FALSE(has(u"one", reverse));
            EXPECT_TRUE(has(u"two", reverse));
            EXPECT_FALSE(has(u"two", dim));
            EXPECT_EQ(play.screen().cursor(), find(u"two"));
            user.press(Key::tab);
            EXPECT_TRUE(has(u"two", reverse));
            EXPECT_TRUE(has(u"two", dim));
        });
}

TEST_F(Looks, EverySelectedRowIsReverseAndTheCursorStandsAtTheCurrentOne) {
    ControlDesign many = list();
    many.multiSelect = true;
    show(
        {many},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            for (const auto *text : {u"one", u"two", u"three"}) {
                rows.addRow(text);
            }
        },
        [&](TerminalUser &user) {
            user.press(Key::home);
            user.press(Key::selectDown);
            user.press(Key::goDown);
            EXPECT_TRUE(has(u"one", reverse));
            EXPECT_TRUE(has(u"two", reverse));
            EXPECT_FALSE(has(u"three", reverse));
            EXPECT_EQ(play.screen().cursor(), find(u"three"));
        });
}

TEST_F(Looks, AClickIntoATextPutsTheCaretThere) {
    show(
        {control(ControlKind::textBox, u"txt"), control(ControlKind::richTextBox, u"rt")},
        [](Window &window) {
            window.get<TextBox>(u"txt").setText(u"one line");
            window.get<RichTextBox>(u"rt").setText(u"first\r\nsecond");
        },
        [&](TerminalUser &user) {
            user.clickAt(find(u"line"));
            user.type(u"more ");
            EXPECT_EQ(user.get<TextBox>(u"txt").text(), u"one more line");
            user.clickAt(find(u"cond"));
            user.type(u"-");
            EXPECT_EQ(user.get<RichTextBox>(u"rt").text(), u"first\r\nse-cond");
        });
}

TEST_F(Looks, AGreyedRowIsDimAndTheStatusSaysWhy) {
    ControlDesign greyed = list();
    greyed.greyedRowHint = u"Locked by another";
    show(
        {greyed},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addRow(u"one");
            rows.addRow(u"two");
            rows.setRowColour(2, RowColour::greyText);
        },
        [&](TerminalUser &user) {
            EXPECT_FALSE(has(u"one", dim));
            EXPECT_TRUE(has(u"two", dim));
            user.press(Key::end);
            EXPECT_EQ(find(u"Locked by another").row, height - 1);
        });
}

TEST_F(Looks, AListShowsItsBoxesAndItsColumnsExceptHiddenOnes) {
    ControlDesign boxes = list();
    boxes.checkBoxes = true;
    show(
        {boxes},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addColumn(u"Name", 0.5);
            rows.addColumn(u"Secret", 0);
            rows.addColumn(u"Number", 0.4);
            rows.addRow(u"one");
            rows.addRow(u"two");
            rows.setSubItem(1, 1, u"hidden");
            rows.setSubItem(1, 2, u"+49");
            rows.setChecked(2, true);
        },
        [&](TerminalUser &) {
            EXPECT_TRUE(has(u"Name", bold));
            EXPECT_TRUE(isOnScreen(u"[ ] one"));
            EXPECT_TRUE(isOnScreen(u"[x] two"));
            EXPECT_EQ(find(u"Number").column, find(u"+49").column);
            EXPECT_FALSE(isOnScreen(u"Secret"));
            EXPECT_FALSE(isOnScreen(u"hidden"));
        });
}

TEST_F(Looks, AnEmptyListSaysWhatBelongsThere) {
    ControlDesign empty = list();
    empty.emptyText = u"Nothing yet";
    show({empty}, [&](TerminalUser &user) {
        EXPECT_TRUE(has(u"Nothing yet", dim));
        user.get<ListView>(u"lvw").addRow(u"one");
        user.press(Key::help);
        EXPECT_FALSE(isOnScreen(u"Nothing yet"));
    });
}

TEST_F(Looks, WideRowsMoveSidewaysByKeys) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addColumn(u"Name", 1);
            rows.addRow(u"the beginning of a text that is too wide to be seen");
        },
        [&](TerminalUser &user) {
            EXPECT_FALSE(isOnScreen(u"to be seen"));
            for (int times = 0; times < 9; ++times) {
                user.press(Key::right);
            }
            EXPECT_TRUE(isOnScreen(u"to be seen"));
            EXPECT_FALSE(isOnScreen(u"the beginning"));
            for (int times = 0; times < 9; ++times) {
                user.press(Key::left);
            }
            EXPECT_TRUE(isOnScreen(u"the beginning"));
        });
}

TEST_F(Looks, WideRowsMoveByEightColumnsAndNotBeyondTheirEnd) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addColumn(u"Name", 1);
            rows.addRow(u"abcdefgh" + std::u16string(70, u'.') + u"END");
        },
        [&](TerminalUser &user) {
            user.press(Key::right);
            EXPECT_FALSE(isOnScreen(u"h."));
            EXPECT_FALSE(isOnScreen(u"END"));
            user.press(Key::left);
            EXPECT_TRUE(isOnScreen(u"abcdefgh."));
            for (int times = 0; times < 20; ++times) {
                user.press(Key::right);
            }
            EXPECT_TRUE(isOnScreen(u".END"));
            user.press(Key::left);
            EXPECT_FALSE(isOnScreen(u"END"));
        });
}

TEST_F(Looks, ABlankPartsATextThatIsTooLongFromTheNextColumn) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addColumn(std::u16string(40, u'H'), 0.5);
            rows.addColumn(u"Number", 0.5);
            rows.addRow(std::u16string(40, u'T'));
            rows.setSubItem(1, 1, u"+49");
        },
        [&](TerminalUser &) {
            EXPECT_TRUE(isOnScreen(u"HH Number"));
            EXPECT_TRUE(isOnScreen(u"TT +49"));
        });
}

TEST_F(Looks, ARowMovesSidewaysOnlyAsFarAsItsOwnTextNeeds) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            rows.addColumn(u"Name", 1);
            rows.addRow(u"short");
            rows.addRow(u"the beginning of a text that is too wide to be seen");
        },
        [&](TerminalUser &user) {
            for (int times = 0; times < 9; ++times) {
                user.press(Key::right);
            }
            EXPECT_TRUE(isOnScreen(u"to be seen"));
            EXPECT_TRUE(isOnScreen(u"short"));
        });
}

TEST_F(Looks, AClickOnTheScrollBarOfAListShowsThatPartOfIt) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            for (std::int64_t row = 1; row <= 1000; ++row) {
                rows.addRow(u"row " + toText(row) + u".");
            }
        },
        [&](TerminalUser &user) {
            const terminal::Point first = find(u"row 1.");
            const auto rect = user.window().seenAt(u"lvw").value();
            const int bar = rect.column + rect.columns - 1;
            const int bottom = rect.row + rect.rows - 2;
            const int middle = (first.row + bottom) / 2;
            const auto isThumb = [&](int row) { return play.screen().at(bar, row).text == u"█"; };
            user.clickAt({bar, bottom});
            EXPECT_EQ(find(u"row 1000."), (terminal::Point{first.column, bottom}));
            EXPECT_TRUE(isThumb(bottom));
            EXPECT_FALSE(isThumb(middle));
            user.clickAt({bar, middle});
            EXPECT_TRUE(isOnScreen(u"row 470."));
            EXPECT_TRUE(isThumb(middle));
            EXPECT_FALSE(isThumb(bottom));
            user.clickAt({bar, first.row});
            EXPECT_EQ(find(u"row 1."), first);
            EXPECT_FALSE(isThumb(middle));
            EXPECT_EQ(user.get<ListView>(u"lvw").selectedRow(), 0);
        });
}

TEST_F(Looks, AListOfManyRowsWritesLittleForAnArrowKey) {
    show(
        {list()},
        [](Window &window) {
            auto &rows = window.get<ListView>(u"lvw");
            for (int row = 0; row < 100000; ++row) {
                rows.addRow(u"a row of the list");
            }
            rows.select(50000);
        },
        [&](TerminalUser &user) {
            user.press(Key::up);
            static_cast<void>(play.screen());
            for (const Key key : {Key::up, Key::up, Key::down}) {
                play.input(TerminalUser::bytesOf(key));
                const std::string written = play.device().taken();
                EXPECT_GT(written.size(), 0U);
                EXPECT_LE(written.size(), 400U);
            }
            EXPECT_EQ(user.get<ListView>(u"lvw").selectedRow(), 49998);
        });
}

TEST_F(Looks, ButtonsShowTheirStateAndTheirAccessKey) {
    ControlDesign ok = control(ControlKind::commandButton, u"cmdOK", u"O&K");
    ok.isDefault = true;
    show({control(ControlKind::textBox, u"txt"), ok,
          control(ControlKind::commandButton, u"cmdNew", u"New"),
          disabled(control(ControlKind::commandButton, u"cmdOff", u"Off"))},
         [&](TerminalUser &user) {
             const std::u16string okLine = play.screen().line(find(u"OK").row);
             EXPECT_EQ(okLine.front(), u'<');
             EXPECT_EQ(okLine.find_last_not_of(u" >"), okLine.find(u"OK") + 1);
             EXPECT_EQ(play.screen().line(find(u"New").row).front(), u'[');
             EXPECT_EQ(play.screen().line(find(u"Off").row).find_first_not_of(u' '),
                       play.screen().line(find(u"Off").row).find(u"Off"));
             EXPECT_TRUE(has(u"Off", dim));
             EXPECT_TRUE(has(u"K", underlined));
             EXPECT_FALSE(has(u"OK", reverse));
             user.press(Key::tab);
             EXPECT_TRUE(has(u"OK", reverse));
             user.press(Key::tab);
             EXPECT_EQ(play.screen().line(find(u"New").row).front(), u'<');
             EXPECT_EQ(play.screen().line(find(u"OK").row).front(), u'[');
         });
}

TEST_F(Looks, BoxesAndOptionsShowTheirMarks) {
    ControlDesign chosen = control(ControlKind::optionButton, u"opgB", u"Second");
    chosen.group = u"g";
    chosen.selected = true;
    ControlDesign other = control(ControlKind::optionButton, u"opgA", u"First");
    other.group = u"g";
    show({control(ControlKind::checkBox, u"chk", u"Check"), other, chosen},
         [&](TerminalUser &user) {
             EXPECT_TRUE(isOnScreen(u"[ ] Check"));
             EXPECT_TRUE(isOnScreen(u"( ) First"));
             EXPECT_TRUE(isOnScreen(u"(*) Second"));
             user.press(Key::space);
             user.click(u"opgA");
             EXPECT_TRUE(isOnScreen(u"[x] Check"));
             EXPECT_TRUE(isOnScreen(u"(*) First"));
             EXPECT_TRUE(isOnScreen(u"( ) Second"));
         });
}

TEST_F(Looks, ATextBoxKeepsItsCaretInViewAndMarksItsSelection) {
    show(
        {control(ControlKind::textBox, u"txt")},
        [](Window &window) {
            window.get<TextBox>(u"txt").setText(
                u"The first words of a text that does not fit into its box");
        },
        [&](TerminalUser &user) {
            user.press(Key::end);
            EXPECT_TRUE(isOnScreen(u"into its box ]"));
            EXPECT_FALSE(isOnScreen(u"The first"));
            EXPECT_EQ(play.screen().cursor().column, find(u"box ]").column + 3);
            user.press(Key::home);
            EXPECT_TRUE(isOnScreen(u"[The first"));
            EXPECT_EQ(play.screen().cursor(), find(u"The first"));
            user.press(Key::selectRight);
            user.press(Key::selectRight);
            EXPECT_TRUE(has(u"The", reverse));
            EXPECT_FALSE(has(u"e first", reverse));
        });
}

TEST_F(Looks, ATextThatFitsAgainIsShownFromItsBeginning) {
    show(
        {control(ControlKind::textBox, u"txt")},
        [](Window &window) {
            window.get<TextBox>(u"txt").setText(
                u"The first words of a text that does not fit into its box");
        },
        [&](TerminalUser &user) {
            user.press(Key::end);
            EXPECT_FALSE(isOnScreen(u"The first"));
            for (int times = 0; times < 34; ++times) {
                user.press(Key::backspace);
            }
            EXPECT_TRUE(isOnScreen(u"[The first words of a t "));
        });
}

TEST_F(Looks, ARichTextIsWrappedColouredAndBold) {
    const auto fill = [](Window &window) {
        window.get<RichTextBox>(u"rt").setRuns({{u"plain words and ", colour::black},
                                                {u"blue ones", colour::blue},
                                                {u" and then some ", colour::black},
                                                {u"red", colour::red}});
    };
    show({control(ControlKind::richTextBox, u"rt")}, fill, [&](TerminalUser &) {
        EXPECT_EQ(find(u"and then").row, find(u"plain").row);
        EXPECT_EQ(find(u"some red").row, find(u"plain").row + 1);
        EXPECT_EQ(attributesOf(u"plain"), "");
        EXPECT_TRUE(has(u"blue", bold));
        EXPECT_TRUE(has(u"red", bold));
        EXPECT_NE(attributesOf(u"blue"), attributesOf(u"red"));
    });
}

TEST(LooksWithoutColours, TheColoursOfARichTextDifferByAttributes) {
    TerminalPlay play({40, 10}, {"xterm-256color", Characters::unicode, false});
    const auto window = play.toolkit().createWindow(
        {u"frmTest", u"Test", {control(ControlKind::richTextBox, u"rt")}, column({place(u"rt")})});
    window->get<RichTextBox>(u"rt").setRuns(
        {{u"a", colour::black}, {u"b", colour::blue}, {u"c", colour::red}});
    play.whenShown(u"frmTest", [&](TerminalUser &user) {
        const auto at = [&](int column) { return play.screen().at(column, 2); };
        EXPECT_EQ(at(1).text, u"a");
        EXPECT_EQ(at(1).attributes, "");
        EXPECT_EQ(at(2).attributes, bold);
        EXPECT_EQ(at(3).text, u"c");
        EXPECT_NE(at(3).attributes.find(underlined), std::string::npos);
        user.closeByFrame();
    });
    window->showModal();
    EXPECT_EQ(play.pendingScripts(), 0U);
}

TEST_F(Looks, APickerMarksThePartThatKeysChange) {
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    show(
        {date}, [](Window &window) { window.get<DTPicker>(u"dtp").setDate(2004, 5, 14); },
        [&](TerminalUser &user) {
            EXPECT_TRUE(isOnScreen(u"[x] 14/05/2004"));
            EXPECT_TRUE(has(u"14/", reverse));
            user.press(Key::right);
            EXPECT_TRUE(has(u"05/", reverse));
            EXPECT_FALSE(has(u"14/", reverse));
            user.press(Key::space);
            EXPECT_TRUE(isOnScreen(u"[ ]"));
            EXPECT_FALSE(isOnScreen(u"2004"));
        });
}

TEST_F(Looks, ThePickersCursorStandsAtThePartOrInTheEmptyTick) {
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    show(
        {date, control(ControlKind::textBox, u"txt")},
        [](Window &window) { window.get<DTPicker>(u"dtp").setDate(2004, 5, 14); },
        [&](TerminalUser &user) {
            EXPECT_EQ(play.screen().cursor(), find(u"14/"));
            EXPECT_FALSE(has(u"[x] 14", reverse));
            user.press(Key::right);
            EXPECT_EQ(play.screen().cursor(), find(u"05/"));
            EXPECT_FALSE(has(u"/2004", reverse));
            user.press(Key::tab);
            EXPECT_FALSE(has(u"05/", reverse));
            user.press(Key::shiftTab);
            user.press(Key::space);
            EXPECT_EQ(play.screen().line(1), u"[ ]");
            EXPECT_TRUE(has(u"[ ]", reverse));
            EXPECT_TRUE(has(u" ]", reverse));
            EXPECT_EQ(play.screen().cursor(), find(u" ]"));
            user.press(Key::tab);
            EXPECT_FALSE(has(u"[ ]", reverse));
            user.get<DTPicker>(u"dtp").setEnabled(false);
            user.press(Key::home);
            EXPECT_TRUE(has(u"[ ]", dim));
        });
}

TEST_F(Looks, AClickOnAPickerTicksItOrLeadsToAPart) {
    ControlDesign time = control(ControlKind::timePicker, u"dtp");
    time.format = u"HH:mm:ss";
    show(
        {control(ControlKind::textBox, u"txt"), time},
        [](Window &window) { window.get<DTPicker>(u"dtp").setTime(7, 8, 9); },
        [&](TerminalUser &user) {
            const terminal::Point tick = find(u"[x] 07");
            const auto clickAtColumn = [&](int column) { user.clickAt({column, tick.row}); };
            clickAtColumn(tick.column + 7);
            EXPECT_EQ(user.focused(), u"dtp");
            EXPECT_EQ(play.screen().cursor(), find(u"08:"));
            clickAtColumn(tick.column + 6);
            EXPECT_EQ(play.screen().cursor(), find(u"07:"));
            clickAtColumn(tick.column + 11);
            EXPECT_EQ(play.screen().cursor(), find(u"09"));
            clickAtColumn(tick.column + 3);
            EXPECT_EQ(play.screen().cursor(), find(u"07:"));
            clickAtColumn(tick.column + 2);
            EXPECT_TRUE(isOnScreen(u"[ ]"));
            clickAtColumn(tick.column + 3);
            clickAtColumn(tick.column + 7);
            EXPECT_TRUE(isOnScreen(u"[ ]"));
            clickAtColumn(tick.column);
            EXPECT_TRUE(isOnScreen(u"[x] 07:08:09"));
            EXPECT_EQ(play.screen().cursor(), find(u"07:"));
        });
}

TEST_F(Looks, TheCaptionOfABoxToTickWrapsBesideItsMark) {
    show({control(ControlKind::checkBox, u"chk", u"The words of this &caption need two lines"),
          disabled(control(ControlKind::checkBox, u"chkOff", u"Off"))},
         [&](TerminalUser &user) {
             EXPECT_EQ(play.screen().line(1), u"[ ] The words of this caption need two");
             EXPECT_EQ(play.screen().line(2), u"    lines");
             EXPECT_TRUE(has(u"caption", underlined));
             EXPECT_FALSE(has(u"aption", underlined));
             EXPECT_TRUE(has(u"[ ] The", reverse));
             EXPECT_FALSE(has(u"The", reverse));
             EXPECT_EQ(play.screen().cursor(), (terminal::Point{1, 1}));
             EXPECT_FALSE(has(u"[ ] Off", reverse));
             EXPECT_TRUE(has(u"[ ] Off", dim));
             EXPECT_TRUE(has(u"Off", dim));
             user.clickAt({6, 2});
             EXPECT_EQ(play.screen().line(1).substr(0, 3), u"[x]");
         });
}

TEST_F(Looks, TheCaptionOfAButtonStandsInItsMiddleWithTheCursor) {
    show({control(ControlKind::commandButton, u"cmdEven", u"Even"),
          control(ControlKind::commandButton, u"cmdLong",
                  u"A caption that is longer than its button")},
         [&](TerminalUser &user) {
             const std::u16string spaces(16, u' ');
             EXPECT_EQ(play.screen().line(1), u"<" + spaces.substr(1) + u" Even" + spaces + u" >");
             EXPECT_EQ(play.screen().cursor(), find(u"Even"));
             EXPECT_EQ(play.screen().at(5, 1).attributes, reverse);
             EXPECT_EQ(play.screen().at(5, 2).attributes, "");
             EXPECT_EQ(play.screen().line(2), u"[A caption that is longer than its but]");
             user.press(Key::tab);
             EXPECT_EQ(play.screen().cursor(), find(u"A caption"));
             EXPECT_FALSE(has(u"<A", dim));
         });
}

} // namespace
} // namespace kvex::test
