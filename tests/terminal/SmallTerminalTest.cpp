// The windows in terminals that are too small to show everything at once.
#include "adapters/lightweight/LightListView.h"
#include "platform/Text.h"
#include "platform/controls/Buttons.h"
#include "tests/terminal/TerminalWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace kvex::test {
namespace {

constexpr terminal::Size smallest{40, 12};

/// The controls that are shown, by name, with the rows of them that have been in view.
class Seen {
public:
    void look(const terminal::TerminalWindow &window) {
        for (const auto &element : window.elements()) {
            if (const auto rect = window.seenAt(element->design().name)) {
                int &rows = rows_[element->design().name];
                rows = std::max(rows, rect->rows);
            }
        }
    }
    [[nodiscard]] int rows(const std::u16string &control) const {
        const auto found = rows_.find(control);
        return found == rows_.end() ? 0 : found->second;
    }

private:
    std::map<std::u16string, int> rows_;
};

/// Tab leads to each control, which is then in view. On the way every text is in view, too.
void expectReachable(TerminalPlay &play, TerminalUser &user) {
    const terminal::TerminalWindow &window = user.window();
    Seen seen;
    const auto stops = window.tabStops();
    for (std::size_t step = 0; step < stops.size(); ++step) {
        play.look();
        seen.look(window);
        EXPECT_TRUE(window.seenAt(user.focused())) << "the focus is out of view";
        for (const char16_t *button : {u"cmdOK", u"cmdSelect"}) {
            EXPECT_TRUE(window.element(button) == nullptr || window.seenAt(button));
        }
        user.press(Key::tab);
    }
    for (const auto &element : window.elements()) {
        const ControlDesign &design = element->design();
        const bool isThere = element->isVisible() && design.kind != ControlKind::imageList &&
                             design.kind != ControlKind::frame;
        if (isThere) {
            EXPECT_GT(seen.rows(design.name), 0) << toUtf8(design.name);
            EXPECT_EQ(seen.rows(design.name), window.heightOf(design.name));
        }
    }
}

TEST(SmallTerminal, EveryControlOfEveryWindowCanBeReachedByTab) {
    TerminalWindows windows(smallest);
    windows.walk([&](TerminalUser &user, const std::string &window) {
        SCOPED_TRACE(window);
        expectReachable(windows.play(), user);
    });
    EXPECT_EQ(windows.play().problems(), std::vector<std::string>());
}

/// The rule editor in the smallest terminal, whose pane scrolls.
void playEditor(const std::function<void(TerminalPlay &play, TerminalUser &user)> &script) {
    TerminalWindows windows(smallest);
    windows.walk([&](TerminalUser &user, const std::string &window) {
        if (window == "frmRuleEdit") {
            script(windows.play(), user);
            user.get<ListView>(u"lvwRuleConditions").setFocus();
        }
    });
    EXPECT_EQ(windows.play().problems(), std::vector<std::string>());
}

TEST(SmallTerminal, TheWayBackToTheFirstControlShowsItsLabelToo) {
    playEditor([](TerminalPlay &play, TerminalUser &user) {
        user.get<CommandButton>(u"cmdOK").setFocus();
        user.press(Key::shiftTab);
        EXPECT_EQ(user.focused(), u"txtRuleName");
        play.look();
        EXPECT_FALSE(user.window().seenAt(u"Label1"));
        for (int times = 0; times < 3; ++times) {
            user.press(Key::tab);
        }
        EXPECT_EQ(user.focused(), u"lvwRuleConditions");
        play.look();
        EXPECT_TRUE(user.window().seenAt(u"Label1"));
    });
}

TEST(SmallTerminal, PageKeysOnAButtonScrollTheWindowAndTheNextKeyComesBack) {
    playEditor([](TerminalPlay &play, TerminalUser &user) {
        user.get<CommandButton>(u"cmdOK").setFocus();
        play.look();
        EXPECT_TRUE(user.window().seenAt(u"Label1"));
        user.press(Key::pageDown);
        play.look();
        EXPECT_FALSE(user.window().seenAt(u"Label1"));
        user.press(Key::pageUp);
        play.look();
        EXPECT_TRUE(user.window().seenAt(u"Label1"));
    });
}

TEST(SmallTerminal, TheWheelScrollsAListAndElsewhereTheWindow) {
    playEditor([](TerminalPlay &play, TerminalUser &user) {
        const auto wheelOn = [&](std::u16string_view control) {
            const auto rect = user.window().seenAt(control);
            ASSERT_TRUE(rect);
            play.input("\x1b[<65;3;" + std::to_string(rect->row + 1) + "M");
            play.look();
        };
        const auto first = [&] {
            const auto &list = user.window().element(u"lvwRuleConditions");
            return dynamic_cast<lightweight::LightListView &>(*list).visibleRows().first();
        };
        EXPECT_EQ(first(), 1);
        wheelOn(u"lvwRuleConditions");
        EXPECT_EQ(first(), 4);
        EXPECT_TRUE(user.window().seenAt(u"Label1"));
        wheelOn(u"Label1");
        EXPECT_EQ(first(), 4);
        EXPECT_FALSE(user.window().seenAt(u"Label1"));
        user.press(Key::home);
        play.look();
        EXPECT_TRUE(user.window().seenAt(u"lvwRuleConditions"));
    });
}

} // namespace
} // namespace kvex::test
