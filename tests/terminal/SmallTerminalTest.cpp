// The windows in terminals that are too small to show everything at once.
#include "platform/Text.h"
#include "tests/terminal/TerminalWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
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

} // namespace
} // namespace kvex::test
