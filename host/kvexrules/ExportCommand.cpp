#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"
#include "host/kvexrules/UserFiles.h"
#include "host/suite/DriverTransaction.h"
#include "host/transfer/RuleExport.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <set>

namespace kvex::host {
namespace {

/// Keeps the rules with these ids. Raises a Failure when there is no such rule.
void keepOnly(const std::vector<std::string> &words, std::vector<RuleRow> &rules) {
    std::set<std::u16string> wanted;
    for (const std::string &word : words) {
        wanted.insert(fromUtf8(ruleId(word)));
    }
    for (const std::u16string &id : wanted) {
        if (std::ranges::none_of(rules, [&](const RuleRow &rule) { return rule.id == id; })) {
            throw Failure("There is no rule " + toUtf8(id) +
                              ", so nothing was exported. To list the rules: kvexrules list",
                          exit_status::refused);
        }
    }
    std::erase_if(rules, [&](const RuleRow &rule) { return !wanted.contains(rule.id); });
}

/// True when the file begins as an export does.
bool isExport(const std::string &file) {
    std::ifstream stream(file, std::ios::binary);
    std::string start(exportStart.size(), '\0');
    stream.read(start.data(), static_cast<std::streamsize>(start.size()));
    return stream.gcount() == static_cast<std::streamsize>(start.size()) && start == exportStart;
}

constexpr Option fileOption{.name = "--file",
                            .value = "FILE",
                            .help = "the file to write (default: standard output)",
                            .completes = Completes::file};

int exportRules(const Request &request) {
    const Settings settings = settingsFor(request);
    std::string document;
    std::size_t count = 0;
    try {
        const auto connection = openConnection(settings);
        const std::shared_ptr<recordset::Driver> driver = connection->driver().lock();
        const Snapshot snapshot(*driver);
        RuleTables tables = readRuleTables(*connection);
        if (!request.words.empty()) {
            keepOnly(request.words, tables.rules);
        }
        count = tables.rules.size();
        document = exportDocument(tables.rules, tables.users, tables.accounts, createRuleStrings());
    } catch (const Error &error) {
        failFor(settings, error);
    }
    const std::string file = request.value(fileOption);
    if (file.empty() || file == "-") {
        print(printsToTerminal() ? toUtf8(harmlessLines(fromUtf8(document))) : document);
        return exit_status::done;
    }
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored) && !isExport(file)) {
        throw Failure(inputName(file) + " exists and is no export, so it was not changed. Name "
                                        "another file.",
                      exit_status::refused);
    }
    writeOwnersFile(file, document, Existing::replace);
    report(std::to_string(count) + (count == 1 ? " rule" : " rules") + " written.");
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID", .isOptional = true, .repeats = true}};
constexpr std::array options{fileOption, databaseOption};

} // namespace

constexpr Command exportCommand{
    .name = "export",
    .words = words,
    .options = options,
    .summary = "write rules as a JSON document, for version control and import",
    .description = R"(Writes all rules, or those with the ids that "kvexrules list" shows, as one
JSON document in the order in which they apply. It has every field of each rule, and
the two texts as they are stored. So it also holds a rule that cannot be read.

The same rules give the same bytes. Keep the file in version control: the difference of
two exports is the difference of the rules. --file replaces an older export, but no
other file. Only you can read the new file.
)",
    .example = R"($ kvexrules export --file rules.json
7 rules written.
$ kvexrules export 7 | head -3
{
  "format": "kvex-rules",
  "version": 1,
)",
    .run = exportRules,
};

} // namespace kvex::host
