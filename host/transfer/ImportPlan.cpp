#include "host/transfer/ImportPlan.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <deque>
#include <map>

namespace kvex::host {
namespace {

/// The stored row whose place each rule of the document takes.
std::vector<std::optional<std::size_t>> matches(const RuleDocument &document,
                                                const std::vector<RuleRow> &rows) {
    std::map<ColumnText, std::deque<std::size_t>> byName;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        byName[rows[row].content.name].push_back(row);
    }
    std::vector<std::optional<std::size_t>> matched;
    for (const DocumentRule &rule : document.rules) {
        const auto found = byName.find(rule.content.name);
        if (found == byName.end() || found->second.empty()) {
            matched.emplace_back();
        } else {
            matched.emplace_back(found->second.front());
            found->second.pop_front();
        }
    }
    return matched;
}

/// Adds the rules of the document from `next` on: those without a row, then one with a row and
/// those without that follow it.
void addGroup(const std::vector<std::optional<std::size_t>> &rowOf, std::size_t &next,
              std::vector<PlannedRule> &order) {
    bool hasRow = false;
    for (; next < rowOf.size() && !(hasRow && rowOf[next]); ++next) {
        hasRow = hasRow || rowOf[next].has_value();
        order.push_back({rowOf[next], next});
    }
}

/// What differs, such as "conditions and actions".
std::string differences(const RuleContent &before, const RuleContent &after) {
    std::vector<std::string> parts;
    if (before.queryParam != after.queryParam) {
        parts.emplace_back("conditions");
    }
    if (before.actionParam != after.actionParam) {
        parts.emplace_back("actions");
    }
    if (before.isActive != after.isActive) {
        parts.emplace_back(after.isActive ? "switched on" : "switched off");
    }
    std::string text;
    for (const std::string &part : parts) {
        text += (text.empty() ? "" : ", ") + part;
    }
    return text;
}

std::string nameOf(const ColumnText &name) {
    return name ? "\"" + toUtf8(visible(*name)) + "\"" : "without a name";
}

std::string refusalIn(const DocumentRule &rule, const RuleStrings &strings) {
    const auto refusal = strings.refusal(rule.content.name.value_or(u""), false, rule.values);
    return refusal ? " (the editor would refuse it: " + toUtf8(*refusal) + ")" : "";
}

bool movesARule(const ImportPlan &plan) {
    std::optional<std::size_t> last;
    return std::ranges::any_of(plan.order, [&](const PlannedRule &planned) {
        const bool isBefore = planned.row && last && *planned.row < *last;
        last = planned.row ? planned.row : last;
        return isBefore;
    });
}

} // namespace

ImportPlan planImport(const RuleDocument &document, const std::vector<RuleRow> &rows,
                      ImportMode mode) {
    const std::vector<std::optional<std::size_t>> rowOf =
        mode == ImportMode::asNew ? std::vector<std::optional<std::size_t>>(document.rules.size())
                                  : matches(document, rows);
    std::vector<bool> isMatched(rows.size());
    for (const auto &row : rowOf) {
        if (row) {
            isMatched[*row] = true;
        }
    }
    ImportPlan plan;
    std::size_t next = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (isMatched[row]) {
            addGroup(rowOf, next, plan.order);
        } else if (mode == ImportMode::replace) {
            plan.removed.push_back(row);
        } else {
            plan.order.push_back({row, std::nullopt});
        }
    }
    addGroup(rowOf, next, plan.order);
    return plan;
}

ImportEffect effectOf(const ImportPlan &plan, const RuleDocument &document,
                      const std::vector<RuleRow> &rows, const RuleStrings &strings) {
    ImportEffect effect;
    for (const std::size_t row : plan.removed) {
        ++effect.removed;
        effect.lines.push_back("remove " + toUtf8(rows[row].id) + " " +
                               nameOf(rows[row].content.name));
    }
    for (std::size_t place = 0; place < plan.order.size(); ++place) {
        const PlannedRule &planned = plan.order[place];
        const RuleRow *row = planned.row ? &rows[*planned.row] : nullptr;
        const DocumentRule *rule = planned.rule ? &document.rules[*planned.rule] : nullptr;
        if (row == nullptr) {
            ++effect.added;
            effect.lines.push_back("add " + nameOf(rule->content.name) + refusalIn(*rule, strings));
        } else if (rule != nullptr && rule->content != row->content) {
            ++effect.changed;
            effect.lines.push_back("change " + toUtf8(row->id) + " " + nameOf(row->content.name) +
                                   ": " + differences(row->content, rule->content) +
                                   refusalIn(*rule, strings));
        } else {
            ++effect.unchanged;
        }
        effect.writes = effect.writes || row == nullptr ||
                        row->priority != toText(static_cast<std::int64_t>(place + 1));
    }
    effect.reorders = movesARule(plan);
    effect.writes = effect.writes || effect.changed > 0 || effect.removed > 0;
    return effect;
}

} // namespace kvex::host
