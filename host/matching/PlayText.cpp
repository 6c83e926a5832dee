#include "host/matching/PlayReport.h"

#include "host/matching/Refusals.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>

namespace kvex::host {
namespace {

std::string inWords(const PlayedRule &rule) {
    constexpr std::size_t longest = 60;
    return "rule " + toUtf8(visible(rule.row.id)) + " " +
           toUtf8(quoted(visible(rule.row.name), longest));
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

template <class Items, class Show>
std::string listed(const Items &items, std::size_t most, const Show &show) {
    std::string list;
    const std::size_t shown = std::min(most, items.size());
    for (std::size_t at = 0; at < shown; ++at) {
        list += (at == 0 ? "" : ", ") + show(items[at]);
    }
    return shown < items.size() ? list + ", and " + std::to_string(items.size() - shown) + " more"
                                : list;
}

std::string listed(const Entries &entries) {
    return listed(entries, entries.size(),
                  [](const std::u16string &entry) { return toUtf8(visible(entry)); });
}

std::string sending(std::string_view what, const Action &action) {
    return "sends the " + std::string(what) + " \"" + toUtf8(visible(action.text)) + "\" to " +
           listed(action.recipients) + " through account " + toUtf8(visible(action.account));
}

std::string inWords(const Action &action) {
    switch (action.kind) {
    case Action::Kind::distribute:
        return "distributes the message to the users " + listed(action.recipients);
    case Action::Kind::reply:
        return sending("reply", action);
    case Action::Kind::alert:
        return sending("alert", action);
    case Action::Kind::deleteIt:
        return "deletes the message";
    default:
        return "lets no other rule follow";
    }
}

std::string inWords(const Verdict &verdict) {
    std::string text = inWords(*verdict.rule);
    if (verdict.refusal) {
        return text + ": does not apply: " + toUtf8(verdict.refusal->reason) + "\n";
    }
    text += ": applies\n";
    for (const Action &action : verdict.actions) {
        text += "    " + inWords(action) + "\n";
    }
    if (const auto &end = verdict.rule->read.end) {
        text += "    its actions cannot be read from <" + toUtf8(end->tag) + "> on\n";
    }
    return text;
}

/// A message is played in one of the orders that are possible for rules of one priority.
std::string doubtAbout(const Outcome &outcome) {
    if (outcome.notReached.empty()) {
        return {};
    }
    const PlayedRule &last = *outcome.verdicts.back().rule;
    const PlayedRule &next = *outcome.notReached.front();
    return last.row.priority == next.row.priority
               ? "The next " + inWords(next) +
                     " has the same priority, so the server may apply it first.\n"
               : "";
}

} // namespace

std::string asText(const Outcome &outcome) {
    std::string text;
    for (const Verdict &verdict : outcome.verdicts) {
        text += inWords(verdict);
    }
    for (const PlayedRule *rule : outcome.notReached) {
        text += inWords(*rule) + ": not reached\n";
    }
    if (!outcome.isEnded) {
        return text + "Processing ended after the last rule.\n";
    }
    return text + "Processing ended at " + inWords(*outcome.verdicts.back().rule) + ".\n" +
           doubtAbout(outcome);
}

std::string asText(const Tally &tally) {
    constexpr std::size_t mostLines = 10;
    std::string text = counted(tally.messages(), "message") + ", " +
                       counted(tally.rules().size(), "enabled rule") + "\n";
    std::vector<const PlayedRule *> idle;
    for (std::size_t place = 0; place < tally.rules().size(); ++place) {
        const PlayedRule &rule = tally.rules()[place];
        text += "  " + inWords(rule) + ": " + counted(tally.hits()[place], "message") + "\n";
        if (tally.hits()[place] == 0) {
            idle.push_back(&rule);
        }
    }
    text += "Messages that no rule touched: " + std::to_string(tally.untouched().size());
    if (!tally.untouched().empty()) {
        text += " (line " +
                listed(tally.untouched(), mostLines,
                       [](std::size_t line) { return std::to_string(line); }) +
                ")";
    }
    text += "\nRules that no message touched: " + std::to_string(idle.size()) + "\n";
    for (const PlayedRule *rule : idle) {
        const auto never = refusalOfAll(*rule);
        text += "  " + inWords(*rule) + (never ? ": " + toUtf8(never->reason) : "") + "\n";
    }
    return text;
}

} // namespace kvex::host
