// OK in the rules window: stores the order of the rules.
#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/Transaction.h"
#include "ui/rules/frmRules.h"

#include <optional>

namespace kvex {
namespace {

constexpr std::u16string_view oldOrder = u"The old order is stored.";
constexpr std::u16string_view oldOrNewOrder =
    u"Either the old order is stored or the new one, and nothing in between.";

std::u16string firstRules(int count) {
    return (count == 1
                ? u"The first rule of the list has its"
                : u"The first " + toText(std::int64_t{count}) + u" rules of the list have their") +
           u" new number; the others keep their old one.";
}

/// The order's error, which also says what is stored.
Error refusal(const Error &error, std::u16string_view stored) {
    return error.explained(error.fromDatabase() ? HelpContext::none : HelpContext::orderNotStored,
                           stored);
}

} // namespace

/// Numbers the rows up to `last` in one transaction. It begins with the first rule whose number
/// differs. So a lost connection or the end of the process leaves the old order whole. When a row
/// is refused, the rows before it are stored in a transaction of their own, because some databases
/// store nothing of one in which a statement failed. The error says what is stored.
void frmRules::storeOrder(int last) {
    Recordset &rsRules = *session().rsRules;
    std::optional<Transaction> transaction;
    bool hasWritten = false;
    int row = 1;
    try {
        for (; row <= last; ++row) {
            findRecordById(rsRules, ruleIdOf(row));
            if (rsRules.field(u"PRIORITY").held() == ValueView::Held(std::int64_t{row})) {
                continue;
            }
            if (!transaction) {
                transaction.emplace(*session().cnMain);
            }
            rsRules.setField(u"PRIORITY", std::int64_t{row});
            rsRules.update();
            hasWritten = true;
        }
        if (transaction) {
            transaction->commit();
        }
    } catch (...) {
        const Error error = Error::current();
        const bool isLost = error.number() == noConnection;
        const bool isCommit = row > last;
        transaction.reset();
        if (isLost && isCommit) {
            throw refusal(error, oldOrNewOrder);
        }
        if (isLost || isCommit || !hasWritten) {
            throw refusal(error, oldOrder);
        }
        storeOrder(row - 1);
        throw refusal(error, firstRules(row - 1));
    }
}

} // namespace kvex
