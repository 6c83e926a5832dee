#include "host/transfer/References.h"

#include "platform/Error.h"
#include "platform/Text.h"

namespace kvex::host {

std::u16string referredId(std::u16string_view part) {
    try {
        return toText(toInt64(part));
    } catch (const Error &) {
        return fromUtf8(toUtf8(part));
    }
}

void forEachReference(const RuleValues &rule, const ReferenceVisit &visit) {
    const auto visitAll = [&](Referred kind, std::u16string_view field, const Entries &entries) {
        for (std::size_t place = 0; place < entries.size(); ++place) {
            visit(kind, referredId(entries[place]), field, place);
        }
    };
    const auto visitOne = [&](std::u16string_view field, const std::u16string &account) {
        if (!account.empty()) {
            visit(Referred::account, referredId(account), field, 0);
        }
    };
    visitAll(Referred::account, u"accounts.entries", rule.accounts.entries);
    visitAll(Referred::user, u"distribution", rule.distribution);
    visitOne(u"reply.account", rule.replyAccount);
    visitOne(u"alert.account", rule.alertAccount);
}

} // namespace kvex::host
