#include "tests/toolkit/HeadlessTest.h"

#include "platform/Error.h"

namespace kvex::headless {
namespace {

using test::control;
using test::disabled;
using test::hidden;
using HeadlessUser = HeadlessTest;

TEST_F(HeadlessUser, ActionsThatNobodyCouldTakeAreProblemsAndChangeNothing) {
    struct Case {
        std::string problem;
        std::function<void(User &)> action;
    };
    const std::vector<Case> cases{
        {"cmdOff is disabled", [](User &user) { user.click(u"cmdOff"); }},
        {"cmdGone is not visible", [](User &user) { user.click(u"cmdGone"); }},
        {"cmdNone is no such control", [](User &user) { user.click(u"cmdNone"); }},
        {"cmdOff is disabled", [](User &user) { user.focusOn(u"cmdOff"); }},
        {"lbl takes no focus", [](User &user) { user.focusOn(u"lbl"); }},
        {"cmdOff is no such control", [](User &user) { user.clickRow(u"cmdOff", 1); }},
        {"lvw has no row 2", [](User &user) { user.clickRow(u"lvw", 2); }},
        {"lvw has no row 0", [](User &user) { user.doubleClickRow(u"lvw", 0); }},
        {"lvw has no check boxes", [](User &user) { user.tickRow(u"lvw", 1); }},
        {"dtp takes no such value", [](User &user) { user.pickDate(u"dtp", 2003, 2, 29); }},
        {"dtp takes no such value", [](User &user) { user.pickTime(u"dtp", 1, 2, 3); }},
        {"no control has the access key x", [](User &user) { user.pressAccessKey(u'x'); }},
        {"no control has the access key o", [](User &user) { user.pressAccessKey(u'o'); }},
        {"dtp takes no text",
         [](User &user) {
             user.focusOn(u"dtp");
             user.type(u"a");
         }},
    };
    for (const Case &impossible : cases) {
        HeadlessToolkit toolkit;
        const auto shown = toolkit.createWindow(
            {u"frmTest",
             u"Test",
             {disabled(control(ControlKind::commandButton, u"cmdOff", u"&Off")),
              hidden(control(ControlKind::commandButton, u"cmdGone")),
              control(ControlKind::label, u"lbl"), control(ControlKind::listView, u"lvw"),
              control(ControlKind::datePicker, u"dtp")},
             column({place(u"cmdOff"), place(u"lbl"), place(u"lvw"), place(u"dtp")})});
        shown->get<ListView>(u"lvw").addRow(u"row");
        int events = 0;
        shown->get<CommandButton>(u"cmdOff").onClick = [&] { ++events; };
        shown->get<CommandButton>(u"cmdGone").onClick = [&] { ++events; };
        shown->get<ListView>(u"lvw").onItemCheck = [&](int) { ++events; };
        shown->get<DTPicker>(u"dtp").onChange = [&] { ++events; };
        toolkit.whenShown(u"frmTest", [&](User &user) {
            impossible.action(user);
            user.closeByFrame();
        });
        shown->showModal();
        EXPECT_EQ(toolkit.problems(), std::vector<std::string>{"frmTest: " + impossible.problem});
        EXPECT_EQ(events, 0) << impossible.problem;
    }
}

TEST_F(HeadlessUser, TypingWithoutAFocusIsAProblem) {
    const auto shown = window({control(ControlKind::label, u"lbl")});
    show(*shown, [](User &user) {
        EXPECT_EQ(user.focused(), u"");
        user.type(u"a");
        user.closeByFrame();
    });
    EXPECT_EQ(toolkit_.problems(), std::vector<std::string>{"frmTest: no control has the focus"});
}

TEST_F(HeadlessUser, ActionsInAClosedWindowAreProblems) {
    const auto shown = window({control(ControlKind::textBox, u"txt")});
    show(*shown, [](User &user) {
        user.closeByFrame();
        EXPECT_FALSE(user.isOpen());
        user.type(u"abc");
        user.press(Key::enter);
    });
    EXPECT_EQ(toolkit_.problems(),
              (std::vector<std::string>{"frmTest: is closed", "frmTest: is closed"}));
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"");
}

TEST_F(HeadlessUser, CannotReachAWindowUnderAnother) {
    const auto outer = window({control(ControlKind::commandButton, u"cmdOpen", u"&Open"),
                               control(ControlKind::textBox, u"txt")});
    User *outerUser = nullptr;
    outer->get<CommandButton>(u"cmdOpen").onClick = [&] {
        const auto inner = window({}, u"frmInner");
        toolkit_.whenShown(u"frmInner", [&](User &user) {
            outerUser->click(u"txt");
            user.closeByFrame();
        });
        inner->showModal();
    };
    show(*outer, [&](User &user) {
        outerUser = &user;
        user.click(u"cmdOpen");
        user.click(u"txt");
        EXPECT_EQ(user.focused(), u"txt");
        user.closeByFrame();
    });
    EXPECT_EQ(toolkit_.problems(), std::vector<std::string>{"frmTest: is under frmInner"});
}

TEST_F(HeadlessUser, SeesTheRowsOfAListAndTheTabOrder) {
    ControlDesign first = control(ControlKind::optionButton, u"opg0", u"One");
    first.group = u"opg";
    ControlDesign second = first;
    second.name = u"opg1";
    second.selected = true;
    const auto shown =
        window({control(ControlKind::label, u"lbl"), control(ControlKind::listView, u"lvw"), first,
                second, disabled(control(ControlKind::commandButton, u"cmdOff")),
                control(ControlKind::commandButton, u"cmd")});
    shown->get<ListView>(u"lvw").addRow(u"a");
    shown->get<ListView>(u"lvw").addRow(u"b");
    show(*shown, [](User &user) {
        EXPECT_EQ(user.rows(u"lvw"), (std::vector<std::u16string>{u"a", u"b"}));
        EXPECT_EQ(user.tabOrder(), (std::vector<std::u16string>{u"lvw", u"opg1", u"cmd"}));
        user.get<OptionButton>(u"opg0").select();
        EXPECT_EQ(user.tabOrder(), (std::vector<std::u16string>{u"lvw", u"opg0", u"cmd"}));
        user.closeByFrame();
    });
    EXPECT_TRUE(toolkit_.problems().empty());
}

TEST_F(HeadlessUser, WalksAGroupOfOptionsByArrowKeys) {
    std::vector<ControlDesign> options;
    for (const auto *name : {u"opg0", u"opg1", u"opg2"}) {
        options.push_back(control(ControlKind::optionButton, name, name));
        options.back().group = u"opg";
    }
    options[0].selected = true;
    options[1].enabled = false;
    const auto shown = window(options);
    std::u16string clicked;
    for (const auto &option : options) {
        shown->get<OptionButton>(option.name).onClick = [&clicked, name = option.name] {
            clicked += name + u";";
        };
    }
    show(*shown, [](User &user) {
        user.press(Key::down);
        EXPECT_EQ(user.focused(), u"opg2");
        EXPECT_TRUE(user.get<OptionButton>(u"opg2").selected());
        user.press(Key::down);
        EXPECT_EQ(user.focused(), u"opg0");
        user.press(Key::up);
        EXPECT_EQ(user.focused(), u"opg2");
        user.closeByFrame();
    });
    EXPECT_EQ(clicked, u"opg2;opg0;opg2;");
}

TEST_F(HeadlessUser, AccessKeyOfSeveralControlsOnlyMovesTheFocus) {
    ControlDesign label = control(ControlKind::label, u"lbl", u"Alert &Recipients");
    label.buddy = u"txt";
    const auto shown = window({control(ControlKind::commandButton, u"cmdOK", u"&OK"), label,
                               control(ControlKind::textBox, u"txt"),
                               control(ControlKind::commandButton, u"cmdRemove", u"&Remove"),
                               disabled(control(ControlKind::commandButton, u"cmdOff", u"&R"))});
    int clicks = 0;
    shown->get<CommandButton>(u"cmdRemove").onClick = [&] { ++clicks; };
    show(*shown, [&](User &user) {
        for (const auto *name : {u"txt", u"cmdRemove", u"txt"}) {
            user.pressAccessKey(u'R');
            EXPECT_EQ(user.focused(), name);
        }
        EXPECT_EQ(clicks, 0);
        user.get<TextBox>(u"txt").setEnabled(false);
        user.pressAccessKey(u'R');
        EXPECT_EQ(clicks, 1);
        user.closeByFrame();
    });
    EXPECT_TRUE(toolkit_.problems().empty());
}

TEST_F(HeadlessUser, TypesTabsAndLineBreaksAsKeys) {
    const auto shown = window({control(ControlKind::textBox, u"txt"),
                               control(ControlKind::checkBox, u"chk", u"Check"),
                               control(ControlKind::richTextBox, u"rt")});
    show(*shown, [](User &user) {
        user.type(u"a\t \tb\r\nc\nd");
        EXPECT_EQ(user.get<TextBox>(u"txt").text(), u"a");
        EXPECT_EQ(user.get<CheckBox>(u"chk").value(), 1);
        EXPECT_EQ(user.get<RichTextBox>(u"rt").text(), u"b\r\nc\r\nd");
        user.closeByFrame();
    });
    EXPECT_TRUE(toolkit_.problems().empty());
}

TEST_F(HeadlessUser, EditsAtTheCaret) {
    const auto shown = window({control(ControlKind::richTextBox, u"rt")});
    auto &box = shown->get<RichTextBox>(u"rt");
    show(*shown, [&](User &user) {
        user.type(u"one\ntwo\nlonger");
        user.press(Key::up);
        user.type(u"!");
        EXPECT_EQ(box.text(), u"one\r\ntwo!\r\nlonger");
        user.press(Key::home);
        user.press(Key::backspace);
        EXPECT_EQ(box.text(), u"onetwo!\r\nlonger");
        user.press(Key::end);
        user.press(Key::deleteKey);
        EXPECT_EQ(box.text(), u"onetwo!longer");
        user.press(Key::down);
        user.press(Key::home);
        user.type(u"\U0001F600x");
        user.press(Key::backspace);
        user.press(Key::backspace);
        EXPECT_EQ(box.text(), u"onetwo!longer");
        user.press(Key::selectAll);
        user.type(u"new");
        EXPECT_EQ(box.text(), u"new");
        user.closeByFrame();
    });
}

TEST_F(HeadlessUser, NeverTypesOrPastesHalfACharacter) {
    ControlDesign design = control(ControlKind::textBox, u"txt");
    design.maxLength = 4;
    const auto shown = window({design});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](User &user) {
        user.type(u"abc\U0001F600");
        EXPECT_EQ(box.text(), u"abc");
        toolkit_.clipboard().setText(u"\U0001F600");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"abc");
        user.press(Key::selectAll);
        toolkit_.clipboard().setText(u"123\U0001F600");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"123");
        user.closeByFrame();
    });
}

} // namespace
} // namespace kvex::headless
