#include "tests/toolkit/Conformance.h"

#include "platform/Error.h"

#include <set>

namespace kvex::test {
namespace {

constexpr auto button = ControlKind::commandButton;
constexpr auto text = ControlKind::textBox;

std::vector<ControlDesign> threeTexts() {
    return {control(text, u"txtA"), control(text, u"txtB"), control(text, u"txtC")};
}

TEST_P(ToolkitConformance, EnabledAndVisibleAreAsDesignedAndAsSet) {
    const auto shown = window({control(text, u"txt"), disabled(control(button, u"cmdOff")),
                               hidden(control(button, u"cmdHidden"))});
    const auto check = [&] {
        EXPECT_TRUE(shown->get<Control>(u"txt").enabled());
        EXPECT_TRUE(shown->get<Control>(u"txt").visible());
        EXPECT_FALSE(shown->get<Control>(u"cmdOff").enabled());
        EXPECT_TRUE(shown->get<Control>(u"cmdOff").visible());
        EXPECT_TRUE(shown->get<Control>(u"cmdHidden").enabled());
        EXPECT_FALSE(shown->get<Control>(u"cmdHidden").visible());
    };
    check();
    show(*shown, [&](Hands &) { check(); });
    check();
    shown->get<Control>(u"cmdOff").setEnabled(true);
    shown->get<Control>(u"cmdHidden").setVisible(true);
    EXPECT_TRUE(shown->get<Control>(u"cmdOff").enabled());
    EXPECT_TRUE(shown->get<Control>(u"cmdHidden").visible());
}

TEST_P(ToolkitConformance, FocusStartsAtTheFirstControlThatCanTakeIt) {
    const auto shown =
        window({control(ControlKind::label, u"lbl", u"Label"), control(ControlKind::frame, u"fra"),
                disabled(control(text, u"txtOff")), hidden(control(text, u"txtGone")),
                control(text, u"txtA"), control(text, u"txtB")});
    show(*shown, [](Hands &user) { EXPECT_EQ(user.focused(), u"txtA"); });
}

TEST_P(ToolkitConformance, SetFocusBeforeTheWindowIsShownDecidesWhereItStarts) {
    const auto shown = window(threeTexts());
    shown->get<TextBox>(u"txtB").setFocus();
    show(*shown, [](Hands &user) { EXPECT_EQ(user.focused(), u"txtB"); });
}

TEST_P(ToolkitConformance, SetFocusMovesTheFocus) {
    const auto shown = window(threeTexts());
    show(*shown, [&](Hands &user) {
        shown->get<TextBox>(u"txtC").setFocus();
        EXPECT_EQ(user.focused(), u"txtC");
        user.type(u"x");
        EXPECT_EQ(shown->get<TextBox>(u"txtC").text(), u"x");
    });
}

TEST_P(ToolkitConformance, SetFocusFailsOnAControlThatIsDisabledOrNotVisible) {
    const auto shown = window({control(text, u"txt"), disabled(control(text, u"txtOff")),
                               hidden(control(text, u"txtGone"))});
    const auto check = [&] {
        EXPECT_EQ(errorNumber([&] { shown->get<TextBox>(u"txtOff").setFocus(); }),
                  error_number::invalidCall);
        EXPECT_EQ(errorNumber([&] { shown->get<TextBox>(u"txtGone").setFocus(); }),
                  error_number::invalidCall);
    };
    check();
    show(*shown, [&](Hands &user) {
        check();
        EXPECT_EQ(user.focused(), u"txt");
    });
}

TEST_P(ToolkitConformance, AControlThatIsDisabledPassesTheFocusOn) {
    const auto shown = window(threeTexts());
    show(*shown, [&](Hands &user) {
        shown->get<TextBox>(u"txtA").setEnabled(false);
        EXPECT_EQ(user.focused(), u"txtB");
        shown->get<TextBox>(u"txtC").setEnabled(false);
        EXPECT_EQ(user.focused(), u"txtB");
    });
}

TEST_P(ToolkitConformance, AControlThatIsDisabledOrHiddenPassesTheFocusBackWhereItCameFrom) {
    std::vector<ControlDesign> designs = threeTexts();
    designs.push_back(control(button, u"cmd", u"&Button"));
    designs.push_back(control(text, u"txtD"));
    const auto shown = window(std::move(designs));
    auto &cmd = shown->get<CommandButton>(u"cmd");
    const auto turnOn = [&](bool on) {
        cmd.setEnabled(on);
        cmd.setVisible(on);
    };
    show(*shown, [&](Hands &user) {
        shown->get<TextBox>(u"txtB").setFocus();
        cmd.onClick = [&] { cmd.setEnabled(false); };
        user.click(u"cmd");
        EXPECT_EQ(user.focused(), u"txtB");
        turnOn(true);
        user.pressAccessKey(u'b');
        EXPECT_EQ(user.focused(), u"txtB");
        turnOn(true);
        cmd.onClick = [&] { cmd.setVisible(false); };
        user.press(Key::tab);
        user.press(Key::tab);
        user.press(Key::space);
        EXPECT_EQ(user.focused(), u"txtC");
        turnOn(true);
        user.click(u"cmd");
        EXPECT_EQ(user.focused(), u"txtC");
        turnOn(true);
        cmd.onClick = [&] {
            shown->get<TextBox>(u"txtC").setEnabled(false);
            cmd.setEnabled(false);
        };
        user.click(u"cmd");
        EXPECT_EQ(user.focused(), u"txtD");
    });
}

TEST_P(ToolkitConformance, AControlThatIsHiddenPassesTheFocusOn) {
    const auto shown = window(threeTexts());
    show(*shown, [&](Hands &user) {
        shown->get<TextBox>(u"txtC").setFocus();
        shown->get<TextBox>(u"txtC").setVisible(false);
        EXPECT_NE(user.focused(), u"txtC");
        EXPECT_NE(user.focused(), u"");
    });
}

TEST_P(ToolkitConformance, TabGoesThroughTheControlsInTheDesignsOrder) {
    const auto shown = window(
        {control(text, u"txt"), control(ControlKind::listView, u"lvw"),
         control(ControlKind::label, u"lbl", u"Label"), disabled(control(button, u"cmdOff")),
         control(ControlKind::checkBox, u"chk", u"Check"), hidden(control(button, u"cmdGone")),
         control(ControlKind::richTextBox, u"rt"), control(button, u"cmd", u"Button")});
    show(*shown, [](Hands &user) {
        for (const auto *name : {u"txt", u"lvw", u"chk", u"rt", u"cmd", u"txt"}) {
            EXPECT_EQ(user.focused(), name);
            user.press(Key::tab);
        }
        EXPECT_EQ(user.focused(), u"lvw");
        for (const auto *name : {u"lvw", u"txt", u"cmd", u"rt"}) {
            EXPECT_EQ(user.focused(), name);
            user.press(Key::shiftTab);
        }
    });
}

TEST_P(ToolkitConformance, AClickGivesTheFocus) {
    const auto shown = window({control(text, u"txt"), control(button, u"cmd", u"Button"),
                               control(ControlKind::checkBox, u"chk", u"Check")});
    show(*shown, [](Hands &user) {
        user.click(u"cmd");
        EXPECT_EQ(user.focused(), u"cmd");
        user.click(u"chk");
        EXPECT_EQ(user.focused(), u"chk");
        user.click(u"txt");
        EXPECT_EQ(user.focused(), u"txt");
    });
}

TEST_P(ToolkitConformance, ALabelsAccessKeyGoesToItsBuddy) {
    ControlDesign label = control(ControlKind::label, u"lbl", u"&Words");
    label.buddy = u"txtB";
    const auto shown = window({control(text, u"txtA"), label, control(text, u"txtB")});
    show(*shown, [&](Hands &user) {
        user.pressAccessKey(u'w');
        EXPECT_EQ(user.focused(), u"txtB");
        user.type(u"x");
        EXPECT_EQ(shown->get<TextBox>(u"txtB").text(), u"x");
    });
}

TEST_P(ToolkitConformance, AnAccessKeyOfSeveralControlsGoesRoundAndPressesNone) {
    ControlDesign label = control(ControlKind::label, u"lbl", u"&Accounts");
    label.buddy = u"txt";
    const auto shown = window({control(text, u"txt"), control(text, u"txtOther"),
                               control(button, u"cmd", u"&Add"), label});
    int clicks = 0;
    shown->get<CommandButton>(u"cmd").onClick = [&] { ++clicks; };
    show(*shown, [](Hands &user) {
        std::set<std::u16string> reached;
        for (int round = 0; round < 2; ++round) {
            user.pressAccessKey(u'a');
            reached.insert(user.focused());
        }
        EXPECT_EQ(reached, (std::set<std::u16string>{u"cmd", u"txt"}));
    });
    EXPECT_EQ(clicks, 0);
}

TEST_P(ToolkitConformance, OfOptionsTabReachesTheSelectedOneAndArrowsTheOthers) {
    const auto option = [](const std::u16string &name, bool selected) {
        ControlDesign design = control(ControlKind::optionButton, name, name);
        design.group = u"opg";
        design.selected = selected;
        return design;
    };
    const auto shown = window({option(u"opg0", false), option(u"opg1", true), control(text, u"txt"),
                               control(button, u"cmd", u"Button")});
    std::u16string clicked;
    for (const auto *name : {u"opg0", u"opg1"}) {
        shown->get<OptionButton>(name).onClick = [&clicked, name] { clicked += name; };
    }
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(user.focused(), u"opg1");
        user.press(Key::up);
        EXPECT_EQ(user.focused(), u"opg0");
        EXPECT_TRUE(shown->get<OptionButton>(u"opg0").selected());
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"txt");
        shown->get<OptionButton>(u"opg1").select();
        user.press(Key::shiftTab);
        EXPECT_EQ(user.focused(), u"opg1");
    });
    EXPECT_EQ(clicked, u"opg0");
}

TEST_P(ToolkitConformance, ALabelsCaptionIsTheDesignsUntilSet) {
    const auto shown = window({control(ControlKind::label, u"lbl", u"&Words && more")});
    EXPECT_EQ(shown->get<Label>(u"lbl").caption(), u"&Words && more");
    shown->get<Label>(u"lbl").setCaption(u"<i>Other</i>");
    EXPECT_EQ(shown->get<Label>(u"lbl").caption(), u"<i>Other</i>");
}

} // namespace
} // namespace kvex::test
