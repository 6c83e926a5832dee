#include "tests/toolkit/Conformance.h"

#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"

namespace kvex::test {
namespace {

/// Presses the keys and then types a "|". The text shows where the caret was and what was selected.
std::u16string afterKeys(Hands &user, TextBox &box, const std::u16string &text,
                         std::initializer_list<Key> keys) {
    box.setText(text);
    for (const Key key : keys) {
        user.press(key);
    }
    user.type(u"|");
    return box.text();
}

TEST_P(ToolkitConformance, TextBoxIsWalkedByCharactersAndWords) {
    const auto shown = window({control(ControlKind::textBox, u"txt")});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](Hands &user) {
        const auto after = [&](std::initializer_list<Key> keys) {
            return afterKeys(user, box, u"one two_3 हिe\u0301", keys);
        };
        EXPECT_EQ(after({Key::left}), u"one two_3 हि|e\u0301");
        EXPECT_EQ(after({Key::left, Key::left}), u"one two_3 |हिe\u0301");
        EXPECT_EQ(after({Key::wordLeft}), u"one two_3 |हिe\u0301");
        EXPECT_EQ(after({Key::wordLeft, Key::wordLeft}), u"one |two_3 हिe\u0301");
        EXPECT_EQ(after({Key::home}), u"|one two_3 हिe\u0301");
        EXPECT_EQ(after({Key::home, Key::right}), u"o|ne two_3 हिe\u0301");
        EXPECT_EQ(after({Key::home, Key::wordRight}), u"one |two_3 हिe\u0301");
        EXPECT_EQ(after({Key::home, Key::end}), u"one two_3 हिe\u0301|");
    });
}

TEST_P(ToolkitConformance, TextBoxDeletesAWholeClusterForwardAndOneMarkBackward) {
    const auto shown = window({control(ControlKind::textBox, u"txt")});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(afterKeys(user, box, u"हिx", {Key::home, Key::deleteKey}), u"|x");
        EXPECT_EQ(afterKeys(user, box, u"हि", {Key::backspace}), u"ह|");
        EXPECT_EQ(afterKeys(user, box, u"a\U0001F600", {Key::backspace}), u"a|");
    });
}

TEST_P(ToolkitConformance, TextBoxSelectsByShiftedKeys) {
    const auto shown = window({control(ControlKind::textBox, u"txt")});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](Hands &user) {
        const auto after = [&](std::initializer_list<Key> keys) {
            return afterKeys(user, box, u"one two", keys);
        };
        EXPECT_EQ(after({Key::selectLeft, Key::selectLeft}), u"one t|");
        EXPECT_EQ(after({Key::selectWordLeft}), u"one |");
        EXPECT_EQ(after({Key::selectHome}), u"|");
        EXPECT_EQ(after({Key::home, Key::selectWordRight}), u"|two");
        EXPECT_EQ(after({Key::home, Key::selectRight, Key::selectEnd}), u"|");
        EXPECT_EQ(after({Key::selectLeft, Key::selectLeft, Key::left}), u"one t|wo");
        EXPECT_EQ(after({Key::selectLeft, Key::selectLeft, Key::right}), u"one two|");
    });
}

TEST_P(ToolkitConformance, RichTextBoxIsWalkedByLines) {
    const auto shown = window({control(ControlKind::richTextBox, u"rt")});
    auto &box = shown->get<RichTextBox>(u"rt");
    show(*shown, [&](Hands &user) {
        const auto after = [&](std::initializer_list<Key> keys) {
            box.setText(u"one\r\n\r\nthree");
            for (const Key key : keys) {
                user.press(key);
            }
            user.type(u"|");
            return box.text();
        };
        EXPECT_EQ(after({Key::textStart}), u"|one\r\n\r\nthree");
        EXPECT_EQ(after({Key::textStart, Key::textEnd}), u"one\r\n\r\nthree|");
        EXPECT_EQ(after({Key::home}), u"one\r\n\r\n|three");
        EXPECT_EQ(after({Key::home, Key::right, Key::up, Key::up}), u"o|ne\r\n\r\nthree");
        EXPECT_EQ(after({Key::home, Key::left}), u"one\r\n|\r\nthree");
        EXPECT_EQ(after({Key::textStart, Key::right, Key::selectDown, Key::selectDown}), u"o|hree");
    });
}

TEST_P(ToolkitConformance, RichTextBoxIsWalkedByWordsAndTheEndsOfLines) {
    const auto shown = window({control(ControlKind::richTextBox, u"rt")});
    auto &box = shown->get<RichTextBox>(u"rt");
    show(*shown, [&](Hands &user) {
        box.setText(u"a  b \r\n  c (d)");
        user.press(Key::textStart);
        for (int word = 1; word <= 7; ++word) {
            user.press(Key::wordRight);
            user.type(u"|");
        }
        EXPECT_EQ(box.text(), u"a  |b |\r\n|  |c |(|d|)");
        box.setText(u"a  b \r\n  c (d)");
        for (int word = 1; word <= 8; ++word) {
            user.press(Key::wordLeft);
            user.type(u"|");
            user.press(Key::left);
        }
        EXPECT_EQ(box.text(), u"|a  |b |\r\n|  |c |(|d|)");
    });
}

} // namespace
} // namespace kvex::test
