#include "host/kvexrules/CommandLine.h"

#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Request parsed(const std::vector<const char *> &arguments) {
    return parseArguments(arguments, commands(), options());
}

std::string refusal(const std::vector<const char *> &arguments) {
    try {
        const Request request = parsed(arguments);
        ADD_FAILURE() << "no Failure was raised; the command is " << request.command->name;
        return {};
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.status(), exit_status::unusable);
        EXPECT_THAT(failure.what(), HasSubstr("kvexrules help"));
        return failure.what();
    }
}

TEST(CommandLine, WithoutACommandEdits) {
    EXPECT_EQ(parsed({}).command->name, "edit");
    EXPECT_EQ(parsed({"--rule", "3"}).command->name, "edit");
}

TEST(CommandLine, HasEveryCommand) {
    for (const char *name : {"edit", "list", "show", "contacts", "init", "register", "unregister",
                             "help", "version"}) {
        EXPECT_EQ(parsed({name}).command->name, name);
    }
}

TEST(CommandLine, TakesOptionsBeforeAndAfterTheCommand) {
    const Request request = parsed({"--database", "a.db", "edit", "--user", "7", "--log=b.log"});
    EXPECT_EQ(request.value(Option::database), "a.db");
    EXPECT_EQ(request.value(Option::user), "7");
    EXPECT_EQ(request.value(Option::log), "b.log");
    EXPECT_FALSE(request.has(Option::rule));
    EXPECT_EQ(request.value(Option::rule), "");
}

TEST(CommandLine, KeepsAnEqualsSignInAValue) {
    EXPECT_EQ(parsed({"list", "--database=Provider=SQLite;Data Source=a"}).value(Option::database),
              "Provider=SQLite;Data Source=a");
}

TEST(CommandLine, UsesTheLastValueOfARepeatedOption) {
    EXPECT_EQ(parsed({"--rule", "1", "--rule", "2"}).value(Option::rule), "2");
}

TEST(CommandLine, TakesWordsWhereTheyBelong) {
    const Request request = parsed({"show", "3", "--format", "ansi", "1"});
    EXPECT_THAT(request.words, ElementsAre("3", "1"));
    EXPECT_EQ(request.value(Option::format), "ansi");
}

TEST(CommandLine, TakesEverythingAfterTwoDashesAsWords) {
    EXPECT_THAT(parsed({"show", "--", "-3", "--all"}).words, ElementsAre("-3", "--all"));
}

TEST(CommandLine, HasOptionsThatStandForCommands) {
    EXPECT_EQ(parsed({"--help"}).command->name, "help");
    EXPECT_EQ(parsed({"list", "-h"}).command->name, "help");
    const Request request = parsed({"--version", "show", "1"});
    EXPECT_EQ(request.command->name, "version");
    EXPECT_THAT(request.words, IsEmpty());
}

TEST(CommandLine, RefusesUnknownCommandsAndOptions) {
    EXPECT_THAT(refusal({"lsit"}), HasSubstr("no command \"lsit\""));
    EXPECT_THAT(refusal({""}), HasSubstr("no command \"\""));
    EXPECT_THAT(refusal({"--databse", "a"}), HasSubstr("no option --databse"));
    EXPECT_THAT(refusal({"-x"}), HasSubstr("no option -x"));
}

TEST(CommandLine, RefusesOptionsOfOtherCommands) {
    EXPECT_THAT(refusal({"list", "--rule", "1"}), HasSubstr("list has no option --rule"));
    EXPECT_THAT(refusal({"edit", "--sample"}), HasSubstr("edit has no option --sample"));
}

TEST(CommandLine, RefusesWordsWhereNoneBelong) {
    EXPECT_THAT(refusal({"list", "3"}), HasSubstr("list does not take \"3\""));
    EXPECT_THAT(refusal({"edit", "3"}), HasSubstr("edit does not take \"3\""));
}

TEST(CommandLine, RefusesAMissingValue) {
    EXPECT_THAT(refusal({"--database"}), HasSubstr("--database needs a value"));
    EXPECT_THAT(refusal({"--database="}), HasSubstr("--database needs a value"));
    EXPECT_THAT(refusal({"--database", ""}), HasSubstr("--database needs a value"));
}

