#include "host/check/ReferenceFindings.h"

#include "host/check/SentTexts.h"
#include "host/check/Wording.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
namespace {

using View = std::u16string_view;

enum class Kind { user, receivingAccount, sendingAccount };

/// An id that a rule stores.
struct StoredId {
    Kind kind;
    View text;
    /// The place where it stands, for a sentence.
    View where;
    /// True for an empty entry of a list, and for the rest of a text that is cut.
    bool isReportedElsewhere;
};

std::vector<StoredId> idsOf(const RuleValues &values) {
    std::vector<StoredId> ids;
    const auto add = [&](Kind kind, const Entries &entries, View where) {
        for (const std::u16string &entry : entries) {
            ids.push_back({kind, entry, where, trimmed(entry).empty()});
        }
    };
    add(Kind::receivingAccount, values.accounts.entries, u"condition on accounts");
    add(Kind::user, values.distribution, u"distribution");
    if (!trimmed(values.replyText).empty()) {
        ids.push_back({Kind::sendingAccount, values.replyAccount, u"reply", isReplyCut(values)});
    }
    if (!values.alertRecipients.empty()) {
        ids.push_back({Kind::sendingAccount, values.alertAccount, u"alert", isAlertCut(values)});
    }
    return ids;
}

View nounOf(Kind kind) {
    return kind == Kind::user ? u"user" : u"account";
}

std::u16string place(const StoredId &id) {
    return u" in the " + std::u16string(id.where);
}

std::u16string choose(const StoredId &id) {
    return u"Choose another " + std::u16string(nounOf(id.kind)) + place(id) +
           u", or bring that one back.";
}

/// The ids of one of these kinds that do not lead to a live row.
Remarks findUnknown(const Rulebook &book, const CheckedRule &rule, bool users) {
    Remarks remarks;
    for (const StoredId &id : idsOf(rule.read.values)) {
        const auto number = idOf(id.text);
        if (!number || (id.kind == Kind::user) != users) {
            continue;
        }
        const Reference reference = users ? book.userOf(*number) : book.accountOf(*number);
        const std::u16string what =
            std::u16string(nounOf(id.kind)) + u" " + toText(std::int64_t{*number});
        if (reference == Reference::none) {
            remarks.push_back(
                {u"There is no " + what + u", which stands" + place(id) + u".", choose(id)});
        } else if (reference == Reference::deleted) {
            remarks.push_back(
                {u"The " + what + u", which stands" + place(id) + u", is deleted.", choose(id)});
        }
    }
    return remarks;
}

} // namespace

Remarks findNoId(const Rulebook & /*book*/, const CheckedRule &rule) {
    Remarks remarks;
    for (const StoredId &id : idsOf(rule.read.values)) {
        if (idOf(id.text) || id.isReportedElsewhere) {
            continue;
        }
        const std::u16string noun(nounOf(id.kind));
        remarks.push_back({trimmed(id.text).empty()
                               ? u"There is no " + noun + place(id) + u"."
                               : inQuotes(id.text) + place(id) + u" is not the id of " +
                                     (id.kind == Kind::user ? u"a user." : u"an account."),
                           u"Choose the " + noun + place(id) + u" again in the rule editor."});
    }
    return remarks;
}

Remarks findUnknownUser(const Rulebook &book, const CheckedRule &rule) {
    return findUnknown(book, rule, true);
}

Remarks findUnknownAccount(const Rulebook &book, const CheckedRule &rule) {
    return findUnknown(book, rule, false);
}

Remarks findWrongBindMode(const Rulebook &book, const CheckedRule &rule) {
    Remarks remarks;
    for (const StoredId &id : idsOf(rule.read.values)) {
        const auto number = idOf(id.text);
        if (!number || id.kind == Kind::user) {
            continue;
        }
        const Reference account = book.accountOf(*number);
        const Reference wrong =
            id.kind == Kind::sendingAccount ? Reference::receiver : Reference::transmitter;
        if (account == wrong || account == Reference::otherAccount) {
            remarks.push_back({u"The account " + toText(std::int64_t{*number}) + place(id) +
                                   (id.kind == Kind::sendingAccount ? u" cannot send messages."
                                                                    : u" cannot receive messages."),
                               u"Choose an account that can, or change its BIND_MODE."});
        }
    }
    return remarks;
}

} // namespace kvex::host
