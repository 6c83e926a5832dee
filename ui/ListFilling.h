// Fills a list from the records of a table, or from the ids that a rule holds. An error ends the
// list, and says what is missing in it.
#pragma once

#include "component/session/ErrorTrap.h"
#include "platform/Database.h"
#include "platform/Text.h"

#include <string>
#include <string_view>

namespace kvex {

/// "Only 2 of 5 rules could be read: the list ends before WHERE."
[[nodiscard]] inline std::u16string onlyRead(std::size_t read, std::size_t count,
                                             std::u16string_view plural,
                                             std::u16string_view where) {
    const auto number = [](std::size_t value) { return toText(static_cast<std::int64_t>(value)); };
    std::u16string text = u"Only " + number(read) + u" of " + number(count) + u" ";
    return text.append(plural).append(u" could be read: the list ends before ").append(where) +
           u".";
}

/// Calls `add` for each record, from the current one to the last. `singular` and `plural` name the
/// records in the error: "rule", "rules".
template <class Add>
void forEachRecord(Recordset &records, std::u16string_view singular, std::u16string_view plural,
                   const Add &add) {
    std::size_t read = 0;
    const auto addAll = [&] {
        for (; !records.eof(); records.moveNext()) {
            add();
            ++read;
        }
    };
    explainErrors(HelpContext::listEndsEarly, addAll, [&] {
        const ValueView id = records.field(u"ID");
        std::u16string where = u"the ";
        where.append(singular).append(id.isNull() ? u" without an ID" : u" with the ID ");
        return onlyRead(read, static_cast<std::size_t>(records.recordCount()), plural,
                        id.isNull() ? where : where + id.text());
    });
}

/// Calls `add` for each entry of a stored list.
template <class Add>
void forEachEntry(std::u16string_view list, std::u16string_view plural, const Add &add) {
    const auto entries = split(list, u';');
    std::size_t read = 0;
    const auto addAll = [&] {
        for (; read < entries.size(); ++read) {
            add(entries[read]);
        }
    };
    explainErrors(HelpContext::listEndsEarly, addAll, [&] {
        return onlyRead(read, entries.size(), plural,
                        u"\"" + std::u16string(entries[read]) + u"\"");
    });
}

} // namespace kvex
