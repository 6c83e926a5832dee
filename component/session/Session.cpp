#include "component/session/Session.h"

namespace kvex {

Session &session() noexcept {
    thread_local Session current;
    return current;
}

void findRecordById(Recordset &records, std::u16string_view id) {
    records.moveFirst();
    records.find(std::u16string(u"ID = ").append(id));
}

std::int32_t showMessage(const std::u16string &text, std::int32_t style) {
    return session().objUtility->showMessageBox(text, style);
}

} // namespace kvex