TEST(CommandLine, RefusesAValueWhereNoneBelongs) {
    EXPECT_THAT(refusal({"show", "--all=yes"}), HasSubstr("--all takes no value"));
}

TEST(CommandLine, NamesNoWholeConnectionStringInARefusal) {
    EXPECT_EQ(refusal({"DSN=sms;PWD=s3cret"}),
              "There is no command \"DSN=…\". See: kvexrules help");
    EXPECT_EQ(refusal({"list", "DSN=sms;PWD=s3cret"}),
              "The command list does not take \"DSN=…\". See: kvexrules help");
}

TEST(CommandLine, SaysExactlyWhatItRefuses) {
    EXPECT_EQ(refusal({"lsit"}), "There is no command \"lsit\". See: kvexrules help");
    EXPECT_EQ(refusal({"--quick=1"}), "There is no option --quick. See: kvexrules help");
    EXPECT_EQ(refusal({"--rule"}),
              "The option --rule needs a value: --rule ID. See: kvexrules help");
    EXPECT_EQ(refusal({"show", "--all="}), "The option --all takes no value. See: kvexrules help");
    EXPECT_EQ(refusal({"list", "--all"}),
              "The command list has no option --all. See: kvexrules help");
    EXPECT_EQ(refusal({"list", "-"}), "The command list does not take \"-\". See: kvexrules help");
}

TEST(CommandLine, TakesADashForAWord) {
    EXPECT_THAT(parsed({"show", "-", "--", "--"}).words, ElementsAre("-", "--"));
}

TEST(CommandLine, KeepsOptionsBeforeTwoDashesAndTakesWordsAfterThem) {
    const Request request = parsed({"show", "--all", "--", "-h"});
    EXPECT_TRUE(request.has(Option::all));
    EXPECT_EQ(request.value(Option::all), "");
    EXPECT_THAT(request.words, ElementsAre("-h"));
}

TEST(Passwords, AreWrittenOverInTheArguments) {
    std::string password = "--database=DSN=sms;PWD=s3cret;UID=a";
    std::string url = "x://a:s3cret@b";
    std::string shorter = "PWD=a";
    std::string other = "list";
    const std::vector<char *> arguments{password.data(), url.data(), shorter.data(), other.data()};
    hidePasswords(arguments);
    EXPECT_EQ(password, std::string("--database=DSN=sms;PWD=***;UID=a") + std::string(3, '\0'));
    EXPECT_EQ(url, std::string("x://a:***@b") + std::string(3, '\0'));
    EXPECT_EQ(shorter, "PWD=*");
    EXPECT_EQ(other, "list");
}

TEST(Help, AlwaysPutsABlankBetweenAWideFormAndItsText) {
    const CommandDescription wide{
        "show", std::string_view("123456789012345678901234567890"), "this", {}, true, nullptr};
    EXPECT_THAT(helpText(std::vector{wide}, {}),
                HasSubstr("\n  show 123456789012345678901234567890 this\n"));
}

TEST(Help, NamesEveryCommandAndOption) {
    const std::string text = helpText(commands(), options());
    for (const CommandDescription &command : commands()) {
        EXPECT_THAT(text, HasSubstr("  " + std::string(command.name) + " "));
        EXPECT_THAT(text, HasSubstr(std::string(command.help)));
    }
    for (const OptionDescription &option : options()) {
        EXPECT_THAT(text, HasSubstr("  " + std::string(option.name) + " "));
        EXPECT_THAT(text, HasSubstr(std::string(option.help)));
    }
}

TEST(Help, AlignsItsExplanations) {
    const CommandDescription show{"show", "ID…", "this", {}, true, nullptr};
    const CommandDescription list{"list", "", "that", {}, false, nullptr};
    const std::string text = helpText(std::vector{show, list}, {});
    EXPECT_THAT(text, HasSubstr("  show ID…" + std::string(26, ' ') + "this\n"));
    EXPECT_THAT(text, HasSubstr("  list " + std::string(29, ' ') + "that\n"));
}

} // namespace
} // namespace kvex::host
