// How a record of a shared record set is found.
#pragma once

#include "platform/Database.h"

#include <string>
#include <string_view>

namespace kvex {

/// Makes the record whose ID `id` is the current one; without such a record `records` stands at
/// its end. Fails with badArgument when `id` is no number.
inline void findRecordById(Recordset &records, std::u16string_view id) {
    records.moveFirst();
    records.find(std::u16string(u"ID = ").append(id));
}

} // namespace kvex
