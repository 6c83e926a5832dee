#include "rules/Lookups.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"

namespace kvex {
namespace {

std::u16string nameOf(const ObjectVariable<Recordset> &records, bool hasRecords, std::int32_t id,
                      std::u16string_view sub) {
    std::u16string name;
    trapErrors(sub, u"General", [&] {
        if (!hasRecords) {
            return;
        }
        findRecordById(*records, toText(std::int64_t{id}));
        if (!records->eof() && !records->bof()) {
            name = trimmed(records->field(u"NAME").text());
        }
    });
    return name;
}

} // namespace

std::u16string GetUserName(std::int32_t id) {
    return nameOf(session().rsUsers, session().blnHasUsers, id, u"GetUserName");
}

std::u16string GetAccountName(std::int32_t id) {
    return nameOf(session().rsAccounts, session().blnHasAccounts, id, u"GetAccountName");
}

} // namespace kvex
