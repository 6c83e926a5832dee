#include "host/suite/TableDifference.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/recordset/RowStatements.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
namespace {

using recordset::Assignment;
using recordset::Driver;

[[noreturn]] void refuse(const Table &table, const std::u16string &why) {
    throw Error(error_number::badArgument,
                u"The table " + std::u16string(table.name) + u" " + why + u" Nothing was changed.");
}

bool contains(const std::vector<std::u16string> &columns, std::u16string_view name) {
    return std::ranges::any_of(columns, [&](const std::u16string &column) {
        return recordset::equalIgnoringCase(column, name);
    });
}

/// Databases deliver the same value as different kinds: a decimal number can be a text.
bool areEqual(const ValueView &left, const ValueView &right) {
    return left.held() == right.held() ||
           (!left.isNull() && !right.isNull() && left.text() == right.text());
}

ValueView number(std::int64_t value) {
    return ValueView(ValueView::Held(value));
}

/// The text has the character that stands for bytes that are no text.
bool mayBeUnreadable(const ValueView &value) {
    return value.textOrEmpty().find(u'\uFFFD') != std::u16string_view::npos;
}

} // namespace

TableDifference::TableDifference(const Table &table, Driver &backup, Driver &target)
    : table_(table) {
    const std::vector<std::u16string> present = target.columnsOf(table.name);
    for (const std::u16string &column : backup.columnsOf(table.name)) {
        if (!contains(present, column)) {
            refuse(table, u"has a column " + column +
                              u" in the backup, which the database lacks. Restore the backup into "
                              u"the database that it came from.");
        }
        columns_.push_back(column);
    }
    const auto found = std::ranges::find_if(columns_, [](const std::u16string &column) {
        return recordset::equalIgnoringCase(column, u"ID");
    });
    if (found == columns_.end()) {
        refuse(table, u"has no column ID in the backup.");
    }
    idColumn_ = static_cast<std::size_t>(found - columns_.begin());
    const recordset::Statement query =
        recordset::selectRow(table.name, {columns_.begin(), columns_.end()}, {});
    backup.query(query, theirs_);
    target.query(query, ours_);
    const Rows theirs = rowsById(theirs_);
    const Rows ours = rowsById(ours_);
    for (const auto &[id, row] : theirs) {
        const auto same = ours.find(id);
        if (same == ours.end()) {
            added_.push_back(row);
            continue;
        }
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (!areEqual(theirs_.value(row, column), ours_.value(same->second, column))) {
                changed_.emplace_back(row, same->second);
                break;
            }
        }
    }
    for (const auto &entry : ours) {
        if (!theirs.contains(entry.first)) {
            removed_.push_back(entry.first);
        }
    }
}

TableDifference::Rows TableDifference::rowsById(const recordset::RowStore &rows) const {
    Rows byId;
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        const ValueView id = rows.value(row, idColumn_);
        if (!std::holds_alternative<std::int64_t>(id.held()) ||
            !byId.emplace(id.int64(), row).second) {
            refuse(table_, u"has a row whose ID is no number of its own. Give each row its own.");
        }
    }
    return byId;
}

void TableDifference::requireReadable(Driver &backup) const {
    std::vector<std::size_t> written = added_;
    std::ranges::transform(changed_, std::back_inserter(written),
                           [](const auto &pair) { return pair.first; });
    for (const std::size_t row : written) {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            const Assignment read = assignment(row, column);
            if (!mayBeUnreadable(read.value)) {
                continue;
            }
            recordset::RowStore found;
            backup.query(recordset::selectRow(backup, table_.name, {columns_[idColumn_]},
                                              {assignment(row, idColumn_)}, {read}),
                         found);
            if (found.rowCount() == 0) {
                refuse(table_, u"has bytes that are no text in the backup, in the column " +
                                   columns_[column] + u" of the row " +
                                   theirs_.value(row, idColumn_).text() +
                                   u". Write the text again in a copy of the backup, in UTF-8.");
            }
        }
    }
}

void TableDifference::removeSurplus(Driver &target) const {
    for (const std::int64_t id : removed_) {
        target.execute(recordset::deleteRow(target, table_.name, {{u"ID", number(id)}}, {}));
    }
}

void TableDifference::write(Driver &target) const {
    for (const auto &[row, old] : changed_) {
        std::vector<Assignment> changes;
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (!areEqual(theirs_.value(row, column), ours_.value(old, column))) {
                changes.push_back(assignment(row, column));
            }
        }
        target.execute(
            recordset::updateRow(target, table_.name, changes, {assignment(row, idColumn_)}, {}));
    }
    for (const std::size_t row : added_) {
        std::vector<Assignment> values;
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            values.push_back(assignment(row, column));
        }
        target.execute(recordset::insertRow(table_.name, values, u"DEFAULT VALUES"));
    }
}

} // namespace kvex::host
