#include "adapters/recordset/RowStatements.h"

namespace kvex::recordset {
namespace {

/// The texts one behind the other.
template <class... Texts> std::u16string joined(const Texts &...texts) {
    std::u16string text;
    (text.append(texts), ...);
    return text;
}

void append(Statement &statement, std::u16string_view separator, std::u16string_view text,
            const ValueView &parameter) {
    statement.text.append(separator).append(text);
    statement.parameters.push_back(parameter);
}

void appendKey(Statement &statement, const RowKey &key) {
    std::u16string_view separator = u" WHERE ";
    for (const Assignment &part : key) {
        append(statement, separator, joined(part.column, u" = ?"), part.value);
        separator = u" AND ";
    }
}

void appendRead(Statement &statement, const Driver &driver, const std::vector<Assignment> &read) {
    for (const Assignment &held : read) {
        if (held.value.isNull()) {
            statement.text.append(u" AND ").append(held.column).append(u" IS NULL");
        } else {
            append(statement, u" AND ", driver.stillHolds(held.column, held.value), held.value);
        }
    }
}

} // namespace

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

Statement updateRow(const Driver &driver, std::u16string_view table,
                    const std::vector<Assignment> &changes, const RowKey &key,
                    const std::vector<Assignment> &read) {
    Statement statement{joined(u"UPDATE ", table), {}};
    std::u16string_view separator = u" SET ";
    for (const Assignment &change : changes) {
        append(statement, separator, joined(change.column, u" = ?"), change.value);
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
