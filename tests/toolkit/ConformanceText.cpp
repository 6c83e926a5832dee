#include "tests/toolkit/Conformance.h"

#include <algorithm>

namespace kvex::test {
namespace {

ControlDesign textBox(int maxLength = 0, bool readOnly = false) {
    ControlDesign design = control(ControlKind::textBox, u"txt");
    design.maxLength = maxLength;
    design.readOnly = readOnly;
    return design;
}

/// Collects the character codes that `box` reports from now on, and sets those in `discarded` to 0.
void watchKeys(TextBox &box, std::vector<int> &codes, const std::vector<int> &discarded = {}) {
    box.onKeyPress = [&codes, discarded](std::int16_t &code) {
        codes.push_back(code);
        if (std::ranges::find(discarded, code) != discarded.end()) {
            code = 0;
        }
    };
}

TEST_P(ToolkitConformance, LabelDescribesAControlWhileItIsVisible) {
    const auto shown = window({control(ControlKind::textBox, u"txt"),
                               {.kind = ControlKind::label,
                                .name = u"lbl",
                                .caption = u"First && one",
                                .visible = false,
                                .hint = true,
                                .describes = u"txt"}});
    auto &label = shown->get<Label>(u"lbl");
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(user.description(u"txt"), u"");
        label.setVisible(true);
        EXPECT_EQ(user.description(u"txt"), u"First & one");
        label.setCaption(u"Second");
        EXPECT_EQ(user.description(u"txt"), u"Second");
        label.setVisible(false);
        EXPECT_EQ(user.description(u"txt"), u"");
        label.setCaption(u"Third");
        EXPECT_EQ(user.description(u"txt"), u"");
        EXPECT_EQ(user.focused(), u"txt");
    });
}

TEST_P(ToolkitConformance, TextBoxStartsWithTheDesignsText) {
    ControlDesign design = textBox();
    design.caption = u"0 && &x";
    const auto shown = window({design});
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"0 && &x");
}

TEST_P(ToolkitConformance, TextBoxSetByCodeRunsTheChangeHandlerForAnotherTextOnly) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    std::vector<std::u16string> texts;
    box.onChange = [&] { texts.push_back(box.text()); };
    box.setText(u"a");
    box.setText(u"a");
    box.setText(u"");
    show(*shown, [&](Hands &) {
        box.setText(u"");
        box.setText(u"b");
    });
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"a", u"", u"b"}));
}

TEST_P(ToolkitConformance, TextBoxTypedIntoRunsTheChangeHandlerForEachCharacter) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    std::vector<std::u16string> texts;
    box.onChange = [&] { texts.push_back(box.text()); };
    show(*shown, [&](Hands &user) {
        user.type(u"a B");
        user.press(Key::backspace);
    });
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"a", u"a ", u"a B", u"a "}));
}

TEST_P(ToolkitConformance, TextBoxGivesTheTextAsSet) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    for (const std::u16string text :
         {u"  blanks  ", u"<b>&amp;", u"ÄÖÜ\u00A0ß", u"\U0001F600 x", u"&New"}) {
        box.setText(text);
        EXPECT_EQ(box.text(), text);
    }
}

TEST_P(ToolkitConformance, TextBoxReportsACharacterBeforeTheTextChanges) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    std::vector<int> codes;
    std::vector<std::u16string> before;
    box.onKeyPress = [&](std::int16_t &code) {
        codes.push_back(code);
        before.push_back(box.text());
    };
    show(*shown, [](Hands &user) {
        user.type(u"1a");
        user.press(Key::backspace);
    });
    EXPECT_EQ(codes, (std::vector<int>{u'1', u'a', 8}));
    EXPECT_EQ(before, (std::vector<std::u16string>{u"", u"1", u"1a"}));
}

TEST_P(ToolkitConformance, TextBoxDiscardsAKeySetToZero) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    std::vector<int> codes;
    watchKeys(box, codes, {u'x', u'.', 8});
    int changes = 0;
    box.onChange = [&] { ++changes; };
    show(*shown, [](Hands &user) {
        user.type(u"1x.2");
        user.press(Key::backspace);
    });
    EXPECT_EQ(box.text(), u"12");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(codes, (std::vector<int>{u'1', u'x', u'.', u'2', 8}));
}

