// A window of a few controls, and how each cell of it looks.
#pragma once

#include "tests/terminal/TerminalPlay.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvex::test {

// As terminals number them.
inline constexpr auto bold = "1";
inline constexpr auto dim = "2";
inline constexpr auto underlined = "4";
inline constexpr auto reverse = "7";

class Looks : public testing::Test {
protected:
    /// Shows the controls in a window of 40 x 20 and runs the script in it.
    void show(std::vector<ControlDesign> controls, const std::function<void(Window &)> &fill,
              const TerminalPlay::Script &script) {
        Layout layout = below(controls);
        const auto window = play.toolkit().createWindow(
            {u"frmTest", u"Test", std::move(controls), std::move(layout)});
        fill(*window);
        play.whenShown(u"frmTest", [&script](TerminalUser &user) {
            script(user);
            user.closeByFrame();
        });
        window->showModal();
        EXPECT_EQ(play.problems(), std::vector<std::string>());
    }
    void show(std::vector<ControlDesign> controls, const TerminalPlay::Script &script) {
        show(
            std::move(controls), [](Window &) {}, script);
    }

    /// Where the text stands on the screen; a failure if it does not.
    terminal::Point find(std::u16string_view text) {
        for (int row = 0; row < height; ++row) {
            if (const auto at = play.screen().line(row).find(text); at != std::u16string::npos) {
                return {static_cast<int>(at), row};
            }
        }
        ADD_FAILURE() << "the text is not on the screen";
        return {};
    }
    bool isOnScreen(std::u16string_view text) {
        for (int row = 0; row < height; ++row) {
            if (play.screen().line(row).find(text) != std::u16string::npos) {
                return true;
            }
        }
        return false;
    }
    /// The attributes of the first cell of the text, without those of colours.
    std::string attributesOf(std::u16string_view text) {
        const terminal::Point at = find(text);
        return play.screen().at(at.column, at.row).attributes;
    }
    bool has(std::u16string_view text, const std::string &attribute) {
        return (";" + attributesOf(text) + ";").find(";" + attribute + ";") != std::string::npos;
    }

    static constexpr int height = 20;
    TerminalPlay play{{40, height}};
};

} // namespace kvex::test
