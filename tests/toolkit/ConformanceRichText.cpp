#include "tests/toolkit/Conformance.h"

namespace kvex::test {
namespace {

ControlDesign richTextBox(bool readOnly = false) {
    ControlDesign design = control(ControlKind::richTextBox, u"rt");
    design.readOnly = readOnly;
    return design;
}

TEST_P(ToolkitConformance, RichTextBoxEndsEveryLineInCrLf) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    box.setText(u"a\rb\nc\r\nd\n\re");
    EXPECT_EQ(box.text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne");
    box.setText(u"\r\n");
    EXPECT_EQ(box.text(), u"\r\n");
    box.setRuns({{u"x\ny\r", colour::black}});
    EXPECT_EQ(box.text(), u"x\r\ny\r\n");
}

TEST_P(ToolkitConformance, RichTextBoxGivesTheTextAsSet) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    for (const std::u16string text : {u"  blanks  ", u"<b>bold</b> &amp; &x", u"ÄÖÜ\u00A0ß",
                                      u"\U0001F600 x", u"a\tb", u"\r\n\r\n", u"@@SMS@@;"}) {
        box.setText(text);
        EXPECT_EQ(box.text(), text);
        box.setRuns({{text, colour::blue}});
        EXPECT_EQ(box.text(), text);
    }
}

TEST_P(ToolkitConformance, RichTextBoxReplacesWhatItHeldAndIsBlackWhereItHasNoPieces) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    box.setText(u"one");
    box.setRuns({{u"two", colour::blue}, {u"\r\nthree", colour::red}});
    EXPECT_EQ(box.text(), u"two\r\nthree");
    show(*shown, [&](Hands &user) {
        box.setText(u"again");
        user.type(u"+");
    });
    EXPECT_EQ(box.runs(), (std::vector<TextRun>{{u"again+", colour::black}}));
    box.setRuns({});
    EXPECT_EQ(box.text(), u"");
}

TEST_P(ToolkitConformance, RichTextBoxTellsItsPiecesInTheColoursSet) {
    const auto shown = window({richTextBox(true)});
    auto &box = shown->get<RichTextBox>(u"rt");
    EXPECT_TRUE(box.runs().empty());
    const auto check = [&] {
        box.setRuns({{u"Apply ", colour::black},
                     {u"this", colour::blue},
                     {u" rule\n", colour::blue},
                     {u"  now\u00A0\r\n\r\n", colour::red},
                     {u"and then", 0x336699}});
        EXPECT_EQ(box.runs(), (std::vector<TextRun>{{u"Apply ", colour::black},
                                                    {u"this rule\r\n", colour::blue},
                                                    {u"  now\u00A0\r\n\r\n", colour::red},
                                                    {u"and then", 0x336699}}));
        EXPECT_EQ(box.text(), u"Apply this rule\r\n  now\u00A0\r\n\r\nand then");
    };
    check();
    show(*shown, [&](Hands &) { check(); });
    box.setText(u"");
    EXPECT_TRUE(box.runs().empty());
}

TEST_P(ToolkitConformance, RichTextBoxSetByCodeRunsTheChangeHandlerForAnotherTextOnly) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    std::vector<std::u16string> texts;
    box.onChange = [&] { texts.push_back(box.text()); };
    box.setText(u"a");
    box.setText(u"a");
    box.setText(u"a\nb");
    box.setText(u"a\r\nb");
    box.setRuns({{u"a\r\n", colour::blue}, {u"b", colour::red}});
    box.setRuns({{u"a\r\nb", colour::black}, {u"", colour::blue}, {u"c", colour::red}});
    show(*shown, [&](Hands &) {
        box.setText(u"");
        box.setText(u"");
    });
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"a", u"a\r\nb", u"a\r\nbc", u""}));
}

TEST_P(ToolkitConformance, RichTextBoxTypedIntoRunsTheChangeHandler) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    std::vector<std::u16string> texts;
    box.onChange = [&] { texts.push_back(box.text()); };
    show(*shown, [&](Hands &user) {
        user.type(u"a ");
        user.press(Key::enter);
        user.type(u"b");
        user.press(Key::backspace);
        user.press(Key::backspace);
    });
    EXPECT_EQ(texts,
              (std::vector<std::u16string>{u"a", u"a ", u"a \r\n", u"a \r\nb", u"a \r\n", u"a "}));
}

TEST_P(ToolkitConformance, RichTextBoxKeepsEnterFromTheDefaultButton) {
    ControlDesign ok = control(ControlKind::commandButton, u"cmdOK", u"&OK");
    ok.isDefault = true;
    const auto shown = window({richTextBox(), ok});
    int clicks = 0;
    shown->get<CommandButton>(u"cmdOK").onClick = [&] { ++clicks; };
    show(*shown, [](Hands &user) { user.press(Key::enter); });
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(shown->get<RichTextBox>(u"rt").text(), u"\r\n");
}

TEST_P(ToolkitConformance, RichTextBoxReadOnlyIsChangedByCodeOnly) {
    ControlDesign ok = control(ControlKind::commandButton, u"cmdOK", u"&OK");
    ok.isDefault = true;
    const auto shown = window({richTextBox(true), ok});
    auto &box = shown->get<RichTextBox>(u"rt");
    int clicks = 0;
    shown->get<CommandButton>(u"cmdOK").onClick = [&] { ++clicks; };
    box.setText(u"one\ntwo");
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(user.focused(), u"rt");
        fixture().setClipboardText(u"xy");
        user.press(Key::selectAll);
        user.type(u"1");
        user.press(Key::backspace);
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"one\r\ntwo");
        user.press(Key::copy);
        box.setRuns({{u"three", colour::black}});
        EXPECT_EQ(box.text(), u"three");
        EXPECT_EQ(clicks, 0);
        user.press(Key::enter);
        EXPECT_EQ(clicks, 1);
    });
    EXPECT_EQ(box.text(), u"three");
}

TEST_P(ToolkitConformance, RichTextBoxTakesAPastedTextWithItsLines) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    fixture().setClipboardText(u"one\ntwo\r\n<i>three</i>");
    show(*shown, [&](Hands &user) {
        user.type(u"-");
        user.press(Key::paste);
        user.type(u"+");
    });
    EXPECT_EQ(box.text(), u"-one\r\ntwo\r\n<i>three</i>+");
}

TEST_P(ToolkitConformance, RichTextBoxLeavesTabToTheWindow) {
    const auto shown = window({richTextBox(), control(ControlKind::checkBox, u"chk", u"Check")});
    show(*shown, [&](Hands &user) {
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"chk");
        EXPECT_EQ(shown->get<RichTextBox>(u"rt").text(), u"");
    });
}

TEST_P(ToolkitConformance, RichTextBoxHoldsALongText) {
    const auto shown = window({richTextBox()});
    auto &box = shown->get<RichTextBox>(u"rt");
    std::u16string text;
    for (int line = 0; line < 5000; ++line) {
        text += u"a line of the text\r\n";
    }
    box.setText(text);
    EXPECT_EQ(box.text(), text);
}

} // namespace
} // namespace kvex::test
