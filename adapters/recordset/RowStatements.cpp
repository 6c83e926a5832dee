#include "adapters/recordset/RowStatements.h"

#include "platform/Error.h"

namespace kvex::recordset {
namespace {

[[noreturn]] void refuseRows(const std::u16string &why, HelpContext context) {
    throw Error(error_number::badArgument, why + u", so they cannot be written.",
                u"KVEXMessageRules", context);
}

/// The length of a statement that changes one column.
constexpr std::size_t usualLength = 128;

/// The texts, one after the other.
template <class... Texts> std::u16string joined(const Texts &...texts) {
    std::u16string text;
    text.reserve((std::u16string_view(texts).size() + ...));
    (text.append(texts), ...);
    return text;
}

/// Appends `separator` and "COLUMN = ?".
void appendEqual(Statement &statement, std::u16string_view separator,
                 const Assignment &assignment) {
    statement.text.append(separator).append(assignment.column).append(u" = ?");
    statement.parameters.push_back(assignment.value);
}

void appendKey(Statement &statement, const RowKey &key) {
    std::u16string_view separator = u" WHERE ";
    for (const Assignment &part : key) {
        appendEqual(statement, separator, part);
        separator = u" AND ";
    }
}

void appendRead(Statement &statement, const Driver &driver, const std::vector<Assignment> &read) {
    for (const Assignment &held : read) {
        statement.text.append(u" AND ");
        if (held.value.isNull()) {
            statement.text.append(held.column).append(u" IS NULL");
        } else {
            statement.text.append(driver.stillHolds(held.column, held.value));
            statement.parameters.push_back(held.value);
        }
    }
}

} // namespace

BaseTable BaseTable::of(const std::vector<Column> &columns) {
    BaseTable table;
    std::size_t keyParts = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column &column = columns[i];
        if (column.table.empty()) {
            continue;
        }
        if (!table.name.empty() && table.name != column.table) {
            refuseRows(u"The rows come from several tables", HelpContext::badStatement);
        }
        table.name = column.table;
        if (column.keyParts > 0) {
            table.key.push_back(i);
            keyParts = column.keyParts;
        }
    }
    if (table.name.empty()) {
        refuseRows(u"The rows come from no table", HelpContext::badStatement);
    }
    if (table.key.empty() || table.key.size() != keyParts) {
        refuseRows(u"The rows of the table " + table.name + u" have no primary key",
                   HelpContext::noPrimaryKey);
    }
    return table;
}

std::u16string listed(const std::vector<std::u16string_view> &names) {
    std::u16string list;
    for (const std::u16string_view name : names) {
        list.append(list.empty() ? u"" : u", ").append(name);
    }
    return list;
}

Statement selectRow(std::u16string_view table, const std::vector<std::u16string_view> &columns,
                    const RowKey &key) {
    Statement statement{joined(u"SELECT ", listed(columns), u" FROM ", table), {}};
    appendKey(statement, key);
    return statement;
}

Statement selectRow(const Driver &driver, std::u16string_view table,
                    const std::vector<std::u16string_view> &columns, const RowKey &key,
                    const std::vector<Assignment> &read) {
    Statement statement = selectRow(table, columns, key);
    appendRead(statement, driver, read);
    return statement;
}

Statement updateRow(const Driver &driver, std::u16string_view table,
                    const std::vector<Assignment> &changes, const RowKey &key,
                    const std::vector<Assignment> &read) {
    Statement statement;
    // Allocates once: renumbering the rules makes many of these statements.
    statement.text.reserve(usualLength);
    statement.parameters.reserve(changes.size() + key.size() + read.size());
    statement.text.append(u"UPDATE ").append(table);
    std::u16string_view separator = u" SET ";
    for (const Assignment &change : changes) {
        appendEqual(statement, separator, change);
        separator = u", ";
    }
    appendKey(statement, key);
    appendRead(statement, driver, read);
    return statement;
}

Statement deleteRow(const Driver &driver, std::u16string_view table, const RowKey &key,
                    const std::vector<Assignment> &read) {
    Statement statement{joined(u"DELETE FROM ", table), {}};
    appendKey(statement, key);
    appendRead(statement, driver, read);
    return statement;
}

Statement insertRow(std::u16string_view table, const std::vector<Assignment> &values,
                    std::u16string_view emptyRow) {
    Statement statement{joined(u"INSERT INTO ", table, u" "), {}};
    if (values.empty()) {
        statement.text.append(emptyRow);
        return statement;
    }
    std::vector<std::u16string_view> columns;
    for (const Assignment &value : values) {
        columns.push_back(value.column);
        statement.parameters.push_back(value.value);
    }
    const std::vector<std::u16string_view> marks(values.size(), u"?");
    statement.text.append(joined(u"(", listed(columns), u") VALUES (", listed(marks), u")"));
    return statement;
}

} // namespace kvex::recordset
