#include "adapters/terminal/io/Terminal.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace std::chrono_literals;
using kvex::terminal::Characters;
using kvex::terminal::TerminalKind;

/// Sets variables of the environment, and puts them back at the end.
class TerminalKindTest : public testing::Test {
protected:
    TerminalKindTest() {
        for (const char *const name :
             {"TERM", "LC_ALL", "LC_CTYPE", "LANG", "NO_COLOR", "ESCDELAY"}) {
            const char *const value = std::getenv(name);
            before_.emplace_back(name, value == nullptr ? std::optional<std::string>() : value);
            unsetenv(name);
        }
    }
    ~TerminalKindTest() override {
        for (const auto &[name, value] : before_) {
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
    }
    static void set(const char *name, const char *value) { setenv(name, value, 1); }
    static Characters characters() { return TerminalKind::ofEnvironment().characters; }

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> before_;
};

TEST_F(TerminalKindTest, IsPlainInAnEmptyEnvironment) {
    const TerminalKind kind = TerminalKind::ofEnvironment();
    EXPECT_EQ(kind.type, "");
    EXPECT_EQ(kind.characters, Characters::ascii);
    EXPECT_TRUE(kind.mayColour);
    EXPECT_EQ(kind.patience, 50ms);
}

TEST_F(TerminalKindTest, KnowsTheTypeAndTheUsersWishes) {
    set("TERM", "linux");
    set("NO_COLOR", "1");
    set("ESCDELAY", "300");
    const TerminalKind kind = TerminalKind::ofEnvironment();
    EXPECT_EQ(kind.type, "linux");
    EXPECT_FALSE(kind.mayColour);
    EXPECT_EQ(kind.patience, 300ms);
    set("NO_COLOR", "");
    EXPECT_TRUE(TerminalKind::ofEnvironment().mayColour);
    for (const auto &[text, patience] : {std::pair{"1", 1ms}, std::pair{"10000", 10000ms}}) {
        set("ESCDELAY", text);
        EXPECT_EQ(TerminalKind::ofEnvironment().patience, patience);
    }
    for (const char *const useless : {"", "soon", "-1", "0", "10001"}) {
        set("ESCDELAY", useless);
        EXPECT_EQ(TerminalKind::ofEnvironment().patience, 50ms) << useless;
    }
}

TEST_F(TerminalKindTest, HasTheCharactersOfTheUsersLocale) {
    set("LANG", "C.UTF-8");
    EXPECT_EQ(characters(), Characters::unicode);
    set("LC_CTYPE", "C");
    EXPECT_EQ(characters(), Characters::ascii);
    set("LC_ALL", "C.UTF-8");
    EXPECT_EQ(characters(), Characters::unicode);
    set("LC_ALL", "POSIX");
    EXPECT_EQ(characters(), Characters::ascii);
}

TEST_F(TerminalKindTest, BelievesTheNameOfALocaleThatIsMissingHere) {
    set("LANG", "xx_XX.UTF-8");
    EXPECT_EQ(characters(), Characters::unicode);
    set("LC_CTYPE", "xx_XX");
    EXPECT_EQ(characters(), Characters::ascii);
    set("LC_ALL", "xx_XX.UTF-8");
    EXPECT_EQ(characters(), Characters::unicode);
    set("LC_ALL", "xx_XX.utf8@euro");
    EXPECT_EQ(characters(), Characters::unicode);
    set("LC_ALL", "xx_XX.ISO-8859-1");
    EXPECT_EQ(characters(), Characters::ascii);
    set("LC_ALL", "xx_XX");
    EXPECT_EQ(characters(), Characters::ascii);
}

TEST_F(TerminalKindTest, LeavesTheLocaleOfTheProcessAlone) {
    set("LC_ALL", "C.UTF-8");
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_EQ(characters(), Characters::unicode);
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

} // namespace
