#include "host/kvexrules/CommandLine.h"

#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Failure.h"

#include <array>
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
    return parseArguments(arguments, commands());
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
    for (const char *name :
         {"edit", "list", "show", "init", "register", "unregister", "help", "version"}) {
        EXPECT_EQ(parsed({name}).command->name, name);
    }
    EXPECT_EQ(parsed({"contacts", "import", "a.vcf"}).command->name, "contacts import");
    EXPECT_EQ(parsed({"contacts", "export"}).command->name, "contacts export");
    EXPECT_EQ(parsed({"contacts", "remove", "1"}).command->name, "contacts remove");
    EXPECT_EQ(parsed({"contacts", "list"}).command->name, "contacts list");
}

TEST(CommandLine, TakesOptionsBeforeAndAfterTheCommand) {
    const Request request = parsed({"--database", "a.db", "edit", "--user", "7", "--log=b.log"});
    EXPECT_EQ(request.options.at("--database"), "a.db");
    EXPECT_EQ(request.options.at("--user"), "7");
    EXPECT_EQ(request.options.at("--log"), "b.log");
    EXPECT_FALSE(request.options.contains("--rule"));
}

TEST(CommandLine, KeepsAnEqualsSignInAValue) {
    EXPECT_EQ(parsed({"list", "--database=Provider=SQLite;Data Source=a"}).options.at("--database"),
              "Provider=SQLite;Data Source=a");
}

TEST(CommandLine, UsesTheLastValueOfARepeatedOption) {
    EXPECT_EQ(parsed({"--rule", "1", "--rule", "2"}).options.at("--rule"), "2");
}

TEST(CommandLine, TakesWordsWhereTheyBelong) {
    const Request request = parsed({"show", "3", "--format", "ansi", "1"});
    EXPECT_THAT(request.words, ElementsAre("3", "1"));
    EXPECT_EQ(request.options.at("--format"), "ansi");
}

TEST(CommandLine, TakesEverythingAfterTwoDashesAsWords) {
    EXPECT_THAT(parsed({"show", "--", "-3", "--all"}).words, ElementsAre("-3", "--all"));
}

TEST(CommandLine, HasOptionsThatStandForCommands) {
    EXPECT_EQ(parsed({"--help"}).command->name, "help");
    EXPECT_EQ(parsed({"list", "-h"}).command->name, "help");
    EXPECT_THAT(parsed({"contacts", "--quick", "-h", "list"}).words,
                ElementsAre("contacts", "list"));
    const Request request = parsed({"--version", "show", "1"});
    EXPECT_EQ(request.command->name, "version");
    EXPECT_THAT(request.words, IsEmpty());
}

TEST(CommandLine, TakesAWordInBracketsAsItStands) {
    EXPECT_THAT(parsed({"show", "[1,2]", "++", "/3"}).words, ElementsAre("[1,2]", "++", "/3"));
}

TEST(CommandLine, TakesTheNextArgumentAsAValueWhateverItIs) {
    EXPECT_EQ(parsed({"show", "1", "--log", "--all"}).options.at("--log"), "--all");
    EXPECT_EQ(parsed({"show", "1", "--log", "--"}).options.at("--log"), "--");
    EXPECT_EQ(parsed({"show", "1", "--log", "[a,b]"}).options.at("--log"), "[a,b]");
    EXPECT_EQ(parsed({"show", "1", "--log", "--format="}).options.at("--log"), "--format=");
}

TEST(CommandLine, TakesTheCommandAfterTwoDashes) {
    EXPECT_EQ(parsed({"--", "list"}).command->name, "list");
}

TEST(CommandLine, NamesTheNearestCommandAndOption) {
    EXPECT_EQ(refusal({"contcts", "list"}),
              "There is no command \"contcts\". Did you mean contacts? See: kvexrules help");
    EXPECT_EQ(refusal({"contacts", "improt", "a.vcf"}),
              "There is no command \"contacts improt\". Did you mean import? See: kvexrules help "
              "contacts");
    EXPECT_EQ(refusal({"list", "--databse=a"}),
              "There is no option --databse. Did you mean --database? See: kvexrules help list");
    EXPECT_EQ(refusal({"list", "-database"}),
              "There is no option -database. Did you mean --database? See: kvexrules help list");
}

TEST(CommandLine, NamesNoCommandThatIsFarFromTheWord) {
    EXPECT_EQ(refusal({"7"}), "There is no command \"7\". See: kvexrules help");
    EXPECT_EQ(refusal({"contacts", "sort"}),
              "There is no command \"contacts sort\". See: kvexrules help contacts");
}

