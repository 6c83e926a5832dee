// The pages of the help, and the table of commands that they are made from.
#include "host/kvexrules/Help.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace kvex::host {
namespace {

using testing::HasSubstr;
using testing::Not;

std::size_t charactersIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; }));
}

std::vector<std::string> allPages() {
    std::vector<std::string> pages{generalHelp(commands())};
    for (const Command *command : commands()) {
        pages.push_back(helpFor(*command));
    }
    return pages;
}

constexpr std::array<std::string_view, 2> colours{"red", "blå"};
constexpr std::array paintOptions{
    Option{.name = "--colour", .value = "", .help = "the colour", .choices = colours},
    Option{.name = "--place-of-the-brush", .value = "FOLDER|FILE", .help = "where it lies"},
    Option{.name = "--dry",
           .value = "",
           .help = "wait until the colour is dry, and then as long again, before the next one"},
};
constexpr std::array paintWords{Word{.name = "WALL"},
                                Word{.name = "DOOR", .isOptional = true, .repeats = true}};
constexpr std::array paintStatuses{ExitStatus{0, "painted"}, ExitStatus{1, "still wet"}};
constexpr Command paint{
    .name = "paint",
    .words = paintWords,
    .options = paintOptions,
    .summary = "paint walls",
    .description =
        "Paints a wall. It takes its time for this, because no wall is like the other one,\n"
        "ever.\n\nThese are kept:\n  one  two\n",
    .example = "$ kvexrules paint north\ndone\n",
    .run = nullptr,
    .statuses = paintStatuses,
};

TEST(Help, ExplainsOneCommand) {
    EXPECT_EQ(helpFor(paint), R"(Usage: kvexrules paint [OPTION...] WALL [DOOR...]

Paints a wall. It takes its time for this, because no wall is like the other
one, ever.

These are kept:
  one  two

Options:
  --colour red|blå  the colour
  --place-of-the-brush FOLDER|FILE
                    where it lies
  --dry             wait until the colour is dry, and then as long again, before
                    the next one

Exit status:
  0   painted
  1   still wet

Example:
  $ kvexrules paint north
  done
)");
}

TEST(Help, ListsTheCommands) {
    const std::array<const Command *, 2> table{&paint, &contactsListCommand};
    EXPECT_THAT(generalHelp(table),
                testing::StartsWith(R"(Usage: kvexrules [COMMAND] [OPTION...] [WORD...]

Commands (paint if you name none):
  paint          paint walls
  contacts list  list the contacts of the address book

"kvexrules help COMMAND" and "kvexrules COMMAND --help" explain a command.

Database:
)"));
}

TEST(Help, FitsIntoEightyColumns) {
    for (const std::string &page : allPages()) {
        std::istringstream lines(page);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(charactersIn(line), 80U) << line;
        }
    }
}

TEST(Help, SaysWhatAllCommandsHaveInCommon) {
    EXPECT_THAT(generalHelp(commands()), testing::AllOf(HasSubstr("\n  $KVEX_DATABASE\n"),
                                                        HasSubstr("\nExit status:\n  0   done\n")));
}

TEST(CommandTable, HasATextAndAnExampleForEveryCommand) {
    for (const Command *command : commands()) {
        EXPECT_NE(command->summary, "") << command->name;
        EXPECT_TRUE(command->description.ends_with(".\n")) << command->name;
        EXPECT_THAT(command->example, HasSubstr("$ kvexrules " + std::string(command->name)))
            << command->name;
        EXPECT_TRUE(command->example.ends_with("\n")) << command->name;
        EXPECT_NE(command->run, nullptr) << command->name;
    }
}

TEST(CommandTable, NamesEachCommandOnce) {
    std::set<std::string_view> names;
    for (const Command *command : commands()) {
        EXPECT_TRUE(names.insert(command->name).second) << command->name;
        EXPECT_EQ(std::ranges::find(commands(), command->name.substr(0, command->name.find(' ')),
                                    &Command::name) == commands().end(),
                  command->name.find(' ') != std::string_view::npos)
            << command->name;
    }
}

TEST(CommandTable, HasOneKindOfEachOption) {
    std::map<std::string_view, bool> takeValues;
    for (const Command *command : commands()) {
        for (const Option &option : command->options) {
            const auto [known, isNew] = takeValues.emplace(option.name, option.takesValue());
            EXPECT_EQ(known->second, option.takesValue()) << command->name << " " << option.name;
            EXPECT_TRUE(option.name.starts_with("--")) << option.name;
        }
    }
}

TEST(CommandTable, RepeatsOnlyLastWords) {
    for (const Command *command : commands()) {
        for (const Word &word : command->words) {
            EXPECT_TRUE(!word.repeats || &word == &command->words.back()) << command->name;
        }
    }
}

} // namespace
} // namespace kvex::host
