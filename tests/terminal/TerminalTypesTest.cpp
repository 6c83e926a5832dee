// What is read from the descriptions of terminal types that the tests write themselves.
#include "adapters/terminal/io/Capabilities.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/host/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {

using kvex::controls::Key;
using kvex::terminal::Capabilities;

/// A database of terminal types, which the library reads instead of the system's.
class TerminalTypes : public testing::Test {
protected:
    TerminalTypes() {
        if (const char *const value = std::getenv("TERMINFO")) {
            before_ = value;
        }
        setenv("TERMINFO", folder_.path().c_str(), 1);
    }
    ~TerminalTypes() override {
        before_ ? setenv("TERMINFO", before_->c_str(), 1) : unsetenv("TERMINFO");
    }
    /// Adds a type with these capabilities, in the language of terminfo.
    void add(const std::string &type, const std::string &capabilities) {
        const std::filesystem::path file = folder_ / "source";
        kvex::host::writeFile(file, type + "|a type of a test,\n\t" + capabilities + ",\n");
        const std::string command =
            "tic -x -o '" + folder_.path().string() + "' '" + file.string() + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    static std::string refusalOf(const std::string &type) {
        try {
            static_cast<void>(Capabilities::ofType(type));
            return "accepted";
        } catch (const kvex::Error &error) {
            return kvex::toUtf8(error.description());
        }
    }

private:
    const kvex::host::TemporaryFolder folder_;
    std::optional<std::string> before_;
};

const std::string usable = "cup=\\E[%i%p1%d;%p2%dH, clear=\\E[2J";

TEST_F(TerminalTypes, WriteWhatTheirDescriptionSays) {
    add("all", usable + ", hpa=H, cr=R, cub1=B, cuf1=F, cud1=D, cnorm=N, civis=I, el=L, sgr0=S, "
                        "bold=O, dim=M, rev=V, smul=U, setaf=A, colors#88, smcup=SC, rmcup=RC, "
                        "smkx=SK, rmkx=RK, smam=SW, rmam=RW, am, kmous=\\E[M");
    const Capabilities all = Capabilities::ofType("all");
    EXPECT_EQ(all.placeCursor, "\x1b[%i%p1%d;%p2%dH");
    EXPECT_EQ(all.clear, "\x1b[2J");
    EXPECT_EQ(all.toColumn, "H");
    EXPECT_EQ(all.toFirstColumn, "R");
    EXPECT_EQ(all.left + all.right + all.down, "BFD");
    EXPECT_EQ(all.showCursor + all.hideCursor, "NI");
    EXPECT_EQ(all.eraseToEndOfLine, "L");
    EXPECT_EQ(all.plain + all.bold + all.dim + all.reverse + all.underline, "SOMVU");
    EXPECT_EQ(all.foreground, "A");
    EXPECT_EQ(all.colours, 88);
    EXPECT_EQ(all.enterScreen + all.leaveScreen, "SCRC");
    EXPECT_EQ(all.enterKeypad + all.leaveKeypad, "SKRK");
    EXPECT_EQ(all.enterWrapping + all.leaveWrapping, "SWRW");
    EXPECT_TRUE(all.wrapsAtOnce);
    EXPECT_TRUE(all.hasMouse);
}

TEST_F(TerminalTypes, WithoutMoreThanACursorAreEnough) {
    add("bare", usable + ", colors#8, am, xenl");
    const Capabilities bare = Capabilities::ofType("bare");
    EXPECT_EQ(bare.bold + bare.enterScreen + bare.showCursor, "");
    EXPECT_EQ(bare.colours, 0);
    EXPECT_FALSE(bare.wrapsAtOnce);
    EXPECT_FALSE(bare.hasMouse);
    EXPECT_TRUE(bare.keys.empty());
}

TEST_F(TerminalTypes, SayWhatTheirKeysSend) {
    add("keys", usable + ", kcuu1=\\E01, kcud1=\\E02, kcub1=\\E03, kcuf1=\\E04, khome=\\E05, "
                         "kend=\\E06, kpp=\\E07, knp=\\E08, kdch1=\\E09, kcbt=\\E10, kent=\\E11, "
                         "kbs=\\E12, kf1=\\E13, kf2=\\E14, kri=\\E15, kind=\\E16, kLFT=\\E17, "
                         "kRIT=\\E18, kHOM=\\E19, kEND=\\E20, kLFT5=\\E21, kRIT5=\\E22, "
                         "kLFT6=\\E23, kRIT6=\\E24, kHOM5=\\E25, kEND5=\\E26, kIC5=\\E27, "
                         "kDC=\\E28, kIC=\\E29, khlp=\\E30, kf3=\\E31");
    using Keys = decltype(Capabilities::keys);
    EXPECT_EQ(Capabilities::ofType("keys").keys, (Keys{{"\x1b"
                                                        "01",
                                                        Key::up},
                                                       {"\x1b"
                                                        "02",
                                                        Key::down},
                                                       {"\x1b"
                                                        "03",
                                                        Key::left},
                                                       {"\x1b"
                                                        "04",
                                                        Key::right},
                                                       {"\x1b"
                                                        "05",
                                                        Key::home},
                                                       {"\x1b"
                                                        "06",
                                                        Key::end},
                                                       {"\x1b"
                                                        "07",
                                                        Key::pageUp},
                                                       {"\x1b"
                                                        "08",
                                                        Key::pageDown},
                                                       {"\x1b"
                                                        "09",
                                                        Key::deleteKey},
                                                       {"\x1b"
                                                        "10",
                                                        Key::shiftTab},
                                                       {"\x1b"
                                                        "11",
                                                        Key::enter},
                                                       {"\x1b"
                                                        "12",
                                                        Key::backspace},
                                                       {"\x1b"
                                                        "13",
                                                        Key::help},
                                                       {"\x1b"
                                                        "14",
                                                        Key::accessKey},
                                                       {"\x1b"
                                                        "15",
                                                        Key::selectUp},
                                                       {"\x1b"
                                                        "16",
                                                        Key::selectDown},
                                                       {"\x1b"
                                                        "17",
                                                        Key::selectLeft},
                                                       {"\x1b"
                                                        "18",
                                                        Key::selectRight},
                                                       {"\x1b"
                                                        "19",
                                                        Key::selectHome},
                                                       {"\x1b"
                                                        "20",
                                                        Key::selectEnd},
                                                       {"\x1b"
                                                        "21",
                                                        Key::wordLeft},
                                                       {"\x1b"
                                                        "22",
                                                        Key::wordRight},
                                                       {"\x1b"
                                                        "23",
                                                        Key::selectWordLeft},
                                                       {"\x1b"
                                                        "24",
                                                        Key::selectWordRight},
                                                       {"\x1b"
                                                        "25",
                                                        Key::textStart},
                                                       {"\x1b"
                                                        "26",
                                                        Key::textEnd},
                                                       {"\x1b"
                                                        "27",
                                                        Key::copy},
                                                       {"\x1b"
                                                        "28",
                                                        Key::cut},
                                                       {"\x1b"
                                                        "29",
                                                        Key::paste},
                                                       {"\x1b"
                                                        "30",
                                                        Key::help}}));
}

TEST_F(TerminalTypes, OnlySequencesOfTwoBytesOrMoreThatBeginWithEscAreKeys) {
    add("short", usable + ", kcuu1=\\E, kcud1=ab, kcub1=\\EX, kcuf1=");
    const auto keys = Capabilities::ofType("short").keys;
    ASSERT_EQ(keys.size(), 1U);
    EXPECT_EQ(keys.at("\x1bX"), Key::left);
}

TEST_F(TerminalTypes, LoseTheirDelays) {
    add("slow", usable + ", cr=$<5>, bold=a$<20/>b$<3*>c, rev=a$<5, smul=$<");
    const Capabilities slow = Capabilities::ofType("slow");
    EXPECT_EQ(slow.toFirstColumn, "");
    EXPECT_EQ(slow.bold, "abc");
    EXPECT_EQ(slow.reverse, "a$<5");
    EXPECT_EQ(slow.underline, "$<");
}

TEST_F(TerminalTypes, ThatCannotPlaceACursorAreRefused) {
    add("paper", usable + ", hc");
    add("family", usable + ", gn");
    add("nowhere", "clear=\\E[2J");
    add("full", "cup=\\E[%i%p1%d;%p2%dH");
    for (const std::string type : {"paper", "family", "nowhere", "full"}) {
        EXPECT_EQ(refusalOf(type), "This terminal cannot place its cursor (TERM=" + type +
                                       "); set TERM to the type that your terminal has, or use a "
                                       "display.");
    }
}

} // namespace
