#include "tests/torture/monkey/Script.h"

#include "tests/host/TemporaryFolder.h"
#include "tests/torture/monkey/Event.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace kvex::torture {
namespace {

TEST(EventLines, ReadBackAsTheyWereWritten) {
    for (const char *line :
         {"world 5 1", "open 0", "open-nowhere", "click cmdOK", "tick lvwRules 3", "key \"enter\"",
          "write txtWord \"  शेष; \\r\\n<WORD>  \"", "date FromDate 2024 2 29", "other-removes 7",
          "close-frame"}) {
        EXPECT_EQ(lineOf(eventOf(line)), line);
    }
}

TEST(EventLines, GiveTextsWithBlanksQuotesAndLineBreaks) {
    const Event event{
        .kind = EventKind::write, .control = u"rtReplyText", .text = u" \"a\\\r\nb\" "};
    EXPECT_EQ(lineOf(event), "write rtReplyText \" \"a\\\\\\r\\nb\" \"");
    EXPECT_EQ(eventOf(lineOf(event)).text, event.text);
}

TEST(EventLines, AreRefusedWhenTheyHoldNoEvent) {
    for (const char *line : {"", "fly", "click", "tick lvwRules", "tick lvwRules x", "type STOP",
                             "type \"STOP", "date FromDate 2024 2"}) {
        EXPECT_THROW(static_cast<void>(eventOf(line)), std::runtime_error) << line;
    }
}

TEST(Scripts, AreReadWithoutCommentsAndEmptyLines) {
    const host::TemporaryFolder folder;
    host::writeFile(folder / "script", "# seed 7\nworld 1 0\n\nopen 1\n");
    EXPECT_EQ(readScript((folder / "script").string()), (Lines{"world 1 0", "open 1"}));
    EXPECT_THROW(static_cast<void>(readScript((folder / "none").string())), std::runtime_error);
}

TEST(Scripts, AreShortenedToTheLinesThatTheFailureNeeds) {
    Lines script{"world"};
    for (int line = 0; line < 100; ++line) {
        script.push_back(std::to_string(line));
    }
    const auto has = [](const Lines &lines, const char *line) {
        return std::ranges::count(lines, line) > 0;
    };
    const auto fails = [&](const Lines &lines) {
        return lines.front() == "world" && has(lines, "3") && has(lines, "50") && has(lines, "99");
    };
    EXPECT_EQ(shortest(script, fails, 1000), (Lines{"world", "3", "50", "99"}));
}

TEST(Scripts, AreShortenedWithinTheAttempts) {
    int attempts = 0;
    const auto fails = [&](const Lines & /*lines*/) { return ++attempts < 0; };
    EXPECT_EQ(shortest({"world", "1", "2", "3"}, fails, 2), (Lines{"world", "1", "2", "3"}));
    EXPECT_EQ(attempts, 2);
}

} // namespace
} // namespace kvex::torture
