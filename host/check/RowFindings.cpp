#include "host/check/RowFindings.h"

#include "host/check/SentTexts.h"
#include "host/check/Tags.h"
#include "host/check/Wording.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

using View = std::u16string_view;

constexpr auto npos = View::npos;

/// The longest texts that the editor stores, in UTF-16 units.
constexpr std::size_t longestName = 50;
constexpr std::size_t longestQueryParam = 5000;
constexpr std::size_t longestActionParam = 2500;

/// The most digits of a priority that the rules window can list.
constexpr std::size_t longestPriority = 8;

constexpr View correctTheRow = u"Correct the row in the database, or enter the rule again.";

bool isBlank(View text) {
    return trimmed(text).empty();
}

/// A list of a rule that its strings hold.
struct StoredList {
    View tag;
    const Entries &entries;
    /// One of its entries.
    View entry;
};

/// The lists whose tags stand in the rule and were read.
std::vector<StoredList> listsOf(const CheckedRule &rule) {
    const RuleValues &values = rule.read.values;
    const std::array lists{
        StoredList{u"PEOPLE", values.people.entries, u"number"},
        StoredList{u"ACCOUNT", values.accounts.entries, u"account"},
        StoredList{u"WORD", values.words.entries, u"word"},
        StoredList{u"DIST", values.distribution, u"user"},
        StoredList{u"ALERT", values.alertRecipients, u"recipient"},
    };
    std::vector<StoredList> result;
    for (const Tag &tag : tags()) {
        const auto list = std::ranges::find(lists, tag.name, &StoredList::tag);
        const bool isRead = !rule.read.end && (tag.isInActions || !values.allMessages);
        if (list != lists.end() && isRead && tag.stored(rule).find(tag.opening()) != npos) {
            result.push_back(*list);
        }
    }
    return result;
}

const RuleList *conditionOf(const RuleValues &values, View tag) {
    return tag == u"PEOPLE"    ? &values.people
           : tag == u"ACCOUNT" ? &values.accounts
           : tag == u"WORD"    ? &values.words
                               : nullptr;
}

bool isNumber(View text) {
    return idOf(text).has_value();
}

} // namespace

Remarks findIncompleteRow(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    const View priority = rule.row.priority;
    if (rule.isIncomplete) {
        remarks.push_back(
            {u"Its row has no value in Name or ACTIVE. The rules window ends its list "
             u"before this rule.",
             u"Store both values in the database."});
    }
    if (!isNumber(priority) || trimmed(priority).size() > longestPriority) {
        remarks.push_back(
            {u"Its PRIORITY is no number of up to 8 digits. The rules window ends its "
             u"list before this rule.",
             u"Store another number in the database."});
    }
    return remarks;
}

Remarks findUnclosedTag(const Rulebook & /*book*/, const CheckedRule &rule) {
    const auto &end = rule.read.end;
    if (!end || end->number != 5) {
        return {};
    }
    return {{u"<" + end->tag + u"> has no </" + end->tag +
                 u"> behind it. The rule is read only up to there; what comes later is lost.",
             std::u16string(correctTheRow)}};
}

Remarks findTagBeyondReach(const Rulebook & /*book*/, const CheckedRule &rule) {
    const auto &end = rule.read.end;
    if (!end || end->number == 5) {
        return {};
    }
    return {{u"<" + end->tag +
                 u"> ends beyond the position 32767. The rule is read only up to there; what comes "
                 u"later is lost.",
             std::u16string(correctTheRow)}};
}

Remarks findRepeatedTag(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const Tag *tag : repeatedTags(rule)) {
        remarks.push_back({tag->opening() + u" stands more than once in " +
                               std::u16string(tag->column()) + u". Only the first one is read.",
                           std::u16string(correctTheRow)});
    }
    return remarks;
}

Remarks findContradictingEntry(const Rulebook &book, const CheckedRule &rule) {
    Remarks remarks;
    for (const Tag *tag : repeatedTags(rule)) {
        const RuleList *const first = conditionOf(rule.read.values, tag->name);
        if (first == nullptr) {
            continue;
        }
        const View text = rule.row.queryParam;
        const std::size_t second = text.find(tag->opening(), text.find(tag->opening()) + 1);
        const RuleRead rest = book.strings().read(text.substr(second), {});
        const RuleList &other = *conditionOf(rest.values, tag->name);
        for (const std::u16string &entry : first->entries) {
            if (first->negated != other.negated && !isBlank(entry) &&
                std::ranges::find(other.entries, entry) != other.entries.end()) {
                remarks.push_back(
                    {inQuotes(entry) + u" is in an \"is\" and in an \"is not\" of " +
                         tag->opening() + u". Only the first of the two is read.",
                     u"Decide for one of them, and correct the row in the database."});
            }
        }
    }
    return remarks;
}

Remarks findUnreadConditions(const Rulebook & /*book*/, const CheckedRule &rule) {
    if (!rule.read.values.allMessages || trimmed(rule.row.queryParam) == allMessagesTag) {
        return {};
    }
    return {{u"Conditions stand beside <ALLMESSAGES> in QueryParam. The rule applies to all "
             u"messages, and these conditions are not read.",
             u"Choose in the rule editor whether the rule applies to all messages, and press OK."}};
}

