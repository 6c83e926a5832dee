#include "rules/ReadingHints.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"
#include "rules/ParameterStrings.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace kvex {
namespace {

using View = std::u16string_view;
using Text = std::u16string RuleState::*;

constexpr View special = u";<>";

bool holdsSpecial(View text) {
    return text.find_first_of(special) != View::npos;
}

/// The text with a full stop in place of each special character.
std::u16string plainText(std::u16string text) {
    std::ranges::replace_if(
        text, [](char16_t unit) { return special.find(unit) != View::npos; }, u'.');
    return text;
}

/// A value of a parameter string: what users call it, and what it holds.
struct Value {
    View name;
    bool (*isSame)(const RuleState &one, const RuleState &other);
};

template <auto... members> bool same(const RuleState &one, const RuleState &other) {
    return ((one.*members == other.*members) && ...);
}

constexpr std::array conditions{
    Value{u"the setting for service messages", same<&RuleState::strIgnoreIfService>},
    Value{u"the people",
          same<&RuleState::strPeople, &RuleState::intPeopleNot, &RuleState::intPeopleAll>},
    Value{u"the accounts",
          same<&RuleState::varAccounts, &RuleState::intAccountNot, &RuleState::intAccountAll>},
    Value{u"the words", same<&RuleState::strWords, &RuleState::intWordsNot, &RuleState::intWordsAll,
                             &RuleState::intAsCommand>},
    Value{u"the date and time", same<&RuleState::strDateTime>},
};
constexpr const Value &people = conditions[1];
constexpr const Value &words = conditions[3];

constexpr std::array actions{
    Value{u"the distribution", same<&RuleState::strDistribution>},
    Value{u"the reply", same<&RuleState::strReplyText, &RuleState::strReplyAccount>},
    Value{u"the alert", same<&RuleState::strAlertText, &RuleState::strAlertAccount,
                             &RuleState::strAlertRecipients>},
    Value{u"\"Delete it\"", same<&RuleState::varDelete>},
    Value{u"\"Do not process any more Rules\"", same<&RuleState::strIgnoreFurtherRules>},
};
constexpr const Value &reply = actions[1];
constexpr const Value &alert = actions[2];

/// One of the two parameter strings.
struct Parameter {
    std::span<const Value> values;
    std::u16string (*build)(const RuleState &);
    void (*read)(View, RuleState &);
};
constexpr Parameter queryParam{conditions, buildQueryParam, readQueryParam};
constexpr Parameter actionParam{actions, buildActionParam, readActionParam};

struct Reading {
    RuleState rule;
    bool isWhole = true;
};

Reading readBack(const Parameter &parameter, const RuleState &rule) {
    Reading reading;
    try {
        parameter.read(parameter.build(rule), reading.rule);
    } catch (const Error &) {
        reading.isWhole = false;
    }
    return reading;
}

/// What is edited, in the words of a sentence.
struct Subject {
    View these;
    View asItStands;
    /// For entries.
    View one = {};
    View many = {};
};
constexpr Subject thisText{u"this text", u"as it stands"};
constexpr Subject theseWords{u"these words", u"as they stand", u"word", u"words"};
constexpr Subject theseNumbers{u"these numbers", u"as they stand", u"number", u"numbers"};

std::u16string sentence(std::initializer_list<View> pieces) {
    std::u16string text;
    for (const View piece : pieces) {
        text += piece;
    }
    return text += u'.';
}

/// "a, b and c".
std::u16string listed(std::span<const std::u16string> names) {
    std::u16string text;
    for (std::size_t at = 0; at < names.size(); ++at) {
        text += at == 0 ? u"" : at + 1 < names.size() ? u", " : u" and ";
        text += names[at];
    }
    return text;
}

/// Short enough for a hint of one line.
std::u16string quoted(View text) {
    return kvex::quoted(text, 24);
}

/// What the text does to the rule beside its own value; "" for nothing. `plain` is the reading of
/// the rule with a plain text.
std::u16string effectOnRule(const Subject &subject, const Parameter &parameter, const Value &own,
                            const Reading &read, const Reading &plain) {
    if (read.rule.blnAllMessages) {
        return sentence({u"With ", subject.these,
                         u" the server reads a rule for all messages, without other conditions"});
    }
    if (!read.isWhole) {
        return sentence({u"With ", subject.these, u" the server cannot read the rule to its end"});
    }
    std::vector<std::u16string> misread;
    for (const Value &value : parameter.values) {
        if (&value != &own && !value.isSame(read.rule, plain.rule)) {
            misread.emplace_back(value.name);
        }
    }
    return misread.empty()
               ? std::u16string()
               : sentence({u"With ", subject.these, u" the server misreads ", listed(misread)});
}

/// The character or the tag that ended the reading of `text` after `read`.
View endOf(View text, View read) {
    const std::size_t at = std::min(text.find_first_of(u";<", read.size()), text.size());
    const std::size_t length = text.substr(at, 1) == u";" ? 1 : text.find(u'>', at) - at + 1;
    return text.substr(at, length);
}

/// Writes its attempts into `rule`.
std::u16string messageHint(RuleState &rule, const Value &own, Text target, View text) {
    if (!holdsSpecial(text)) {
        return {};
    }
    text = trimmed(text);
    rule.*target = text;
    const Reading read = readBack(actionParam, rule);
    rule.*target = plainText(std::u16string(text));
    if (auto effect = effectOnRule(thisText, actionParam, own, read, readBack(actionParam, rule));
        !effect.empty()) {
        return effect;
    }
    const View taken = read.rule.*target;
    if (taken == text) {
        return sentence({u"The server reads ", thisText.these, u" ", thisText.asItStands});
    }
    return sentence({u"The server reads the text up to ", quoted(endOf(text, taken)), u" only: ",
                     quoted(taken)});
}

/// A list of the rule.
struct List {
    const Parameter &parameter;
    const Value &own;
    Text target;
    const Subject &subject;
};

std::u16string counted(const Subject &subject, std::size_t count) {
    return toText(static_cast<std::int64_t>(count)) + u' ' +
           std::u16string(count == 1 ? subject.one : subject.many);
}

/// How the entries come back, without those that stay as they are.
std::u16string changeOf(const Subject &subject, const Entries &entries, const Entries &read) {
    const auto [from, readFrom] = std::ranges::mismatch(entries, read);
    const auto same = static_cast<std::size_t>(from - entries.begin());
    std::size_t atEnd = 0;
    while (same + atEnd < std::min(entries.size(), read.size()) &&
           entries[entries.size() - 1 - atEnd] == read[read.size() - 1 - atEnd]) {
        ++atEnd;
    }
    constexpr std::size_t most = 3;
    Entries became;
    for (std::size_t at = same; at < read.size() - atEnd; ++at) {
        became.push_back(quoted(read[at]));
    }
    if (entries.size() - same - atEnd == 1 && !became.empty() && became.size() <= most) {
        return sentence({u"The server reads ", quoted(*from), u" as ", listed(became)});
    }
    return sentence({u"The server reads ", counted(subject, read.size()), u" instead of ",
                     toText(static_cast<std::int64_t>(entries.size()))});
}

/// Writes its attempts into `rule`.
std::u16string listHint(RuleState &rule, const List &list, const Entries &entries) {
    if (std::ranges::none_of(entries, holdsSpecial)) {
        return {};
    }
    Entries plainEntries;
    std::ranges::transform(entries, std::back_inserter(plainEntries), plainText);
    rule.*list.target = joined(plainEntries, u';');
    const Reading plain = readBack(list.parameter, rule);
    rule.*list.target = joined(entries, u';');
    const Reading read = readBack(list.parameter, rule);
    if (auto effect = effectOnRule(list.subject, list.parameter, list.own, read, plain);
        !effect.empty()) {
        return effect;
    }
    constexpr std::array options{std::pair{modifier::negated, &RuleState::intWordsNot},
                                 std::pair{modifier::all, &RuleState::intWordsAll},
                                 std::pair{modifier::asCommand, &RuleState::intAsCommand}};
    for (const auto &[mark, flag] : options) {
        if (read.rule.*flag != plain.rule.*flag) {
            return sentence({u"The server reads ", quoted(mark), u" as an option of the words"});
        }
    }
    Entries readEntries;
    for (const View entry : split(read.rule.*list.target, u';')) {
        readEntries.emplace_back(entry);
    }
    if (readEntries == entries) {
        return sentence({u"The server reads ", list.subject.these, u" ", list.subject.asItStands});
    }
    return changeOf(list.subject, entries, readEntries);
}

/// Some text or list that has nothing special, in place of one that the user edits beside it.
constexpr const char16_t *something = u"1";

} // namespace

std::u16string replyTextHint(RuleState rule, const std::u16string &text) {
    return messageHint(rule, reply, &RuleState::strReplyText, text);
}

std::u16string alertTextHint(RuleState rule, const std::u16string &text) {
    rule.strAlertRecipients = something;
    return messageHint(rule, alert, &RuleState::strAlertText, text);
}

std::u16string peopleHint(RuleState rule, const Entries &numbers) {
    rule.blnAllMessages = false;
    return listHint(rule, {queryParam, people, &RuleState::strPeople, theseNumbers}, numbers);
}

std::u16string wordsHint(RuleState rule, const Entries &entries) {
    rule.blnAllMessages = false;
    return listHint(rule, {queryParam, words, &RuleState::strWords, theseWords}, entries);
}

std::u16string recipientsHint(RuleState rule, const Entries &numbers) {
    rule.strAlertText = something;
    return listHint(rule, {actionParam, alert, &RuleState::strAlertRecipients, theseNumbers},
                    numbers);
}

} // namespace kvex
