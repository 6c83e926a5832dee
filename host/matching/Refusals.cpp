#include "host/matching/Refusals.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

/// A condition with a value: its tag, and whether a value was read.
struct ConditionTag {
    std::u16string_view tag;
    std::u16string_view value;
    bool isEmpty;
};

std::array<ConditionTag, 4> conditionTags(const RuleValues &rule) {
    return {{{u"PEOPLE", u"list of people", rule.people.entries.empty()},
             {u"ACCOUNT", u"list of accounts", rule.accounts.entries.empty()},
             {u"WORD", u"list of words", rule.words.entries.empty()},
             {u"DATETIME", u"range of dates", rule.dateTime.empty()}}};
}

bool isCondition(std::u16string_view tag) {
    constexpr std::array<std::u16string_view, 5> tags{u"IGNOREIFSERVICE", u"PEOPLE", u"ACCOUNT",
                                                      u"WORD", u"DATETIME"};
    return std::ranges::find(tags, tag) != tags.end();
}

std::string_view nameOf(ListKind kind) {
    switch (kind) {
    case ListKind::people:
        return "people";
    case ListKind::accounts:
        return "accounts";
    default:
        return "words";
    }
}

/// "a, b or c" with each entry once. Of a long list only the first entries.
std::u16string inWords(ListKind kind, const Entries &entries, std::u16string_view last) {
    constexpr std::size_t mostShown = 5;
    constexpr std::size_t longest = 60;
    const bool isText = kind == ListKind::words || kind == ListKind::commands;
    const std::size_t shown = entries.size() > mostShown ? mostShown - 1 : entries.size();
    std::u16string words;
    for (std::size_t at = 0; at < shown; ++at) {
        const bool isLast = at + 1 == entries.size();
        words.append(at == 0 ? u"" : isLast ? last : u", ");
        words.append(isText ? quoted(visible(trimmed(entries[at])), longest)
                            : visible(entries[at]));
    }
    if (shown < entries.size()) {
        words.append(last).append(toText(static_cast<std::int64_t>(entries.size() - shown)));
        words.append(u" more");
    }
    return words;
}

} // namespace

std::optional<Refusal> refusalOfAll(const PlayedRule &rule) {
    const RuleValues &values = rule.read.values;
    if (rule.read.end && isCondition(rule.read.end->tag)) {
        constexpr std::int32_t noClosingTag = 5;
        return Refusal{"unreadable", u"its conditions cannot be read: <" + rule.read.end->tag +
                                         (rule.read.end->number == noClosingTag
                                              ? u"> has no closing tag"
                                              : u"> stands beyond the position 32767")};
    }
    if (values.allMessages) {
        return std::nullopt;
    }
    bool hasCondition = values.ignoreIfService == u"YES";
    for (const ConditionTag &condition : conditionTags(values)) {
        if (!condition.isEmpty) {
            hasCondition = true;
            continue;
        }
        const std::u16string opening = u"<" + std::u16string(condition.tag) + u">";
        if (rule.row.queryParam.find(opening) != std::u16string::npos) {
            return Refusal{"empty", u"its " + std::u16string(condition.value) + u" is empty"};
        }
    }
    if (!hasCondition) {
        return Refusal{"none", u"it has no condition"};
    }
    if (!values.dateTime.empty() && !momentRange(values.dateTime)) {
        return Refusal{"unreadable",
                       u"its range of dates is none: " + quoted(visible(values.dateTime), 60)};
    }
    return std::nullopt;
}

const RuleList &listOf(ListKind kind, const RuleValues &rule) {
    switch (kind) {
    case ListKind::people:
        return rule.people;
    case ListKind::accounts:
        return rule.accounts;
    default:
        return rule.words;
    }
}

Refusal refusalOfService() {
    return {"service", u"it is a service message"};
}

Refusal refusalByList(ListKind kind, const RuleList &list, const Entries &held,
                      const Entries &missing, const Message &message) {
    const std::u16string entries =
        list.negated ? inWords(kind, held, u" and ") : inWords(kind, missing, u" or ");
    std::u16string reason;
    switch (kind) {
    case ListKind::people:
        reason = list.negated ? u"the sender is " : u"the sender is not ";
        break;
    case ListKind::accounts:
        reason = u"it came in through account " + toText(std::int64_t{message.account});
        if (list.negated) {
            return {nameOf(kind), reason};
        }
        reason += u", not through ";
        break;
    case ListKind::words:
        reason = list.negated ? u"the text contains " : u"the text does not contain ";
        break;
    case ListKind::commands:
        reason = list.negated ? u"the text begins with " : u"the text does not begin with ";
        break;
    }
    return {nameOf(kind), reason + entries};
}

Refusal refusalByDates(const Message &message, const MomentRange &range) {
    return {"dates", momentNumber(message.moment) < range.start
                         ? u"it arrived before " + shownMoment(range.start)
                         : u"it arrived after " + shownMoment(range.end)};
}

} // namespace kvex::host
