// What an import would change.
#pragma once

#include "host/transfer/RuleDocument.h"
#include "host/transfer/RuleTable.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kvex::host {

/// - update: a rule takes the place of the stored one with exactly its name; the others are added.
///   Stored rules that the document lacks stay.
/// - asNew: every rule is added, behind the stored ones.
/// - replace: as update, but stored rules that the document lacks are removed.
///
/// Where several rules have the same name, the first takes the place of the first, and so on.
enum class ImportMode { update, asNew, replace };

/// One rule after the import: a stored row, a rule of the document, or both when the second takes
/// the place of the first.
struct PlannedRule {
    std::optional<std::size_t> row;
    std::optional<std::size_t> rule;
};

struct ImportPlan {
    /// In the order in which they will apply, so the first gets the priority 1.
    ///
    /// The rules of the document stand in their order: they share the places that their stored rows
    /// had. A new rule follows the one before it in the document. Before any other it stands
    /// directly before the first of them; when all are new, they stand at the end.
    std::vector<PlannedRule> order;
    /// Rows, in their order.
    std::vector<std::size_t> removed;
};

[[nodiscard]] ImportPlan planImport(const RuleDocument &document, const std::vector<RuleRow> &rows,
                                    ImportMode mode);

struct ImportEffect {
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t removed = 0;
    std::size_t unchanged = 0;
    /// True when a stored rule moves before or behind another one that stays.
    bool reorders = false;
    /// True when the import writes anything.
    bool writes = false;
    /// In UTF-8, one line for each rule that is added, changed or removed, without line breaks. A
    /// line says so when the editor would refuse the rule.
    std::vector<std::string> lines;

    /// True when something that is stored now would not be stored afterwards.
    [[nodiscard]] bool replacesStored() const { return changed > 0 || removed > 0 || reorders; }
};

/// Fails as RuleStrings does.
[[nodiscard]] ImportEffect effectOf(const ImportPlan &plan, const RuleDocument &document,
                                    const std::vector<RuleRow> &rows, const RuleStrings &strings);

} // namespace kvex::host
