#include "adapters/lightweight/TextInput.h"

#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/toolkit/lightweight/TestWindow.h"

#include <gtest/gtest.h>

namespace kvex::lightweight {
namespace {

using test::control;
using Range = TextInput::Range;

/// A box of one line, `txt`, or one of several, `rt`.
class LightTextInput : public testing::Test {
protected:
    TestWindow &window(ControlDesign design) {
        window_ = std::make_unique<TestWindow>(std::vector{std::move(design)});
        return *window_;
    }
    TestWindow &line(const std::u16string &text) {
        return window(control(ControlKind::textBox, u"txt", text));
    }
    TestWindow &lines(const std::u16string &text) {
        TestWindow &shown = window(control(ControlKind::richTextBox, u"rt"));
        shown.get<RichTextBox>(u"rt").setText(text);
        input().setCaret(0);
        return shown;
    }
    [[nodiscard]] TextInput &input() const { return dynamic_cast<TextInput &>(*window_->focus()); }
    /// Where the caret stands after each key.
    std::vector<std::size_t> walk(std::initializer_list<Key> keys) {
        std::vector<std::size_t> places;
        for (const Key key : keys) {
            window_->press(key);
            places.push_back(input().caret());
        }
        return places;
    }

private:
    std::unique_ptr<TestWindow> window_;
};

using Places = std::vector<std::size_t>;

TEST_F(LightTextInput, TheCaretGoesByClustersAndWords) {
    line(u"हिदी e\u0301x");
    EXPECT_EQ(walk({Key::left, Key::left, Key::left, Key::left, Key::left, Key::left}),
              (Places{7, 5, 4, 2, 0, 0}));
    EXPECT_EQ(walk({Key::right, Key::wordRight, Key::wordRight, Key::right, Key::wordLeft}),
              (Places{2, 5, 8, 8, 5}));
    EXPECT_EQ(walk({Key::home, Key::end, Key::textStart, Key::textEnd}), (Places{0, 8, 0, 8}));
}

TEST_F(LightTextInput, ShiftedKeysSelectAndArrowsLeaveTheSelectionByItsEnds) {
    TestWindow &shown = line(u"one two");
    shown.press({Key::home, Key::selectRight, Key::selectRight});
    EXPECT_EQ(input().selection(), (Range{0, 2}));
    shown.press(Key::selectWordRight);
    EXPECT_EQ(input().selection(), (Range{0, 4}));
    shown.press(Key::selectEnd);
    EXPECT_EQ(input().selection(), (Range{0, 7}));
    shown.press({Key::selectWordLeft, Key::selectLeft});
    EXPECT_EQ(input().selection(), (Range{0, 3}));
    shown.press(Key::right);
    EXPECT_EQ(input().selection(), (Range{3, 0}));
    shown.press({Key::selectHome, Key::left});
    EXPECT_EQ(input().selection(), (Range{0, 0}));
    shown.press({Key::selectAll, Key::deleteKey});
    EXPECT_EQ(input().content(), u"");
}

TEST_F(LightTextInput, BackspaceTakesACharacterAndDeleteACluster) {
    TestWindow &shown = line(u"हिe\u0301");
    shown.press({Key::backspace});
    EXPECT_EQ(input().content(), u"हिe");
    shown.press({Key::home, Key::deleteKey});
    EXPECT_EQ(input().content(), u"e");
}

TEST_F(LightTextInput, AClickPlacesTheCaretAndTypingGoesOnThere) {
    TestWindow &shown = line(u"one two");
    input().setCaret(3);
    EXPECT_TRUE(shown.type(u"!"));
    EXPECT_EQ(input().content(), u"one! two");
    input().setCaret(8, true);
    EXPECT_EQ(input().selection(), (Range{4, 4}));
    input().setCaret(100);
    EXPECT_EQ(input().selection(), (Range{8, 0}));
}

TEST_F(LightTextInput, UpAndDownKeepTheColumnPastShorterLines) {
    lines(u"abcdef\r\n漢\r\n\r\nabcdef");
    EXPECT_EQ(walk({Key::end, Key::left, Key::down, Key::down, Key::down, Key::down, Key::up,
                    Key::up, Key::up, Key::up}),
              (Places{6, 5, 9, 11, 18, 18, 11, 9, 5, 5}));
}

TEST_F(LightTextInput, ShiftWithUpAndDownSelectsLines) {
    TestWindow &shown = lines(u"one\r\ntwo\r\nthree");
    shown.press({Key::right, Key::selectDown, Key::selectDown});
    EXPECT_EQ(input().selection(), (Range{1, 10}));
    shown.press(Key::selectUp);
    EXPECT_EQ(input().selection(), (Range{1, 5}));
}

TEST_F(LightTextInput, ASelectionOfOneCharacterIsLeftByItsEndsToo) {
    TestWindow &shown = line(u"one");
    shown.press({Key::home, Key::selectRight, Key::right});
    EXPECT_EQ(input().selection(), (Range{1, 0}));
}

TEST_F(LightTextInput, AClickGivesUpAndDownAnotherColumn) {
    lines(u"first line\r\n\r\nlast line");
    EXPECT_EQ(walk({Key::end, Key::down}), (Places{10, 12}));
    input().setCaret(3);
    EXPECT_EQ(walk({Key::down, Key::down}), (Places{12, 17}));
}

TEST_F(LightTextInput, PageKeysGoAsManyLinesAsTheViewShows) {
    lines(u"0\r\n1\r\n2\r\n3\r\n4");
    input().setPage(3);
    EXPECT_EQ(walk({Key::pageDown, Key::pageDown, Key::pageDown, Key::pageUp, Key::pageUp}),
              (Places{9, 12, 12, 3, 0}));
    EXPECT_EQ(walk({Key::textEnd, Key::textStart}), (Places{13, 0}));
    lines(u"abc\r\n\r\n\r\nabc");
    input().setPage(2);
    EXPECT_EQ(walk({Key::textEnd, Key::pageUp, Key::pageUp}), (Places{12, 5, 3}));
    EXPECT_EQ(walk({Key::pageDown, Key::pageDown}), (Places{7, 12}));
}

TEST_F(LightTextInput, LineKeysFollowTheLinesThatTheViewWraps) {
    lines(u"abcdefghij");
    input().setLineFinder([](std::size_t at) {
        const std::size_t from = std::min<std::size_t>(at / 4 * 4, 8);
        return from == 8 ? TextLine{8, 10, noLine} : TextLine{from, from + 3, from + 4};
    });
    EXPECT_EQ(walk({Key::end, Key::down, Key::down, Key::up, Key::home, Key::up, Key::up}),
              (Places{3, 7, 10, 7, 4, 0, 0}));
    EXPECT_EQ(walk({Key::pageDown, Key::pageDown, Key::end}), (Places{4, 8, 10}));
}

TEST_F(LightTextInput, ABoxOfOneLineStaysWhereItIsOnUpAndDown) {
    line(u"one\r\ntwo");
    input().setCaret(6);
    EXPECT_EQ(walk({Key::up, Key::down, Key::pageUp, Key::pageDown, Key::home, Key::end}),
              (Places{6, 6, 6, 6, 0, 8}));
}

TEST_F(LightTextInput, ATextToReadStartsAtItsBeginningAndIsWalked) {
    ControlDesign design = control(ControlKind::richTextBox, u"rt");
    design.readOnly = true;
    TestWindow &shown = window(design);
    shown.get<RichTextBox>(u"rt").setText(u"one\r\ntwo");
    EXPECT_EQ(input().caret(), 0U);
    shown.press(Key::down);
    EXPECT_EQ(input().caret(), 5U);
    shown.get<RichTextBox>(u"rt").setRuns({{u"three", 0}});
    EXPECT_EQ(input().caret(), 0U);
    shown.type(u"x");
    shown.press({Key::deleteKey, Key::backspace, Key::enter});
    shown.paste(u"x");
    EXPECT_EQ(input().content(), u"three");
}

TEST_F(LightTextInput, APastedTextGoesThroughTheFiltersOfThePasteKey) {
    ControlDesign design = control(ControlKind::textBox, u"txt");
    design.maxLength = 5;
    TestWindow &shown = window(design);
    auto &box = shown.get<TextBox>(u"txt");
    std::vector<int> codes;
    std::u16string asked;
    box.onKeyPress = [&](std::int16_t &code) {
        codes.push_back(code);
        asked = shown.clipboard().text();
        code = asked == u"no" ? std::int16_t{0} : code;
    };
    EXPECT_TRUE(shown.paste(u"1234567\r89"));
    EXPECT_EQ(box.text(), u"12345");
    EXPECT_EQ(asked, u"1234567\r89");
    EXPECT_TRUE(shown.paste(u"no"));
    EXPECT_EQ(box.text(), u"12345");
    EXPECT_EQ(codes, (std::vector<int>{22, 22}));
}

TEST_F(LightTextInput, CopyLeavesTheTextAndCutTakesIt) {
    TestWindow &shown = line(u"one two");
    shown.press({Key::home, Key::selectWordRight, Key::copy});
    EXPECT_EQ(shown.clipboard().text(), u"one ");
    EXPECT_EQ(input().content(), u"one two");
    EXPECT_EQ(input().selection(), (Range{0, 4}));
    shown.press({Key::end, Key::copy, Key::paste});
    EXPECT_EQ(input().content(), u"one twoone ");
    shown.press({Key::selectHome, Key::cut});
    EXPECT_EQ(shown.clipboard().text(), u"one twoone ");
    EXPECT_EQ(input().content(), u"");
}

TEST_F(LightTextInput, ATextToReadCanBeCopiedButNotCut) {
    ControlDesign design = control(ControlKind::textBox, u"txt", u"fixed");
    design.readOnly = true;
    TestWindow &shown = window(design);
    shown.press({Key::selectAll, Key::cut});
    EXPECT_EQ(shown.clipboard().text(), u"");
    shown.press(Key::copy);
    EXPECT_EQ(shown.clipboard().text(), u"fixed");
    EXPECT_EQ(input().content(), u"fixed");
}

TEST_F(LightTextInput, AnEmptyClipboardReplacesNothing) {
    TestWindow &shown = line(u"one");
    shown.press({Key::selectAll, Key::paste});
    EXPECT_EQ(input().content(), u"one");
    EXPECT_EQ(input().selection(), (Range{0, 3}));
}

TEST_F(LightTextInput, AllLinesOfAPastedTextComeIntoABoxOfSeveral) {
    TestWindow &shown = lines(u"");
    EXPECT_TRUE(shown.paste(u"one\rtwo\nthree\r\n"));
    EXPECT_EQ(input().content(), u"one\r\ntwo\r\nthree\r\n");
    shown.press(Key::up);
    EXPECT_EQ(input().caret(), 10U);
}

TEST_F(LightTextInput, ATypedClusterComesWholeOrNotAtAll) {
    ControlDesign design = control(ControlKind::textBox, u"txt");
    design.maxLength = 5;
    TestWindow &shown = window(design);
    EXPECT_TRUE(shown.type(u"e\u0301"));
    EXPECT_TRUE(shown.type(u"\U0001F468\u200D\U0001F469"));
    EXPECT_EQ(input().content(), u"e\u0301");
    shown.get<TextBox>(u"txt").onKeyPress = [](std::int16_t &code) {
        code = code == u'a' ? std::int16_t{0} : code;
    };
    EXPECT_TRUE(shown.type(u"a\u0301"));
    EXPECT_EQ(input().content(), u"e\u0301");
}

} // namespace
} // namespace kvex::lightweight
