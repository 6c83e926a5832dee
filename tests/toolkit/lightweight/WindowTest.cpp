#include "adapters/lightweight/TextInput.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/toolkit/lightweight/TestWindow.h"

#include <gtest/gtest.h>

#include <functional>

namespace kvex::lightweight {
namespace {

using test::control;
using test::disabled;
using Names = std::set<std::u16string>;

ControlDesign option(std::u16string name) {
    ControlDesign design = control(ControlKind::optionButton, std::move(name));
    design.group = u"opg";
    return design;
}

ControlDesign button(std::u16string name, bool isDefault = false) {
    ControlDesign design = control(ControlKind::commandButton, std::move(name), u"&Button");
    design.isDefault = isDefault;
    return design;
}

TEST(LightWindow, ArrowsWalkThroughButtonsAndCheckBoxes) {
    TestWindow window({button(u"cmd1"), control(ControlKind::checkBox, u"chk"), button(u"cmd2")});
    std::u16string way;
    for (const Key key : {Key::down, Key::right, Key::right, Key::left, Key::up, Key::up}) {
        window.press(key);
        way += window.focused() + u" ";
    }
    EXPECT_EQ(way, u"chk cmd2 cmd1 cmd2 chk cmd1 ");
}

TEST(LightWindow, ArrowsStayWithinAGroupAListAndAText) {
    TestWindow window({option(u"opg0"), option(u"opg1"), control(ControlKind::listView, u"lvw"),
                       control(ControlKind::textBox, u"txt", u"text")});
    std::u16string way;
    for (const auto *name : {u"opg0", u"lvw", u"txt"}) {
        window.element(name)->takeFocus();
        for (const Key key : {Key::right, Key::down, Key::down, Key::left, Key::up}) {
            window.press(key);
        }
        way += window.focused() + u" ";
    }
    EXPECT_EQ(way, u"opg1 lvw txt ");
    EXPECT_TRUE(window.get<OptionButton>(u"opg1").selected());
}

TEST(LightWindow, ArrowsGoRoundAGroupOfOptions) {
    TestWindow window({option(u"0"), disabled(option(u"x")), option(u"1"), option(u"2")});
    std::u16string way;
    for (const Key key :
         {Key::right, Key::down, Key::right, Key::left, Key::up, Key::up, Key::left}) {
        window.press(key);
        way += window.focused();
        EXPECT_TRUE(window.get<OptionButton>(window.focused()).selected());
    }
    EXPECT_EQ(way, u"1202102");
}

TEST(LightWindow, ABlankSelectsAnOption) {
    TestWindow window({option(u"opg0"), option(u"opg1")});
    int clicks = 0;
    window.get<OptionButton>(u"opg0").onClick = [&] { ++clicks; };
    window.press(Key::space);
    EXPECT_TRUE(window.get<OptionButton>(u"opg0").selected());
    EXPECT_TRUE(window.type(u" "));
    EXPECT_EQ(clicks, 2);
}

TEST(LightWindow, WithoutAControlForTheFocusTakesNoKeys) {
    TestWindow window({control(ControlKind::label, u"lbl", u"&Label")});
    window.press({Key::tab, Key::shiftTab, Key::space, Key::enter, Key::escape});
    EXPECT_FALSE(window.type(u"x"));
    EXPECT_FALSE(window.type(u" "));
    EXPECT_FALSE(window.paste(u"x"));
    EXPECT_FALSE(window.pressAccessKey(u'l'));
    EXPECT_EQ(window.buttonOfEnter(), nullptr);
    EXPECT_EQ(window.elementToExplain(), nullptr);
    EXPECT_EQ(window.focused(), u"");
}

TEST(LightWindow, ControlWithUpAndDownIsUpAndDownOutsideLists) {
    TestWindow window({control(ControlKind::richTextBox, u"rt"), button(u"cmd")});
    window.get<RichTextBox>(u"rt").setText(u"one\r\ntwo");
    window.press(Key::goUp);
    EXPECT_EQ(window.the<TextInput>(u"rt").caret(), 3U);
    window.press({Key::goDown, Key::tab, Key::goDown});
    EXPECT_EQ(window.focused(), u"rt");
    EXPECT_EQ(window.the<TextInput>(u"rt").caret(), 8U);
}

TEST(LightWindow, EnterPressesTheFocusedButtonOrElseTheDefaultOne) {
    TestWindow window(
        {control(ControlKind::textBox, u"txt"), button(u"cmd"), button(u"cmdOK", true)});
    const auto name = [&] {
        const Element *pressed = window.buttonOfEnter();
        return pressed == nullptr ? std::u16string() : pressed->design().name;
    };
    EXPECT_EQ(name(), u"cmdOK");
    window.press(Key::tab);
    EXPECT_EQ(name(), u"cmd");
    window.press(Key::shiftTab);
    window.get<CommandButton>(u"cmdOK").setEnabled(false);
    EXPECT_EQ(name(), u"");
}

TEST(LightWindow, EveryVisibleChangeIsTold) {
    TestWindow window({button(u"cmd"), control(ControlKind::textBox, u"txt", u"text"),
                       control(ControlKind::richTextBox, u"rt"),
                       control(ControlKind::checkBox, u"chk"), option(u"opg0"), option(u"opg1"),
                       control(ControlKind::listView, u"lvw"), control(ControlKind::label, u"lbl"),
                       control(ControlKind::datePicker, u"dtp")});
    window.get<ListView>(u"lvw").addRow(u"row");
    window.get<ListView>(u"lvw").addRow(u"row");
    const auto focus = [&](const char16_t *name) { window.element(name)->takeFocus(); };
    const auto list = [&]() -> ListView & { return window.get<ListView>(u"lvw"); };
    using Change = std::function<void()>;
    for (const auto &[names, change] : std::vector<std::pair<Names, Change>>{
             {{u"cmd"}, [&] { window.get<CommandButton>(u"cmd").setCaption(u"New"); }},
             {{u"lbl"}, [&] { window.get<Label>(u"lbl").setCaption(u"New"); }},
             {{u"lbl"}, [&] { window.get<Label>(u"lbl").setVisible(false); }},
             {{u"chk"}, [&] { window.get<CheckBox>(u"chk").setEnabled(false); }},
             {{u"chk"}, [&] { window.get<CheckBox>(u"chk").setEnabled(true); }},
             {{u"chk"}, [&] { window.get<CheckBox>(u"chk").setValue(1); }},
             {{u"cmd", u"chk"}, [&] { focus(u"chk"); }},
             {{u"chk"}, [&] { window.press(Key::space); }},
             {{u"opg1"}, [&] { window.get<OptionButton>(u"opg1").select(); }},
             {{u"opg0", u"opg1"}, [&] { window.get<OptionButton>(u"opg0").select(); }},
             {{}, [&] { window.get<OptionButton>(u"opg0").select(); }},
             {{u"chk", u"txt"}, [&] { focus(u"txt"); }},
             {{u"txt"}, [&] { window.press(Key::left); }},
             {{u"txt"}, [&] { window.press(Key::selectHome); }},
             {{u"txt"}, [&] { window.type(u"x"); }},
             {{u"txt"}, [&] { window.get<TextBox>(u"txt").setText(u"new"); }},
             {{u"rt"},
              [&] {
                  window.get<RichTextBox>(u"rt").setRuns({{u"new", 0xFF}});
              }},
             {{u"lvw"}, [&] { list().addRow(u"row"); }},
             {{u"lvw"}, [&] { list().addColumn(u"column", 1); }},
             {{u"lvw"}, [&] { list().setText(1, u"new"); }},
             {{u"lvw"}, [&] { list().setChecked(1, true); }},
             {{u"lvw"}, [&] { list().setRowColour(1, RowColour::greyText); }},
             {{u"lvw"}, [&] { list().setColumnIcon(1, 1); }},
             {{u"lvw"}, [&] { list().select(1); }},
             {{u"lvw"}, [&] { list().setSorted(true); }},
             {{u"lvw"}, [&] { list().removeRow(1); }},
             {{u"txt", u"lvw"}, [&] { focus(u"lvw"); }},
             {{u"lvw"}, [&] { window.press(Key::end); }},
             {{u"dtp"}, [&] { window.get<DTPicker>(u"dtp").setDate(2004, 5, 14); }},
             {{u"dtp", u"lvw"}, [&] { focus(u"dtp"); }},
             {{u"dtp"}, [&] { window.press(Key::right); }},
             {{u"dtp"}, [&] { window.press(Key::up); }},
             {{u"dtp"}, [&] { window.type(u"1"); }},
             {{u"dtp"}, [&] { window.type(u"/"); }},
             {{u"dtp"}, [&] { window.press(Key::end); }},
             {{u"dtp"}, [&] { window.type(u"2"); }},
             {{u"dtp"}, [&] { window.press(Key::backspace); }},
             {{u"dtp"}, [&] { window.type(u"2"); }},
             {{u"dtp"}, [&] { window.press(Key::enter); }},
         }) {
        static_cast<void>(window.takeChanged());
        change();
        EXPECT_EQ(window.takeChanged(), names);
    }
}

TEST(LightWindow, TheFocusOnAnotherButtonChangesTheDefaultOneToo) {
    TestWindow window(
        {control(ControlKind::checkBox, u"chk"), button(u"cmd"), button(u"cmdOK", true)});
    static_cast<void>(window.takeChanged());
    window.press(Key::tab);
    EXPECT_EQ(window.takeChanged(), (Names{u"chk", u"cmd", u"cmdOK"}));
    window.press(Key::shiftTab);
    EXPECT_EQ(window.takeChanged(), (Names{u"chk", u"cmd", u"cmdOK"}));
}

std::u16string statusOf(const TestWindow &window) {
    const Element *element = window.elementToExplain();
    return element != nullptr ? element->namedStatus() : std::u16string();
}

TEST(LightWindow, SaysWhatTheDisabledDefaultButtonWaitsForFirst) {
    ControlDesign clear = disabled(button(u"cmdClear"));
    clear.caption = u"Clear";
    clear.disabledHint = u"Add a word first";
    ControlDesign add = disabled(button(u"cmdAdd", true));
    add.caption = u"&Add";
    add.disabledHint = u"Type a word first";
    TestWindow window({control(ControlKind::textBox, u"txt"), clear, add});
    EXPECT_EQ(statusOf(window), u"Add: Type a word first");
    window.get<CommandButton>(u"cmdAdd").setEnabled(true);
    EXPECT_EQ(statusOf(window), u"Clear: Add a word first");
}

TEST(LightWindow, SaysWhatTheNextDisabledControlWaitsFor) {
    ControlDesign add = disabled(button(u"cmdAdd"));
    add.caption = u"&Add";
    add.disabledHint = u"Type a word first";
    ControlDesign ok = add;
    ok.name = u"cmdOK";
    ok.caption = u"OK";
    ok.disabledHint = u"Add a word first";
    TestWindow window({control(ControlKind::textBox, u"txt"), add, button(u"cmd"), ok});
    EXPECT_EQ(window.element(u"cmdOK")->status(), u"Add a word first");
    EXPECT_EQ(window.element(u"cmd")->namedStatus(), u"");
    EXPECT_EQ(statusOf(window), u"Add: Type a word first");
    window.press(Key::tab);
    EXPECT_EQ(statusOf(window), u"OK: Add a word first");
    window.get<CommandButton>(u"cmdOK").setEnabled(true);
    EXPECT_EQ(statusOf(window), u"Add: Type a word first");
    window.get<CommandButton>(u"cmdAdd").setVisible(false);
    EXPECT_EQ(statusOf(window), u"");
}

TEST(LightWindow, SaysNothingOfADisabledControlThatWaitsForNothing) {
    TestWindow window({control(ControlKind::textBox, u"txt"), disabled(button(u"cmd"))});
    EXPECT_EQ(window.elementToExplain(), nullptr);
}

TEST(LightWindow, TheAccessKeyOfAHiddenLabelLeadsNowhere) {
    ControlDesign label = test::hidden(control(ControlKind::label, u"lbl", u"&Label"));
    label.buddy = u"txt";
    TestWindow window({button(u"cmd"), label, control(ControlKind::textBox, u"txt")});
    EXPECT_FALSE(window.pressAccessKey(u'l'));
    EXPECT_EQ(window.focused(), u"cmd");
}

TEST(LightWindow, OnlyAUsableControlThatTakesTheFocusCanGetIt) {
    TestWindow window({button(u"cmd"), control(ControlKind::label, u"lbl", u"Label"),
                       disabled(button(u"cmdOff")), test::hidden(button(u"cmdHidden"))});
    for (const auto *name : {u"lbl", u"cmdOff", u"cmdHidden"}) {
        EXPECT_THROW(window.element(name)->takeFocus(), Error);
        EXPECT_EQ(window.focused(), u"cmd");
    }
}

TEST(LightWindow, AControlThatGetsTheFocusTwiceStillGivesItBack) {
    TestWindow window({button(u"cmd1"), button(u"cmd2"), button(u"cmd3")});
    window.element(u"cmd2")->takeFocus();
    window.element(u"cmd2")->takeFocus();
    window.get<CommandButton>(u"cmd2").setEnabled(false);
    EXPECT_EQ(window.focused(), u"cmd1");
}

TEST(LightWindow, TheAccessKeyOfALabelWithoutABuddyLeadsNowhere) {
    TestWindow window(
        {control(ControlKind::textBox, u"txt"), control(ControlKind::label, u"lbl", u"&Label")});
    EXPECT_FALSE(window.pressAccessKey(u'l'));
    EXPECT_EQ(window.focused(), u"txt");
}

TEST(LightWindow, TheAccessKeyOfALabelOnlyFocusesItsBuddy) {
    ControlDesign label = control(ControlKind::label, u"lbl", u"&Label");
    label.buddy = u"chk";
    TestWindow window(
        {control(ControlKind::textBox, u"txt"), label, control(ControlKind::checkBox, u"chk")});
    EXPECT_TRUE(window.pressAccessKey(u'l'));
    EXPECT_EQ(window.focused(), u"chk");
    EXPECT_EQ(window.get<CheckBox>(u"chk").value(), 0);
}

TEST(LightWindow, AnAccessKeyOfSeveralControlsGoesRoundThem) {
    TestWindow window({button(u"cmd1"), button(u"cmd2"), button(u"cmd3")});
    std::u16string way;
    for (int times = 0; times < 3; ++times) {
        EXPECT_TRUE(window.pressAccessKey(u'b'));
        way += window.focused() + u" ";
    }
    for (const bool enabled : {false, true}) {
        for (const auto *name : {u"cmd3", u"cmd2", u"cmd1"}) {
            window.get<CommandButton>(name).setEnabled(enabled);
        }
    }
    EXPECT_EQ(window.focused(), u"");
    window.pressAccessKey(u'b');
    EXPECT_EQ(way + window.focused(), u"cmd2 cmd3 cmd1 cmd1");
}

TEST(LightWindow, TakesNoTextWhereNoneIsTyped) {
    TestWindow window({button(u"cmd"), control(ControlKind::listView, u"lvw")});
    EXPECT_FALSE(window.type(u"x"));
    EXPECT_FALSE(window.paste(u"x"));
    window.element(u"lvw")->takeFocus();
    EXPECT_FALSE(window.paste(u"x"));
    EXPECT_EQ(window.clipboard().text(), u"");
}

} // namespace
} // namespace kvex::lightweight
