#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "host/matching/MessageLines.h"
#include "host/matching/Moment.h"
#include "host/matching/PlayReport.h"
#include "host/rules/RuleRows.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace kvex::host {
namespace {

constexpr Option fromOption{
    .name = "--from", .value = "NUMBER", .help = "the number of the message's sender"};
constexpr Option accountOption{
    .name = "--account", .value = "ID", .help = "the id of the account through which it came in"};
constexpr Option textOption{.name = "--text", .value = "TEXT", .help = "its text"};
constexpr Option atOption{.name = "--at",
                          .value = "TIME",
                          .help = "when it came in, such as \"2024-03-01 09:00\" (default: now)"};
constexpr Option serviceOption{.name = "--service", .value = "", .help = "it is a service message"};
constexpr Option messagesOption{.name = "--messages",
                                .value = "FILE",
                                .help = "play the messages of a file of JSON Lines",
                                .completes = Completes::file};
constexpr std::array<std::string_view, 2> formats{"text", "json"};
constexpr Option formatOption{.name = "--format",
                              .value = "",
                              .help = "how to print the result (default: text)",
                              .choices = formats};

/// The message that the options describe.
Message messageOf(const Request &request) {
    for (const Option *needed : {&fromOption, &accountOption, &textOption}) {
        if (!request.has(*needed)) {
            throw Failure("The option " + std::string(needed->name) +
                          " is missing. Give --from, --account and --text, or --messages FILE.");
        }
    }
    const auto account = wholeNumber<std::int32_t>(request.value(accountOption));
    if (!account) {
        throw Failure("\"" + request.value(accountOption) +
                      "\" is not the id of an account. The ids are numbers.");
    }
    const std::string at = request.value(atOption);
    const auto moment = request.has(atOption) ? momentFrom(at) : momentNow();
    if (!moment) {
        throw Failure("\"" + at + "\" is no moment. Write it as " + std::string(momentForms) + ".");
    }
    return {fromUtf8(request.value(fromOption)), *account, fromUtf8(request.value(textOption)),
            *moment, request.has(serviceOption)};
}

void refuseOptionsOfOneMessage(const Request &request) {
    for (const Option *option :
         {&fromOption, &accountOption, &textOption, &atOption, &serviceOption}) {
        if (request.has(*option)) {
            throw Failure("The options --messages and " + std::string(option->name) +
                          " exclude each other, because each line of the file has its own values.");
        }
    }
}

/// The enabled rules, read through the component.
std::vector<PlayedRule> enabledRules(const Settings &settings) {
    std::vector<StoredRule> rows;
    try {
        rows = readRules(*openConnection(settings));
    } catch (const Error &error) {
        failFor(settings, error);
    }
    std::erase_if(rows, [](const StoredRule &row) { return !row.isActive; });
    const RuleStrings strings = createRuleStrings();
    std::vector<PlayedRule> rules;
    for (StoredRule &row : rows) {
        RuleRead read = strings.read(row.queryParam, row.actionParam);
        rules.push_back({std::move(row), std::move(read)});
    }
    return rules;
}

/// A file that is read line by line; "-" is standard input.
class MessageFile {
public:
    explicit MessageFile(const std::string &name)
        : name_(name == "-" ? "standard input" : name), isStandardInput_(name == "-") {
        if (!isStandardInput_) {
            file_.open(name, std::ios::binary);
            if (!file_) {
                fail();
            }
        }
    }

    void play(Tally &tally) {
        std::istream &stream = isStandardInput_ ? std::cin : file_;
        const std::u16string now = momentNow();
        Progress progress("Playing messages", totalBytes());
        std::string line;
        for (std::size_t number = 1; std::getline(stream, line); ++number) {
            if (!isBlankLine(line)) {
                try {
                    tally.play(messageFrom(line, now), number);
                } catch (const BadMessage &error) {
                    throw Failure(name_ + ":" + std::to_string(number) + ": " +
                                  asSentence(error.what()) + " Nothing was counted.");
                }
            }
            progress.step(line.size() + 1);
        }
        if (stream.bad()) {
            fail();
        }
    }

private:
    /// 0 when it cannot be known, as with a pipe.
    [[nodiscard]] std::size_t totalBytes() const {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(name_, error);
        return error || isStandardInput_ ? 0 : static_cast<std::size_t>(size);
    }
    [[noreturn]] void fail() const {
        throw Failure("The messages in " + name_ + " cannot be read (" + std::strerror(errno) +
                      "). Name a file that you can read.");
    }

    std::string name_;
    bool isStandardInput_;
    std::ifstream file_;
};

int tryRules(const Request &request) {
    const bool asDocument = request.value(formatOption) == "json";
    const bool manyMessages = request.has(messagesOption);
    if (manyMessages) {
        refuseOptionsOfOneMessage(request);
    }
    const auto message = manyMessages ? Message() : messageOf(request);
    Matcher matcher(enabledRules(settingsFor(request)));
    if (!manyMessages) {
        const Outcome outcome = matcher.explain(message);
        print(asDocument ? asJson(outcome, printsToTerminal()) : asText(outcome));
        return exit_status::done;
    }
    Tally tally(matcher);
    MessageFile(request.value(messagesOption)).play(tally);
    print(asDocument ? asJson(tally, printsToTerminal()) : asText(tally));
    return exit_status::done;
}

constexpr std::array options{fromOption,    accountOption,  textOption,   atOption,
                             serviceOption, messagesOption, formatOption, databaseOption};

} // namespace

constexpr Command tryCommand{
    .name = "try",
    .words = {},
    .options = options,
    .summary = "say which rules would apply to a message, and why others would not",
    .description =
        R"(Plays a message through the enabled rules, in the order in which they apply. For
each rule the command prints that it applies and what it would do, or the first
condition that fails. It sends nothing and changes nothing.

With --messages it plays each line of a file of JSON Lines, and counts for each rule the
messages to which it applies. "-" means standard input. A line is an object such as

  {"from": "98111", "account": 1, "text": "Hello", "at": "2024-03-01 09:00"}

"at" and "service" (true or false) may be missing. A time without a time zone is local.
docs/matching.md says how this program reads conditions. The server decides.
)",
    .example = R"($ kvexrules try --from 9811100011 --account 1 --text STOP | head -1
rule 1 "Not stopped in March": does not apply: the text begins with "STOP"
$ echo '{"from": "98", "account": 1, "text": "Hello"}' > messages.jsonl
$ kvexrules try --messages messages.jsonl
1 message, 6 enabled rules
  rule 1 "Not stopped in March": 0 messages
  rule 2 "Help 🌙 at night": 0 messages
  rule 3 "दिल्ली के संदेश": 0 messages
  rule 4 "Strangers": 0 messages
  rule 6 "No services": 1 message
  rule 7 "Everything to the system": 1 message
Messages that no rule touched: 0
Rules that no message touched: 4
  rule 1 "Not stopped in March"
  rule 2 "Help 🌙 at night"
  rule 3 "दिल्ली के संदेश"
  rule 4 "Strangers"
)",
    .run = tryRules,
};

} // namespace kvex::host
