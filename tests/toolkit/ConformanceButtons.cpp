#include "tests/toolkit/Conformance.h"

#include "platform/Error.h"

namespace kvex::test {
namespace {

constexpr auto button = ControlKind::commandButton;

ControlDesign defaultButton() {
    ControlDesign design = control(button, u"cmdOK", u"&OK");
    design.isDefault = true;
    return design;
}

ControlDesign cancelButton() {
    ControlDesign design = control(button, u"cmdCancel", u"&Cancel");
    design.isCancel = true;
    return design;
}

ControlDesign option(const std::u16string &name, std::u16string group, bool selected = false) {
    ControlDesign design = control(ControlKind::optionButton, name, name);
    design.group = std::move(group);
    design.selected = selected;
    return design;
}

/// Each pressed button appends its name to `pressed`.
void watch(Window &window, const std::vector<std::u16string> &names, std::u16string &pressed) {
    for (const auto &name : names) {
        window.get<CommandButton>(name).onClick = [&pressed, name] { pressed += name + u";"; };
    }
}

TEST_P(ToolkitConformance, AButtonIsPressedByMouseSpaceEnterAndAccessKey) {
    const auto shown = window({control(ControlKind::textBox, u"txt"),
                               control(button, u"cmdNew", u"&New"), control(button, u"cmdOther")});
    std::u16string pressed;
    watch(*shown, {u"cmdNew", u"cmdOther"}, pressed);
    show(*shown, [&](Hands &user) {
        user.click(u"cmdNew");
        EXPECT_EQ(pressed, u"cmdNew;");
        user.press(Key::space);
        EXPECT_EQ(pressed, u"cmdNew;cmdNew;");
        user.press(Key::enter);
        EXPECT_EQ(pressed, u"cmdNew;cmdNew;cmdNew;");
        user.click(u"txt");
        user.pressAccessKey(u'n');
        EXPECT_EQ(pressed, u"cmdNew;cmdNew;cmdNew;cmdNew;");
    });
}

TEST_P(ToolkitConformance, ADisabledButtonIsNotPressed) {
    const auto shown =
        window({control(ControlKind::textBox, u"txt"), control(button, u"cmd", u"&New")});
    std::u16string pressed;
    watch(*shown, {u"cmd"}, pressed);
    show(*shown, [&](Hands &user) {
        shown->get<CommandButton>(u"cmd").setEnabled(false);
        user.tryToClick(u"cmd");
        EXPECT_EQ(pressed, u"");
        shown->get<CommandButton>(u"cmd").setEnabled(true);
        user.click(u"cmd");
        EXPECT_EQ(pressed, u"cmd;");
    });
}

TEST_P(ToolkitConformance, AButtonsCaptionIsTheDesignsUntilSetAndBringsItsAccessKey) {
    const auto shown =
        window({control(ControlKind::textBox, u"txt"), control(button, u"cmd", u"&New && old")});
    auto &tested = shown->get<CommandButton>(u"cmd");
    std::u16string pressed;
    watch(*shown, {u"cmd"}, pressed);
    EXPECT_EQ(tested.caption(), u"&New && old");
    show(*shown, [&](Hands &user) {
        tested.setCaption(u"&Later");
        EXPECT_EQ(tested.caption(), u"&Later");
        user.pressAccessKey(u'l');
        EXPECT_EQ(pressed, u"cmd;");
    });
}

TEST_P(ToolkitConformance, EnterPressesTheDefaultButton) {
    const auto shown =
        window({control(ControlKind::textBox, u"txt"), control(ControlKind::listView, u"lvw"),
                control(ControlKind::checkBox, u"chk", u"Check"), defaultButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdOK"}, pressed);
    show(*shown, [&](Hands &user) {
        for (int times = 0; times < 3; ++times) {
            user.press(Key::enter);
            user.press(Key::tab);
        }
    });
    EXPECT_EQ(pressed, u"cmdOK;cmdOK;cmdOK;");
}

TEST_P(ToolkitConformance, EnterPressesTheButtonThatHasTheFocusRatherThanTheDefault) {
    const auto shown = window({control(button, u"cmdA", u"A"), defaultButton(), cancelButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdA", u"cmdOK", u"cmdCancel"}, pressed);
    show(*shown, [&](Hands &user) { user.press(Key::enter); });
    EXPECT_EQ(pressed, u"cmdA;");
}

TEST_P(ToolkitConformance, EnterDoesNothingWhileTheDefaultButtonIsDisabledOrHidden) {
    const auto shown = window({control(ControlKind::textBox, u"txt"), defaultButton(),
                               control(button, u"cmdA", u"A"), cancelButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdA", u"cmdOK", u"cmdCancel"}, pressed);
    show(*shown, [&](Hands &user) {
        auto &tested = shown->get<CommandButton>(u"cmdOK");
        tested.setEnabled(false);
        user.press(Key::enter);
        tested.setEnabled(true);
        tested.setVisible(false);
        user.press(Key::enter);
        EXPECT_EQ(pressed, u"");
        EXPECT_TRUE(user.isOpen());
        tested.setVisible(true);
        user.press(Key::enter);
        EXPECT_EQ(pressed, u"cmdOK;");
    });
}

TEST_P(ToolkitConformance, EnterPressesNoButtonInAWindowWithoutADefaultButton) {
    const auto shown = window(
        {control(ControlKind::textBox, u"txt"), control(button, u"cmdA", u"A"), cancelButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdA", u"cmdCancel"}, pressed);
    show(*shown, [&](Hands &user) {
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
    });
    EXPECT_EQ(pressed, u"");
}

TEST_P(ToolkitConformance, EscapePressesTheCancelButton) {
    const auto shown =
        window({control(ControlKind::textBox, u"txt"), control(ControlKind::richTextBox, u"rt"),
                cancelButton(), defaultButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdOK", u"cmdCancel"}, pressed);
    show(*shown, [&](Hands &user) {
        user.press(Key::escape);
        EXPECT_EQ(pressed, u"cmdCancel;");
        EXPECT_TRUE(user.isOpen());
        user.press(Key::tab);
        user.press(Key::escape);
        EXPECT_EQ(pressed, u"cmdCancel;cmdCancel;");
        shown->get<CommandButton>(u"cmdCancel").setEnabled(false);
        user.press(Key::escape);
        EXPECT_EQ(pressed, u"cmdCancel;cmdCancel;");
        EXPECT_TRUE(user.isOpen());
    });
}

TEST_P(ToolkitConformance, EscapeDoesNothingInAWindowWithoutACancelButton) {
    const auto shown = window({control(ControlKind::textBox, u"txt"), defaultButton()});
    std::u16string pressed;
    watch(*shown, {u"cmdOK"}, pressed);
    show(*shown, [&](Hands &user) {
        user.press(Key::escape);
        EXPECT_TRUE(user.isOpen());
    });
    EXPECT_EQ(pressed, u"");
}

TEST_P(ToolkitConformance, ACheckBoxIsTickedByTheUser) {
    ControlDesign ticked = control(ControlKind::checkBox, u"chkOn", u"&On");
    ticked.selected = true;
    const auto shown = window({control(ControlKind::checkBox, u"chk", u"&Check"), ticked});
    auto &tested = shown->get<CheckBox>(u"chk");
    std::u16string values;
    tested.onClick = [&] { values += tested.value() == 1 ? u"1" : u"0"; };
    EXPECT_EQ(tested.value(), 0);
    EXPECT_EQ(shown->get<CheckBox>(u"chkOn").value(), 1);
    show(*shown, [&](Hands &user) {
        user.click(u"chk");
        user.press(Key::space);
        user.pressAccessKey(u'c');
    });
    EXPECT_EQ(values, u"101");
    EXPECT_EQ(tested.value(), 1);
}

TEST_P(ToolkitConformance, ACheckBoxSetByCodeRunsNoHandler) {
    const auto shown = window({control(ControlKind::checkBox, u"chk", u"Check")});
    auto &tested = shown->get<CheckBox>(u"chk");
    int clicks = 0;
    tested.onClick = [&] { ++clicks; };
    tested.setValue(1);
    EXPECT_EQ(tested.value(), 1);
    show(*shown, [&](Hands &) {
        tested.setValue(0);
        EXPECT_EQ(tested.value(), 0);
    });
    EXPECT_EQ(clicks, 0);
}

TEST_P(ToolkitConformance, ACheckBoxTakesNoValueButZeroAndOne) {
    const auto shown = window({control(ControlKind::checkBox, u"chk", u"Check")});
    auto &tested = shown->get<CheckBox>(u"chk");
    tested.setValue(1);
    for (const std::int16_t value : {std::int16_t{-1}, std::int16_t{2}, std::int16_t{32767}}) {
        EXPECT_EQ(errorNumber([&] { tested.setValue(value); }), error_number::invalidPropertyValue);
        EXPECT_EQ(tested.value(), 1);
    }
}

TEST_P(ToolkitConformance, AnOptionSelectedByTheUserDeselectsTheOthersOfItsGroupOnly) {
    const auto shown = window({option(u"opgA0", u"opgA"), option(u"opgA1", u"opgA", true),
                               option(u"opgB0", u"opgB", true), option(u"opgB1", u"opgB")});
    const auto state = [&] {
        std::u16string result;
        for (const auto *name : {u"opgA0", u"opgA1", u"opgB0", u"opgB1"}) {
            result += shown->get<OptionButton>(name).selected() ? u"1" : u"0";
        }
        return result;
    };
    std::u16string clicked;
    for (const auto *name : {u"opgA0", u"opgA1", u"opgB0", u"opgB1"}) {
        shown->get<OptionButton>(name).onClick = [&clicked, name] { clicked += name; };
    }
    EXPECT_EQ(state(), u"0110");
    show(*shown, [&](Hands &user) {
        user.click(u"opgA0");
        EXPECT_EQ(state(), u"1010");
        EXPECT_EQ(clicked, u"opgA0");
        user.click(u"opgB1");
        EXPECT_EQ(state(), u"1001");
        EXPECT_EQ(clicked, u"opgA0opgB1");
    });
}

TEST_P(ToolkitConformance, AnOptionSelectedAlreadyStillRunsItsHandlerWhenClicked) {
    const auto shown = window({option(u"opgA0", u"opgA"), option(u"opgA1", u"opgA", true)});
    int clicks = 0;
    shown->get<OptionButton>(u"opgA1").onClick = [&] { ++clicks; };
    show(*shown, [&](Hands &user) { user.click(u"opgA1"); });
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(shown->get<OptionButton>(u"opgA1").selected());
}

TEST_P(ToolkitConformance, AnOptionSelectedByCodeRunsNoHandler) {
    const auto shown = window({option(u"opgA0", u"opgA"), option(u"opgA1", u"opgA", true)});
    int clicks = 0;
    for (const auto *name : {u"opgA0", u"opgA1"}) {
        shown->get<OptionButton>(name).onClick = [&] { ++clicks; };
    }
    shown->get<OptionButton>(u"opgA0").select();
    EXPECT_TRUE(shown->get<OptionButton>(u"opgA0").selected());
    EXPECT_FALSE(shown->get<OptionButton>(u"opgA1").selected());
    show(*shown, [&](Hands &) {
        shown->get<OptionButton>(u"opgA1").select();
        EXPECT_FALSE(shown->get<OptionButton>(u"opgA0").selected());
    });
    EXPECT_EQ(clicks, 0);
}

TEST_P(ToolkitConformance, ADisabledOptionCanBeSelectedByCodeOnly) {
    const auto shown = window({control(ControlKind::textBox, u"txt"), option(u"opg0", u"opg"),
                               disabled(option(u"opg1", u"opg", true))});
    shown->get<OptionButton>(u"opg0").setEnabled(false);
    show(*shown, [&](Hands &user) {
        user.tryToClick(u"opg0");
        EXPECT_TRUE(shown->get<OptionButton>(u"opg1").selected());
        shown->get<OptionButton>(u"opg0").select();
        EXPECT_FALSE(shown->get<OptionButton>(u"opg1").selected());
    });
}

TEST_P(ToolkitConformance, AnOptionsCaptionIsTheDesignsUntilSet) {
    const auto shown = window({option(u"opg0", u"opg")});
    EXPECT_EQ(shown->get<OptionButton>(u"opg0").caption(), u"opg0");
    shown->get<OptionButton>(u"opg0").setCaption(u"Message is from");
    EXPECT_EQ(shown->get<OptionButton>(u"opg0").caption(), u"Message is from");
}

} // namespace
} // namespace kvex::test
