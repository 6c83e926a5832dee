#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "host/kvexrules/UserFiles.h"
#include "host/suite/Backup.h"
#include "host/transfer/ImportCheck.h"
#include "host/transfer/RuleExport.h"
#include "host/transfer/RuleImport.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

constexpr Option dryRunOption{
    .name = "--dry-run", .value = "", .help = "say what would change, and change nothing"};
constexpr Option asNewOption{
    .name = "--as-new", .value = "", .help = "add every rule behind the stored ones"};
constexpr Option replaceOption{
    .name = "--replace", .value = "", .help = "remove the stored rules that FILE does not have"};

ImportMode modeOf(const Request &request) {
    if (request.has(asNewOption) && request.has(replaceOption)) {
        throw Failure("Give --as-new or --replace, but not both.");
    }
    if (request.has(replaceOption)) {
        return ImportMode::replace;
    }
    return request.has(asNewOption) ? ImportMode::asNew : ImportMode::update;
}

/// Names the problems in the order of their lines, and ends the command when there is one.
void endFor(Problems problems, const std::string &file, int status) {
    if (problems.empty()) {
        return;
    }
    constexpr std::size_t most = 20;
    std::ranges::stable_sort(problems, {}, &Problem::line);
    for (std::size_t at = 0; at < std::min(problems.size(), most); ++at) {
        complain(inputName(file) + ":" + std::to_string(problems[at].line) + ": " +
                 problems[at].sentences);
    }
    const std::string more =
        problems.size() > most ? std::to_string(problems.size() - most) + " more problems. " : "";
    throw Failure(more + "Nothing was imported. Correct " + inputName(file) +
                      (status == exit_status::refused ? " or the database." : "."),
                  status);
}

/// "2 rules added, 1 changed, 0 removed, 3 unchanged."
std::string summaryOf(const ImportEffect &effect) {
    return std::to_string(effect.added) + (effect.added == 1 ? " rule" : " rules") + " added, " +
           std::to_string(effect.changed) + " changed, " + std::to_string(effect.removed) +
           " removed, " + std::to_string(effect.unchanged) + " unchanged" +
           (effect.reorders ? ", in another order." : ".");
}

/// Says what the import changes. The import goes on when the reader has gone.
void announce(const ImportEffect &effect) {
    std::string text;
    for (const std::string &line : effect.lines) {
        text += line + "\n";
    }
    try {
        print(text);
    } catch (const ReaderGone &) {
    }
}

int importRules(const Request &request) {
    const std::string &file = request.words.front();
    const ImportMode mode = modeOf(request);
    const Settings settings = settingsFor(request);
    const std::string text = contentOf(file, "an export of rules");
    try {
        const RuleStrings strings = createRuleStrings();
        Problems problems;
        const std::optional<RuleDocument> document = readRuleDocument(text, strings, problems);
        endFor(std::move(problems), file, exit_status::unusable);

        const auto connection = openConnection(settings);
        const RuleTables tables = readRuleTables(*connection);
        const ImportPlan plan = planImport(*document, tables.rules, mode);
        Problems misfits;
        checkImport(plan, *document, tables, strings, misfits);
        endFor(std::move(misfits), file, exit_status::refused);

        const ImportEffect effect = effectOf(plan, *document, tables.rules, strings);
        announce(effect);
        if (request.has(dryRunOption)) {
            report("Nothing was changed. An import would give this:");
            report(summaryOf(effect));
            return exit_status::done;
        }
        if (effect.replacesStored()) {
            report("kept: " + keepBackup(*connection, "import").string());
        }
        if (effect.writes) {
            try {
                Progress progress("Importing rules", plan.order.size());
                applyImport(*connection, plan, *document, tables, [&] { progress.step(); });
            } catch (const Error &error) {
                failFor(settings, error, exit_status::refused);
            }
        }
        report(summaryOf(effect));
        return exit_status::done;
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

constexpr std::array words{Word{.name = "FILE", .completes = Completes::file}};
constexpr std::array options{dryRunOption, asNewOption, replaceOption, databaseOption};

constexpr std::array statuses{
    ExitStatus{exit_status::done, "all rules of the file are stored, or could be"},
    ExitStatus{exit_status::refused, "the file does not fit the database, or the database refused"},
    ExitStatus{exit_status::unusable, "the file or the database cannot be read"},
};

} // namespace

constexpr Command importCommand{
    .name = "import",
    .words = words,
    .options = options,
    .summary = "store the rules of a JSON document",
    .description = R"(Reads a document as "kvexrules export" writes it, says what it changes, and
stores all of it or nothing. "-" means standard input.

A rule takes the place of the stored rule with the same name, and any other rule is
added. Stored rules that the document does not have stay, unless you give --replace. The
rules of the document get its order. Before a stored rule changes, the command makes a
backup of the database, and prints its path.

A rule needs its fields ("rule"), its two texts ("queryParam" and "actionParam"), or both
if they say the same. A rule with its texts is stored exactly so, even if it cannot be
read. A rule without them is checked as the editor does. The users and accounts of the
document must have the same ids and names in the database.
)",
    .example = R"($ kvexrules export --file rules.json
7 rules written.
$ sed -i 's/"active": false/"active": true/' rules.json
$ kvexrules import rules.json --dry-run
change 8 "At night": switched on
Nothing was changed. An import would give this:
0 rules added, 1 changed, 0 removed, 6 unchanged.
)",
    .run = importRules,
    .statuses = statuses,
};

} // namespace kvex::host