TEST(CommandLine, TakesOrRefusesWhateverIsTyped) {
    constexpr std::array odd{
        "",      "-",    "--",    "---",    "=",         "-=",     "--=",   "--=a", "-h=a",
        "-5",    "-é",   "++",    "/?",     "[",         "[]",     "{a,b}", "\xff", "--\xff",
        "--log", "-log", "--all", "--all=", "--format=", "--help", "%%",    "show", "help"};
    for (const char *first : {"", "--", "--log", "show", "--help"}) {
        for (const char *second : odd) {
            for (const char *third : odd) {
                try {
                    EXPECT_NE(parsed({first, second, third}).command, nullptr);
                } catch (const Failure &failure) {
                    EXPECT_STRNE(failure.what(), "");
                } catch (const std::exception &error) {
                    ADD_FAILURE() << error.what() << " for " << first << " " << second << " "
                                  << third;
                }
            }
        }
    }
}

TEST(CommandLine, RefusesHalfACommand) {
    EXPECT_EQ(refusal({"contacts", "--user", "1"}),
              "The command contacts needs a second word: import, export, remove or list. See: "
              "kvexrules help contacts");
}

TEST(CommandLine, RefusesMissingWords) {
    EXPECT_EQ(
        refusal({"contacts", "import"}),
        "The command contacts import needs FILE, as in: kvexrules contacts import [OPTION...] "
        "FILE. See: kvexrules help contacts import");
}

TEST(CommandLine, RefusesAValueThatIsNoChoice) {
    try {
        static_cast<void>(parsed({"show", "1", "--format", "vcard"}));
        ADD_FAILURE() << "no Failure was raised";
    } catch (const Failure &failure) {
        EXPECT_STREQ(failure.what(),
                     "There is no format \"vcard\". The formats are text, ansi and html.");
    }
}

TEST(CommandLine, RefusesUnknownCommandsAndOptions) {
    EXPECT_THAT(refusal({"lsit"}), HasSubstr("no command \"lsit\""));
    EXPECT_THAT(refusal({""}), HasSubstr("no command \"\""));
    EXPECT_EQ(refusal({"--databse", "a"}),
              "There is no option --databse. Did you mean --database? See: kvexrules help");
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
    EXPECT_EQ(refusal({"contacts", "DSN=sms;PWD=s3cret"}),
              "There is no command \"contacts DSN=…\". See: kvexrules help contacts");
    EXPECT_EQ(refusal({"list", "DSN=sms;PWD=s3cret"}),
              "The command list does not take \"DSN=…\". See: kvexrules help list");
    EXPECT_EQ(refusal({"-PWD=s3cret"}), "There is no option -PWD. See: kvexrules help edit");
}

TEST(CommandLine, SaysExactlyWhatItRefuses) {
    EXPECT_EQ(refusal({"lsit"}),
              "There is no command \"lsit\". Did you mean list? See: kvexrules help");
    EXPECT_EQ(refusal({"--quick=1"}), "There is no option --quick. See: kvexrules help edit");
    EXPECT_EQ(refusal({"--rule"}),
              "The option --rule needs a value: --rule ID. See: kvexrules help edit");
    EXPECT_EQ(refusal({"show", "1", "--format="}),
              "The option --format needs a value: --format text|ansi|html. See: kvexrules help");
    EXPECT_EQ(refusal({"list", "--format="}),
              "The option --format needs a value: --format text|json. See: kvexrules help");
    EXPECT_EQ(refusal({"show", "--log", "--", "--format="}),
              "The option --format needs a value: --format text|ansi|html. See: kvexrules help");
    EXPECT_EQ(refusal({"show", "--all="}), "The option --all takes no value. See: kvexrules help");
    EXPECT_EQ(refusal({"list", "--all"}),
              "The command list has no option --all. See: kvexrules help list");
    EXPECT_EQ(refusal({"list", "-"}),
              "The command list does not take \"-\". See: kvexrules help list");
}

TEST(CommandLine, TakesADashForAWord) {
    EXPECT_THAT(parsed({"show", "-", "--", "--"}).words, ElementsAre("-", "--"));
}

TEST(CommandLine, KeepsOptionsBeforeTwoDashesAndTakesWordsAfterThem) {
    const Request request = parsed({"show", "--all", "--", "-h"});
    EXPECT_EQ(request.options.at("--all"), "");
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

} // namespace
} // namespace kvex::host
