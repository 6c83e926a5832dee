#include "host/transfer/ImportCheck.h"

#include "host/transfer/JsonForm.h"
#include "host/transfer/References.h"
#include "platform/Text.h"

#include <map>
#include <set>

namespace kvex::host {
namespace {

std::string named(std::u16string_view text) {
    return quotedUtf8(toUtf8(text));
}

/// "The rule \"a\"".
std::string titleOf(const DocumentRule &rule) {
    return rule.content.name ? "The rule " + named(*rule.content.name) : "A rule without a name";
}

/// The users or the accounts, as the document and the database know them.
class Names {
public:
    Names(std::string kind, const std::vector<DocumentName> &listed, const auto &rows)
        : kind_(std::move(kind)), listed_(listed) {
        for (const NamedRow &row : rows) {
            stored_.emplace(row.id, row.name);
        }
        for (const DocumentName &name : listed) {
            listedIds_.insert(name.id);
        }
    }

    void checkListed(Problems &problems) const {
        for (const DocumentName &name : listed_) {
            const auto found = stored_.find(name.id);
            const std::string title = kind_ + " " + toUtf8(name.id);
            if (name.name && found == stored_.end()) {
                problems.push_back({name.line, "There is no " + title + " (" + named(*name.name) +
                                                   ") in this database."});
            } else if (name.name && *name.name != found->second) {
                problems.push_back({name.line, "The " + title + " is " + named(*name.name) +
                                                   " in the document, but " + named(found->second) +
                                                   " in this database."});
            } else if (!name.name && found != stored_.end()) {
                problems.push_back({name.line, "The " + title +
                                                   " was unknown when the rules were exported, but "
                                                   "it is " +
                                                   named(found->second) + " in this database."});
            }
        }
    }
    void checkReference(const DocumentRule &rule, const std::u16string &id, std::size_t line,
                        Problems &problems) const {
        if (!listedIds_.contains(id) && !stored_.contains(id)) {
            problems.push_back({line, titleOf(rule) + " refers to the " + kind_ + " " + named(id) +
                                          ", which this database does not have."});
        }
    }

private:
    std::string kind_;
    const std::vector<DocumentName> &listed_;
    std::map<std::u16string, std::u16string> stored_;
    std::set<std::u16string> listedIds_;
};

void checkReferences(const RuleDocument &document, const RuleTables &tables, Problems &problems) {
    const Names users("user", document.users, tables.users);
    const Names accounts("account", document.accounts, tables.accounts);
    users.checkListed(problems);
    accounts.checkListed(problems);
    for (const DocumentRule &rule : document.rules) {
        forEachReference(rule.values, [&](Referred kind, const std::u16string &id,
                                          std::u16string_view field, std::size_t place) {
            (kind == Referred::user ? users : accounts)
                .checkReference(rule, id, rule.lineOf(field, place), problems);
        });
    }
}

/// How many of the rules after the import have a name, as the editor compares names.
class NameCounts {
public:
    NameCounts(const ImportPlan &plan, const RuleDocument &document,
               const std::vector<RuleRow> &rows, const RuleStrings &strings)
        : strings_(strings) {
        for (const PlannedRule &planned : plan.order) {
            const ColumnText &name = planned.rule ? document.rules[*planned.rule].content.name
                                                  : rows[*planned.row].content.name;
            ++all_[strings.keysOf(name.value_or(u"")).stored];
            if (!planned.rule) {
                ++others_[strings.keysOf(name.value_or(u"")).stored];
            }
        }
    }
    /// True when a rule has the name that the document does not hold.
    [[nodiscard]] bool isTakenByOther(const NameKeys &keys) const {
        return others_.contains(keys.typed.value_or(keys.stored));
    }
    /// True when another rule has the name.
    [[nodiscard]] bool isTaken(const NameKeys &keys) const {
        const auto found = all_.find(keys.typed.value_or(keys.stored));
        return found != all_.end() && found->second > 1;
    }
    [[nodiscard]] NameKeys keysOf(const DocumentRule &rule) const {
        return strings_.keysOf(rule.content.name.value_or(u""));
    }

private:
    const RuleStrings &strings_;
    std::map<std::u16string, std::size_t> all_;
    std::map<std::u16string, std::size_t> others_;
};

/// Why the editor would not store a rule that someone wrote by hand. "" when it would.
std::string refusalOf(const DocumentRule &rule, bool isAdded, const NameCounts &names,
                      const RuleStrings &strings) {
    constexpr std::size_t longestName = 50;
    const std::u16string name = rule.content.name.value_or(u"");
    const NameKeys keys = names.keysOf(rule);
    if (trimmed(name).size() != name.size()) {
        return "Its name has blanks at its ends.";
    }
    if (name.size() > longestName) {
        return "Its name is longer than 50 characters.";
    }
    if (isAdded && !keys.typed) {
        return "Its name has an apostrophe, for which the editor cannot search.";
    }
    return toUtf8(strings.refusal(name, isAdded && names.isTaken(keys), rule.values).value_or(u""));
}

} // namespace

void checkImport(const ImportPlan &plan, const RuleDocument &document, const RuleTables &tables,
                 const RuleStrings &strings, Problems &problems) {
    checkReferences(document, tables, problems);
    const NameCounts names(plan, document, tables.rules, strings);
    for (const PlannedRule &planned : plan.order) {
        if (!planned.rule) {
            continue;
        }
        const DocumentRule &rule = document.rules[*planned.rule];
        const bool isAdded = !planned.row;
        if (!isAdded && tables.rules[*planned.row].content == rule.content) {
            continue;
        }
        if (isAdded && names.isTakenByOther(names.keysOf(rule))) {
            problems.push_back({rule.line, titleOf(rule) +
                                               " cannot be added, because a stored rule has this "
                                               "name already."});
        } else if (!rule.hasStrings) {
            const std::string refusal = refusalOf(rule, isAdded, names, strings);
            if (!refusal.empty()) {
                problems.push_back({rule.line, titleOf(rule) + " cannot be stored. " + refusal});
            }
        }
    }
}

} // namespace kvex::host
