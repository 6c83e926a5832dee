// What each window looks like at several sizes. tests/README.md says how to accept new looks.
#include "tests/terminal/TerminalWindows.h"

#include "platform/Text.h"
#include "ui/rules/frmRules.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kvex::test {
namespace {

std::string pictureOf(const Emulator &screen, terminal::Size size) {
    std::string picture;
    for (int row = 0; row < size.rows; ++row) {
        picture += toUtf8(screen.line(row)) + '\n';
    }
    return picture + "cursor: " + std::to_string(screen.cursor().column) + ", " +
           std::to_string(screen.cursor().row) + '\n';
}

std::string contentsOf(const std::filesystem::path &file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void compare(const std::string &window, terminal::Size size, const std::string &picture) {
    const std::string name =
        window + "-" + std::to_string(size.columns) + "x" + std::to_string(size.rows) + ".txt";
    const std::filesystem::path file = std::filesystem::path(KVEX_SCREENS) / name;
    if (std::getenv("KVEX_ACCEPT_SCREENS") != nullptr) {
        std::ofstream(file, std::ios::binary) << picture;
    }
    EXPECT_EQ(picture, contentsOf(file)) << name;
}

class GoldenScreens : public testing::TestWithParam<terminal::Size> {};

TEST_P(GoldenScreens, OfEveryWindow) {
    TerminalWindows windows(GetParam());
    int seen = 0;
    windows.walk([&](TerminalUser &, const std::string &window) {
        compare(window, GetParam(), pictureOf(windows.play().screen(), GetParam()));
        ++seen;
    });
    EXPECT_EQ(seen, 11);
    EXPECT_EQ(windows.play().problems(), std::vector<std::string>());
    EXPECT_EQ(windows.utility().logTexts(), Texts());
}

TEST_P(GoldenScreens, OfBoxesOverAWindow) {
    TerminalWindows windows(GetParam());
    TerminalPlay &play = windows.play();
    std::string box;
    play.onMessageBox = [&](terminal::TerminalWindow &) {
        compare(box, GetParam(), pictureOf(play.screen(), GetParam()));
    };
    const auto window = play.toolkit().createWindow(frmRulesDesign());
    play.whenShown(u"frmRules", [&](TerminalUser &user) {
        box = "help";
        user.press(Key::help);
        box = "question";
        static_cast<void>(play.toolkit().showMessageBox(
            u"SMS Rules", u"Are you sure you want to remove this rule?", message_box::yesNo));
        box = "message";
        static_cast<void>(play.toolkit().showMessageBox(
            u"SMS Rules",
            u"The change of record ID 3 was not stored. Another user has changed or removed the "
            u"record since it was read.\r\n\r\nClose the windows, open the rules again, and repeat "
            u"the change.",
            message_box::exclamation));
        user.press(Key::escape);
        user.closeByFrame();
    });
    window->showModal();
    EXPECT_EQ(play.messageBoxes().size(), 3U);
    EXPECT_EQ(play.problems(), std::vector<std::string>());
}

/// Without the characters of Unicode, lines are drawn with ASCII and other texts become escapes.
TEST(GoldenScreens, OfALocaleWithoutUnicode) {
    constexpr terminal::Size size{80, 24};
    TerminalWindows windows(size, {"vt100", terminal::Characters::ascii, true});
    windows.walk([&](TerminalUser &, const std::string &window) {
        if (window == "frmRules" || window == "frmRuleOptions") {
            compare(window + "-ascii", size, pictureOf(windows.play().screen(), size));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Sizes, GoldenScreens,
                         testing::Values(terminal::Size{80, 24}, terminal::Size{120, 40},
                                         terminal::Size{60, 16}, terminal::Size{40, 12}),
                         [](const auto &size) {
                             return std::to_string(size.param.columns) + "x" +
                                    std::to_string(size.param.rows);
                         });

} // namespace
} // namespace kvex::test
