// An export document as it was read, before it meets a database.
#pragma once

#include "host/transfer/Problem.h"
#include "host/transfer/RuleTable.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// A user or an account of the document. Without a name it was unknown when it was exported.
struct DocumentName {
    std::u16string id;
    ColumnText name;
    std::size_t line;
};

/// The line of a field, then those of its entries.
using FieldLines = std::map<std::u16string, std::vector<std::size_t>, std::less<>>;

struct DocumentRule {
    std::size_t line;
    /// With both strings, whether the document has them or they were made of the fields.
    RuleContent content;
    RuleValues values;
    /// False when someone wrote the fields alone.
    bool hasStrings;
    /// Empty when the document has the strings alone.
    FieldLines lines;

    /// The line of the entry at `place` of a field, or the best line that is known.
    [[nodiscard]] std::size_t lineOf(std::u16string_view field, std::size_t place) const;
};

struct RuleDocument {
    std::vector<DocumentName> users;
    std::vector<DocumentName> accounts;
    std::vector<DocumentRule> rules;
};

/// Reads a document. Adds a problem for each part that has another form than docs/format.md says.
/// Adds one as well for fields that contradict the strings or would read back differently. After a
/// problem it returns nothing. Fails as RuleStrings does.
[[nodiscard]] std::optional<RuleDocument>
readRuleDocument(std::string_view text, const RuleStrings &strings, Problems &problems);

} // namespace kvex::host