TEST_P(ToolkitConformance, TextBoxReportsTheKeysOfTheClipboard) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    box.setText(u"ab");
    fixture().setClipboardText(u"xy");
    std::vector<int> codes;
    watchKeys(box, codes);
    show(*shown, [&](Hands &user) {
        user.press(Key::selectAll);
        user.press(Key::copy);
        EXPECT_EQ(fixture().clipboardText(), u"ab");
        user.press(Key::cut);
        EXPECT_EQ(box.text(), u"");
        user.press(Key::paste);
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"abab");
    });
    EXPECT_EQ(codes, (std::vector<int>{3, 24, 22, 22}));
}

TEST_P(ToolkitConformance, TextBoxDiscardsAKeyOfTheClipboardSetToZero) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    box.setText(u"ab");
    fixture().setClipboardText(u"xy");
    std::vector<int> codes;
    watchKeys(box, codes, {3, 22, 24});
    show(*shown, [&](Hands &user) {
        user.press(Key::selectAll);
        user.press(Key::copy);
        user.press(Key::cut);
        user.press(Key::paste);
    });
    EXPECT_EQ(box.text(), u"ab");
    EXPECT_EQ(fixture().clipboardText(), u"xy");
    EXPECT_EQ(codes, (std::vector<int>{3, 24, 22}));
}

TEST_P(ToolkitConformance, TextBoxDeletesForwardWithoutAsking) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    box.setText(u"abc");
    std::vector<int> codes;
    watchKeys(box, codes);
    show(*shown, [](Hands &user) {
        user.press(Key::home);
        user.press(Key::deleteKey);
    });
    EXPECT_EQ(box.text(), u"bc");
    EXPECT_TRUE(codes.empty());
}

TEST_P(ToolkitConformance, TextBoxBoundsTypingToItsLength) {
    const auto shown = window({textBox(3)});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](Hands &user) {
        user.type(u"12345");
        EXPECT_EQ(box.text(), u"123");
        user.press(Key::backspace);
        user.type(u"9");
        EXPECT_EQ(box.text(), u"129");
        user.press(Key::selectAll);
        user.type(u"ab");
        EXPECT_EQ(box.text(), u"ab");
    });
}

TEST_P(ToolkitConformance, TextBoxCutsWhatIsPastedToItsLength) {
    const auto shown = window({textBox(5)});
    auto &box = shown->get<TextBox>(u"txt");
    fixture().setClipboardText(u"abcdefgh");
    show(*shown, [&](Hands &user) {
        user.type(u"12");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"12abc");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"12abc");
        user.press(Key::selectAll);
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"abcde");
    });
}

TEST_P(ToolkitConformance, TextBoxShowsALongerTextOfCodeWhole) {
    const auto shown = window({textBox(3)});
    auto &box = shown->get<TextBox>(u"txt");
    box.setText(u"123456");
    EXPECT_EQ(box.text(), u"123456");
    show(*shown, [&](Hands &user) {
        user.press(Key::end);
        user.type(u"7");
        EXPECT_EQ(box.text(), u"123456");
        user.press(Key::backspace);
        EXPECT_EQ(box.text(), u"12345");
        box.setText(u"abcdef");
        EXPECT_EQ(box.text(), u"abcdef");
    });
}

TEST_P(ToolkitConformance, TextBoxTakesTheFirstLineOfWhatIsPasted) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](Hands &user) {
        fixture().setClipboardText(u"one\r\ntwo");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"one");
        fixture().setClipboardText(u"-two\nthree");
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"one-two");
    });
}

TEST_P(ToolkitConformance, TextBoxReadOnlyIsChangedByCodeOnly) {
    const auto shown = window({textBox(0, true)});
    auto &box = shown->get<TextBox>(u"txt");
    box.setText(u"0");
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(user.focused(), u"txt");
        fixture().setClipboardText(u"xy");
        user.press(Key::selectAll);
        user.type(u"1");
        user.press(Key::backspace);
        user.press(Key::deleteKey);
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"0");
        user.press(Key::copy);
        EXPECT_EQ(fixture().clipboardText(), u"0");
        box.setText(u"12");
        EXPECT_EQ(box.text(), u"12");
    });
}

TEST_P(ToolkitConformance, TextBoxLeavesTabToTheWindow) {
    const auto shown = window({textBox(), control(ControlKind::checkBox, u"chk", u"Check")});
    show(*shown, [&](Hands &user) {
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"chk");
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"");
    });
}

TEST_P(ToolkitConformance, TextBoxChangeHandlerMaySetTheTextAgain) {
    const auto shown = window({textBox()});
    auto &box = shown->get<TextBox>(u"txt");
    box.onChange = [&] { box.setText(u"fixed"); };
    show(*shown, [](Hands &user) { user.type(u"a"); });
    EXPECT_EQ(box.text(), u"fixed");
}

} // namespace
} // namespace kvex::test
