#include "ui/Accounts.h"

#include "component/session/Session.h"
#include "platform/Unicode.h"
#include "ui/ListFilling.h"

namespace kvex {
namespace {

bool serves(ValueView bindMode, AccountUse use) {
    if (use == AccountUse::any) {
        return true;
    }
    if (bindMode.isNull()) {
        return false;
    }
    const std::u16string mode = upperCase(bindMode.text());
    return mode == u"TRANSCEIVER" ||
           mode == (use == AccountUse::receiving ? u"RECEIVER" : u"TRANSMITTER");
}

} // namespace

void forEachAccount(
    AccountUse use,
    const std::function<void(const std::u16string &name, const std::u16string &id)> &offer) {
    Recordset &rsAccounts = *session().rsAccounts;
    if (session().blnHasAccounts) {
        rsAccounts.moveFirst();
    }
    forEachRecord(rsAccounts, u"account", u"accounts", [&] {
        if (serves(rsAccounts.field(u"BIND_MODE"), use)) {
            const ValueView name = rsAccounts.field(u"NAME");
            offer(name.isNull() ? u"" : name.text(), rsAccounts.field(u"ID").text());
        }
    });
}

} // namespace kvex
