#include "host/matching/Matcher.h"

#include "host/matching/Refusals.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <bit>
#include <map>

namespace kvex::host {
namespace {

constexpr std::size_t blockSize = 64;
constexpr std::array kinds{ListKind::people, ListKind::accounts, ListKind::words,
                           ListKind::commands};

/// Blanks and one "+" at the front do not count.
std::u16string numberKey(std::u16string_view number) {
    std::u16string key(number);
    std::erase(key, u' ');
    if (key.starts_with(u'+')) {
        key.erase(0, 1);
    }
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    return std::ranges::all_of(key, isDigit) ? key : foldCase(key);
}

std::u16string accountKey(std::u16string_view id) {
    try {
        return toText(std::int64_t{toInt32(id)});
    } catch (const Error &) {
        return {};
    }
}

} // namespace

std::u16string keyOf(ListKind kind, std::u16string_view entry) {
    switch (kind) {
    case ListKind::people:
        return numberKey(entry);
    case ListKind::accounts:
        return accountKey(entry);
    default:
        return foldCase(trimmed(entry));
    }
}

Matcher::Matcher(std::vector<PlayedRule> rules)
    : rules_(std::move(rules)), lists_{ListConditions(rules_.size()), ListConditions(rules_.size()),
                                       ListConditions(rules_.size()),
                                       ListConditions(rules_.size())},
      dates_(rules_.size()), never_(rules_.size()),
      all_((rules_.size() + blockSize - 1) / blockSize), forServices_(all_.size()) {
    for (std::size_t place = 0; place < rules_.size(); ++place) {
        never_[place] = refusalOfAll(rules_[place]);
        if (!never_[place]) {
            addConditions(place);
        }
    }
    addWords();
}

void Matcher::addConditions(std::size_t place) {
    const RuleValues &rule = rules_[place].read.values;
    const std::uint64_t bit = std::uint64_t{1} << (place % blockSize);
    all_[place / blockSize] |= bit;
    if (rule.allMessages || rule.ignoreIfService != u"YES") {
        forServices_[place / blockSize] |= bit;
    }
    if (rule.allMessages) {
        return;
    }
    const auto add = [&](ListKind kind, bool all) {
        const RuleList &list = listOf(kind, rule);
        if (list.entries.empty()) {
            return;
        }
        std::vector<std::u16string> keys;
        std::ranges::transform(list.entries, std::back_inserter(keys),
                               [&](const std::u16string &entry) { return keyOf(kind, entry); });
        lists(kind).add(place, list.negated, all, std::move(keys));
    };
    add(ListKind::people, rule.people.all);
    add(ListKind::accounts, rule.accounts.all);
    // The editor lets a command have only "any".
    add(rule.asCommand ? ListKind::commands : ListKind::words, !rule.asCommand && rule.words.all);
    if (!rule.dateTime.empty()) {
        dates_[place] = momentRange(rule.dateTime).value();
    }
}

void Matcher::addWords() {
    std::map<std::u16string, FoundWord> entries;
    const std::vector<std::u16string> &words = lists(ListKind::words).keys();
    const std::vector<std::u16string> &commands = lists(ListKind::commands).keys();
    for (ListConditions::Entry entry = 0; entry < words.size(); ++entry) {
        entries[words[entry]].word = entry;
    }
    for (ListConditions::Entry entry = 0; entry < commands.size(); ++entry) {
        entries[commands[entry]].command = entry;
    }
    std::vector<std::u16string> all;
    for (const auto &[word, found] : entries) {
        all.push_back(word);
        found_.push_back(found);
    }
    finder_ = WordFinder(all);
}

void Matcher::holdEntries(const Message &message) {
    for (ListConditions &list : lists_) {
        list.clear();
    }
    const auto hold = [&](ListKind kind, const std::u16string &key) {
        if (const auto entry = lists(kind).find(key)) {
            lists(kind).hold(*entry);
        }
    };
    hold(ListKind::people, numberKey(message.sender));
    hold(ListKind::accounts, toText(std::int64_t{message.account}));
    finder_.find(message.text, [&](std::uint32_t word, std::size_t start) {
        const FoundWord &found = found_[word];
        if (found.word) {
            lists(ListKind::words).hold(*found.word);
        }
        if (found.command && start == 0) {
            lists(ListKind::commands).hold(*found.command);
        }
    });
}

const std::vector<std::size_t> &Matcher::play(const Message &message) {
    holdEntries(message);
    matched_.clear();
    const std::int64_t moment = momentNumber(message.moment);
    const std::vector<std::uint64_t> &open = message.isService ? forServices_ : all_;
    for (std::size_t number = 0; number < open.size(); ++number) {
        std::uint64_t block = open[number];
        for (const ListConditions &list : lists_) {
            block &= list.block(number);
        }
        for (; block != 0; block &= block - 1) {
            const std::size_t place =
                number * blockSize + static_cast<std::size_t>(std::countr_zero(block));
            if (moment < dates_[place].start || dates_[place].end < moment) {
                continue;
            }
            matched_.push_back(place);
            if (rules_[place].endsProcessing()) {
                return matched_;
            }
        }
    }
    return matched_;
}

Refusal Matcher::refusalOf(std::size_t place, const Message &message) const {
    if (never_[place]) {
        return *never_[place];
    }
    const std::uint64_t bit = std::uint64_t{1} << (place % blockSize);
    if (message.isService && (forServices_[place / blockSize] & bit) == 0) {
        return refusalOfService();
    }
    for (const ListKind kind : kinds) {
        const ListConditions &conditions = lists_[static_cast<std::size_t>(kind)];
        if ((conditions.block(place / blockSize) & bit) != 0) {
            continue;
        }
        const RuleList &list = listOf(kind, rules_[place].read.values);
        Entries held;
        Entries missing;
        for (const std::u16string &entry : list.entries) {
            (conditions.isHeld(keyOf(kind, entry)) ? held : missing).push_back(entry);
        }
        return refusalByList(kind, list, held, missing, message);
    }
    return refusalByDates(message, dates_[place]);
}

Outcome Matcher::explain(const Message &message) {
    const std::vector<std::size_t> &matched = play(message);
    Outcome outcome;
    outcome.isEnded = !matched.empty() && rules_[matched.back()].endsProcessing();
    const std::size_t reached = outcome.isEnded ? matched.back() + 1 : rules_.size();
    auto next = matched.begin();
    for (std::size_t place = 0; place < reached; ++place) {
        const PlayedRule &rule = rules_[place];
        if (next != matched.end() && *next == place) {
            outcome.verdicts.push_back({&rule, std::nullopt, actionsOf(rule.read.values, message)});
            ++next;
        } else {
            outcome.verdicts.push_back({&rule, refusalOf(place, message), {}});
        }
    }
    for (std::size_t place = reached; place < rules_.size(); ++place) {
        outcome.notReached.push_back(&rules_[place]);
    }
    return outcome;
}

} // namespace kvex::host
