#include "tests/torture/monkey/Outcome.h"

#include "platform/Text.h"
#include "platform/controls/ListView.h"
#include "tests/torture/monkey/StoredTexts.h"

#include <algorithm>
#include <iterator>

namespace kvex::torture {
namespace {

std::string idText(std::int64_t id) {
    return "rule " + std::to_string(id);
}

std::string quoted(const std::u16string &text) {
    return "\"" + toUtf8(text) + "\"";
}

std::string wrongRemoval(const Act &act, const Outcome &outcome) {
    if (act.confirmed && outcome.now.rules.contains(act.rule)) {
        return "removal: " + idText(act.rule) + " is still there";
    }
    return act.confirmed || outcome.failed ? "" : "removal: the answer No was not logged";
}

std::string wrongNewRule(const Outcome &outcome) {
    const Tables &now = outcome.now;
    if (now.rules.size() != outcome.before.rules.size() + 1) {
        return "saving: the editor closed, but not one rule was added";
    }
    const auto &[id, rule] = *now.rules.rbegin();
    const bool isNew = !outcome.before.rules.contains(id);
    return isNew && rule.priority == u"0" && rule.active == u"1" && rule.deleted == u"0"
               ? ""
               : "saving: the new rule does not have the defaults";
}

/// Whether the rule got a name that another one has.
bool isTakenTwice(std::int64_t id, const Outcome &outcome) {
    const std::u16string &name = outcome.now.rules.at(id).name;
    const auto before = outcome.before.rules.find(id);
    const bool isNew = before == outcome.before.rules.end() || before->second.name != name;
    const auto hasName = [&](const auto &rule) { return rule.second.name == name; };
    return isNew && !outcome.beganEmpty && std::ranges::count_if(outcome.now.rules, hasName) > 1;
}

std::string wrongSaving(const Act &act, const Outcome &outcome) {
    if (!outcome.closed) {
        return outcome.now == outcome.before
                   ? ""
                   : "saving: the editor stays open, but something was stored";
    }
    if (act.rule == 0) {
        if (std::string wrong = wrongNewRule(outcome); !wrong.empty()) {
            return wrong;
        }
    }
    const auto &rules = outcome.now.rules;
    const auto stored = act.rule == 0 ? std::prev(rules.end()) : rules.find(act.rule);
    if (stored == rules.end()) {
        return "saving: " + idText(act.rule) + " is not there";
    }
    const StoredRule &rule = stored->second;
    if (rule.name != trimmed(act.name)) {
        return "saving: the name " + quoted(act.name) + " is stored as " + quoted(rule.name);
    }
    if (isTakenTwice(stored->first, outcome)) {
        return "saving: two rules have the name " + quoted(rule.name);
    }
    return isPlain(act.typed) ? unlike(rule, act.description) : "";
}

std::string wrongOrder(const Act &act, const Outcome &outcome) {
    // An error ends the order, so it may be stored from the top down to some rule.
    bool ended = outcome.beganEmpty;
    for (std::size_t row = 0; outcome.closed && row < act.rows.size(); ++row) {
        const std::int64_t id = act.rows[row];
        if (!outcome.now.rules.contains(id) || !outcome.before.rules.contains(id)) {
            return "order: " + idText(id) + " is not there";
        }
        const std::u16string &priority = outcome.now.rules.at(id).priority;
        const bool isPlace = priority == toText(static_cast<std::int64_t>(row) + 1);
        ended |= !isPlace && outcome.failed;
        if (ended ? priority != outcome.before.rules.at(id).priority : !isPlace) {
            return "order: " + idText(id) + " stands at " + std::to_string(row + 1) +
                   " and has the priority " + toUtf8(priority);
        }
    }
    return "";
}

} // namespace

std::string wrongOutcome(const Act &act, const Outcome &outcome) {
    switch (act.kind) {
    case Act::Kind::removal:
        return wrongRemoval(act, outcome);
    case Act::Kind::saving:
        return wrongSaving(act, outcome);
    case Act::Kind::order:
        return wrongOrder(act, outcome);
    default:
        return "";
    }
}

std::string wrongList(const headless::HeadlessWindow &rulesWindow, const Tables &tables) {
    const auto &list = dynamic_cast<const ListView &>(*rulesWindow.element(u"lvwRules"));
    for (int row = 1; row <= list.rowCount(); ++row) {
        const std::int64_t id = ruleOf(rulesWindow, row);
        const auto stored = tables.rules.find(id);
        if (stored == tables.rules.end()) {
            return "list: " + idText(id) + " is listed and not there";
        }
        if (stored->second.name != list.text(row)) {
            return "list: " + idText(id) + " is listed as " + quoted(list.text(row));
        }
        if ((stored->second.active == u"1") != list.checked(row)) {
            return "list: " + idText(id) + " has a box that is not as stored";
        }
    }
    return "";
}

} // namespace kvex::torture
