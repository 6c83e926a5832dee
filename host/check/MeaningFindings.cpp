#include "host/check/MeaningFindings.h"

#include "host/check/Moments.h"
#include "host/check/SentTexts.h"
#include "host/check/Wording.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
Remarks findMalformedDate(const Rulebook & /*book*/, const CheckedRule &rule) {
    const std::u16string &range = rule.read.values.dateTime;
    if (range.empty() || wholeRange(range)) {
        return {};
    }
    return {{u"Its date and time, " + inQuotes(range) +
                 u", are not two whole moments \"yyyymmdd hh:mm:ss\" with \",\" between them.",
             u"Choose both dates and both times again in the rule editor."}};
}

Remarks findReversedDates(const Rulebook & /*book*/, const CheckedRule &rule) {
    const auto range = wholeRange(rule.read.values.dateTime);
    if (!range || range->start <= range->end) {
        return {};
    }
    return {{u"Its date and time end before they begin. No message arrives in such a range.",
             u"Exchange the two moments in the rule editor."}};
}

Remarks findPastDates(const Rulebook &book, const CheckedRule &rule) {
    const auto range = wholeRange(rule.read.values.dateTime);
    if (!range || range->start > range->end || range->end >= book.now()) {
        return {};
    }
    return {{u"Its date and time ended on " + std::u16string(range->end) +
                 u". It applies to no message any more.",
             u"Remove the rule, or choose other dates."}};
}

Remarks findSameName(const Rulebook &book, const CheckedRule &rule) {
    const auto other = book.sameNameAs(rule);
    if (!other) {
        return {};
    }
    return {{u"Its name is the same as that of " + ruleInWords(book.rules()[*other]) +
                 u", at most with other capital letters.",
             u"Rename one of the two.", other}};
}

Remarks findNeverRuns(const Rulebook &book, const CheckedRule &rule) {
    const auto taker = book.takerOf(rule);
    if (!taker) {
        return {};
    }
    const CheckedRule &other = book.rules()[*taker];
    const bool stops = other.read.values.ignoreFurtherRules == u"YES";
    return {{u"It never runs. The " + ruleInWords(other) + u" stands before it, applies to all " +
                 (other.read.values.allMessages ? u"messages" : u"of its messages") + u" and " +
                 (stops ? u"lets no other rule follow." : u"deletes them."),
             u"Move this rule before the other one, or remove it.", taker}};
}

Remarks findReplyToAll(const Rulebook & /*book*/, const CheckedRule &rule) {
    if (!rule.read.values.allMessages || trimmed(rule.read.values.replyText).empty()) {
        return {};
    }
    return {{u"It replies to all messages, and service messages are among them. A machine that "
             u"answers the reply starts an endless exchange.",
             u"Use \"Ignore this Rule for Service messages\" instead of \"For All Messages\"."}};
}

Remarks findAlertToSender(const Rulebook & /*book*/, const CheckedRule &rule) {
    const RuleValues &values = rule.read.values;
    Remarks remarks;
    if (values.people.negated) {
        return remarks;
    }
    for (const std::u16string &number : values.people.entries) {
        const auto isSame = [&](const std::u16string &recipient) {
            return !trimmed(number).empty() && trimmed(recipient) == trimmed(number);
        };
        if (std::ranges::any_of(values.alertRecipients, isSame)) {
            remarks.push_back({inQuotes(number) +
                                   u" is a sender of the rule and gets its alert, so each of their "
                                   u"messages comes back to them.",
                               u"Remove the number from one of the two lists."});
        }
    }
    return remarks;
}

Remarks findSeveralMessages(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const SentText &text : sentTextsOf(rule.read.values)) {
        if (text.length.parts == 1) {
            continue;
        }
        const std::u16string recipients = inWords(text.recipients);
        const std::size_t one = unitsOfOneSms(text.length.alphabet);
        remarks.push_back(
            {u"The text of the " + fromUtf8(text.action) + u" takes " + lengthInWords(text) +
                 (text.recipients == 1 ? std::u16string()
                                       : u"; " + inWords(text.messages()) + u" to its " +
                                             recipients + u" recipients") +
                 u".",
             u"Shorten it by " + inWords(text.length.units - one) + u" of its " +
                 inWords(text.length.units) + u" characters" +
                 (text.length.forcing.empty()
                      ? u"."
                      : u", or write it with the letters of the GSM alphabet.")});
    }
    return remarks;
}

} // namespace kvex::host
