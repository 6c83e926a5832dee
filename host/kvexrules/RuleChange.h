// What the commands that change rules share.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Settings.h"
#include "host/rules/OpenRules.h"
#include "host/rules/RuleChanges.h"

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace kvex::host {

inline constexpr Option dryRunOption{
    .name = "--dry-run", .value = "", .help = "only print what would be done"};

/// Whether a backup of the database is made before the change.
enum class Keep { nothing, backup };

/// A change of rules that the user asked for. Every function raises a Failure when it cannot do its
/// work, with the status `refused` unless the rules cannot be read.
class RuleChange {
public:
    /// Reads the rules of the chosen database.
    explicit RuleChange(const Request &request);

    [[nodiscard]] const Rules &rules() const { return open_.rules(); }
    [[nodiscard]] bool isDryRun() const { return isDryRun_; }

    /// The ids that the user wrote. Raises a Failure that names all ids that are no rule's.
    [[nodiscard]] RuleIds ids(std::span<const std::string> words) const;
    /// The rule whose id the user wrote.
    [[nodiscard]] const StoredRule &rule(const std::string &word) const;

    /// The name that the user wrote, as the editor would store it for the rule. Raises a Failure
    /// when the editor would refuse it.
    [[nodiscard]] std::u16string name(const std::string &word, const StoredRule &rule,
                                      Naming naming) const;

    /// Stores `wanted` as OpenRules::store does, unless this is a dry run.
    void store(Rules &wanted, Keep keep = Keep::nothing);
    /// Prints `sentences`, one a line, after a line that says if this is a dry run. Then names the
    /// backup.
    void tell(std::span<const std::string> sentences) const;

private:
    Settings settings_;
    std::string command_;
    bool isDryRun_;
    std::unique_ptr<recordset::ClientConnection> connection_;
    OpenRules open_;
    std::filesystem::path kept_;
};

/// `Rule 3 "Strangers"`, for the beginning of a sentence.
[[nodiscard]] std::string ruleInWords(const StoredRule &rule);

} // namespace kvex::host