Remarks findMisreadModifiers(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const Misread &misread : misreadModifiers(rule)) {
        remarks.push_back({u"The list behind " + misread.tag->opening() + u" begins with " +
                               inQuotes(misread.stored) + u". It is read as " +
                               inQuotes(misread.read) +
                               u", and its first 10 characters are dropped.",
                           std::u16string(correctTheRow)});
    }
    return remarks;
}

Remarks findNeitherYesNorNo(const Rulebook & /*book*/, const CheckedRule &rule) {
    const RuleValues &values = rule.read.values;
    const std::array flags{
        std::pair{View(u"IGNOREIFSERVICE"), View(values.ignoreIfService)},
        std::pair{View(u"DELETE"), View(values.deleteIt)},
        std::pair{View(u"IGNOREFURTHERRULES"), View(values.ignoreFurtherRules)},
    };
    Remarks remarks;
    for (const auto &[tag, value] : flags) {
        if (value != u"YES" && value != u"NO") {
            remarks.push_back({u"<" + std::u16string(tag) + u"> holds " + inQuotes(value) +
                                   u", which is neither YES nor NO. It counts as NO.",
                               u"Choose it again in the rule editor, and press OK."});
        }
    }
    return remarks;
}

Remarks findCutText(const Rulebook & /*book*/, const CheckedRule &rule) {
    const RuleValues &values = rule.read.values;
    const auto cut = [](View action, View text, View account) -> Remark {
        return {u"The text of the " + std::u16string(action) + u" ends at its first \";\": " +
                    inQuotes(text) + u". The account is read as " + inQuotes(account) + u".",
                u"Write the text without \";\" in the rule editor."};
    };
    Remarks remarks;
    if (isReplyCut(values)) {
        remarks.push_back(cut(u"reply", values.replyText, values.replyAccount));
    }
    if (isAlertCut(values)) {
        remarks.push_back(cut(u"alert", values.alertText, values.alertAccount));
    }
    return remarks;
}

Remarks findEmptyList(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const StoredList &list : listsOf(rule)) {
        if (std::ranges::all_of(list.entries, isBlank)) {
            remarks.push_back({u"<" + std::u16string(list.tag) + u"> has no " +
                                   std::u16string(list.entry) +
                                   u". An empty list never means \"everything\".",
                               u"Fill the list in the rule editor, or untick it there."});
        }
    }
    return remarks;
}

Remarks findEmptyEntry(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const StoredList &list : listsOf(rule)) {
        if (std::ranges::any_of(list.entries, isBlank) &&
            !std::ranges::all_of(list.entries, isBlank)) {
            remarks.push_back({u"<" + std::u16string(list.tag) + u"> has an empty " +
                                   std::u16string(list.entry) + u" between two others.",
                               u"Remove the empty row in the rule editor."});
        }
    }
    return remarks;
}

Remarks findTooLong(const Rulebook & /*book*/, const CheckedRule &rule) {
    struct Limit {
        View column;
        const std::u16string &text;
        std::size_t longest;
    };
    const std::array limits{
        Limit{u"Name", rule.row.name, longestName},
        Limit{u"QueryParam", rule.row.queryParam, longestQueryParam},
        Limit{u"ActionParam", rule.row.actionParam, longestActionParam},
    };
    Remarks remarks;
    for (const Limit &limit : limits) {
        if (limit.text.size() > limit.longest) {
            remarks.push_back({std::u16string(limit.column) + u" has " +
                                   inWords(limit.text.size()) + u" characters. The longest is " +
                                   inWords(limit.longest) + u".",
                               u"Shorten it in the rule editor, or make two rules of it."});
        }
    }
    return remarks;
}

Remarks findRefusedByEditor(const Rulebook &book, const CheckedRule &rule) {
    const bool isKnown = rule.read.end || rule.isIncomplete || !findTooLong(book, rule).empty();
    const auto message =
        isKnown ? std::nullopt : book.strings().refusal(rule.row.name, false, rule.read.values);
    if (!message) {
        return {};
    }
    return {{u"The rule editor refuses to store the rule as it is: " + inQuotes(*message),
             u"Open the rule in the editor, and add what is missing."}};
}

Remarks findStoredDifferently(const Rulebook &book, const CheckedRule &rule) {
    constexpr std::array causes{
        findRepeatedTag,     findUnreadConditions, findMisreadModifiers,
        findNeitherYesNorNo, findCutText,          findEmptyList,
    };
    const auto isCause = [&](auto find) { return !find(book, rule).empty(); };
    if (rule.read.end || std::ranges::any_of(causes, isCause)) {
        return {};
    }
    const std::array columns{
        std::tuple{View(u"QueryParam"), View(rule.row.queryParam), View(rule.written.queryParam)},
        std::tuple{View(u"ActionParam"), View(rule.row.actionParam),
                   View(rule.written.actionParam)},
    };
    Remarks remarks;
    for (const auto &[column, stored, written] : columns) {
        if (stored != written) {
            const auto start = static_cast<std::size_t>(std::ranges::mismatch(stored, written).in1 -
                                                        stored.begin());
            remarks.push_back(
                {std::u16string(column) + u" is not as the rule editor writes it, from " +
                     (start < stored.size() ? inQuotes(stored.substr(start)) : u"its end") +
                     u" on.",
                 u"See with kvexrules show what the rule means. OK in the editor stores that."});
        }
    }
    return remarks;
}

} // namespace kvex::host
