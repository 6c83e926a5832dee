// How each control looks: the text of its cells and their attributes.
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/terminal/TerminalPlay.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvex::test {
namespace {

using terminal::Characters;
using terminal::Point;

// As terminals number them.
constexpr auto bold = "1";
constexpr auto dim = "2";
constexpr auto underlined = "4";
constexpr auto reverse = "7";

class Looks : public testing::Test {
protected:
    /// Shows the controls in a window of 40 x 20 and runs the script in it.
    void show(std::vector<ControlDesign> controls, const std::function<void(Window &)> &fill,
              const TerminalPlay::Script &script) {
        Layout layout = below(controls);
        const auto window = play.toolkit().createWindow(
            {u"frmTest", u"Test", std::move(controls), std::move(layout)});
        fill(*window);
        play.whenShown(u"frmTest", [&script](TerminalUser &user) {
            script(user);
            user.closeByFrame();
        });
        window->showModal();
        EXPECT_EQ(play.problems(), std::vector<std::string>());
    }
    void show(std::vector<ControlDesign> controls, const TerminalPlay::Script &script) {
        show(
            std::move(controls), [](Window &) {}, script);
    }

    /// Where the text stands on the screen; a failure if it does not.
    Point find(std::u16string_view text) {
        for (int row = 0; row < height; ++row) {
            if (const auto at = play.screen().line(row).find(text); at != std::u16string::npos) {
                return {static_cast<int>(at), row};
            }
        }
        ADD_FAILURE() << "the text is not on the screen";
        return {};
    }
    bool isOnScreen(std::u16string_view text) {
        for (int row = 0; row < height; ++row) {
            if (play.screen().line(row).find(text) != std::u16string::npos) {
                return true;
            }
        }
        return false;
    }
    /// The attributes of the first cell of the text, without those of colours.
    std::string attributesOf(std::u16string_view text) {
        const Point at = find(text);
        return play.screen().at(at.column, at.row).attributes;
    }
    bool has(std::u16string_view text, const std::string &attribute) {
        return (";" + attributesOf(text) + ";").find(";" + attribute + ";") != std::string::npos;
    }

    static constexpr int height = 20;
    TerminalPlay play{{40, height}};
};

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

} // namespace
} // namespace kvex::test
