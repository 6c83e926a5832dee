#include "adapters/recordset/OpenRows.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kvex::recordset {
namespace {

/// The error of a write or resync that found no row.
Error rowIsNot(std::u16string asRead, HelpContext context) {
    return Error(rowChangedByAnother, std::move(asRead), u"KVEXMessageRules", context);
}

Error changedByAnother() {
    return rowIsNot(u"Another user changed or removed it meanwhile.",
                    HelpContext::changedByAnother);
}

/// Throws `error`. An error of the database gets a description that begins with `outcome`.
[[noreturn]] void refuse(const Error &error, const std::u16string &outcome) {
    if (!error.fromDatabase()) {
        throw error;
    }
    throw Error(error.number(), outcome + u". " + error.description(), error.source(),
                error.helpContext());
}

/// Runs a call that writes. `outcome` says what was not stored when the database refuses.
template <class Outcome, class Call>
auto writing(const OpenDatabase &open, const Outcome &outcome, const Call &call) {
    try {
        return call();
    } catch (const Error &error) {
        // What a transaction has not committed is not stored, whatever happened to its statement.
        const bool isUnknown = error.number() == noConnection && !open.inTransaction();
        refuse(error, isUnknown ? outcome() + u", as far as is known" : outcome());
    }
}

} // namespace

ValueView viewOf(const Value &value) {
    return std::visit([](const auto &held) { return ValueView(ValueView::Held(held)); }, value);
}

void OpenRows::discardPending() noexcept {
    changes.clear();
    isNew = false;
}

void OpenRows::requireRow() const {
    if (isNew) {
        throw Error(error_number::noCurrentRecord);
    }
    cursor->requireCurrent();
}

std::shared_ptr<OpenDatabase> OpenRows::connected() const {
    std::shared_ptr<OpenDatabase> connected = database.lock();
    if (!connected) {
        throw Error(error_number::objectClosed);
    }
    return connected;
}

const BaseTable &OpenRows::table(Driver &driver) {
    if (!base) {
        std::vector<Column> columns = cursor->columns();
        driver.describe(source, columns);
        cursor->setColumns(std::move(columns));
        base = BaseTable::of(cursor->columns());
    }
    return *base;
}

const BaseTable &OpenRows::writable(const OpenDatabase &open) {
    open.requireWritable();
    if (lock == LockType::readOnly) {
        throw Error(error_number::badArgument, u"The record set was opened for reading only.");
    }
    try {
        return table(open.driver());
    } catch (const Error &error) {
        refuse(error, u"Nothing was stored");
    }
}

RowKey OpenRows::keyOf(const BaseTable &table) const {
    RowKey key;
    for (const std::size_t column : table.key) {
        key.push_back({cursor->columns()[column].baseColumn, cursor->value(column)});
    }
    return key;
}

std::u16string OpenRows::nameOf(const BaseTable &table) const {
    std::u16string name = u"record";
    std::u16string_view separator = u" ";
    for (const std::size_t column : table.key) {
        const ValueView value = cursor->value(column);
        // Some databases give the names of columns in lower case.
        name.append(separator).append(upperCase(cursor->columns()[column].name)).append(u" ");
        name.append(value.isNull() ? u"Null" : value.text());
        separator = u", ";
    }
    return name;
}

std::vector<Assignment> OpenRows::assignments() const {
    std::vector<Assignment> assignments;
    for (const auto &[index, value] : changes) {
        const Column &column = cursor->columns()[index];
        if (column.baseColumn.empty()) {
            throw Error(error_number::badArgument,
                        u"The column " + column.name +
                            u" is computed by the query and cannot be written.",
                        u"KVEXMessageRules", HelpContext::badStatement);
        }
        assignments.push_back({column.baseColumn, viewOf(value)});
    }
    return assignments;
}

std::vector<Assignment> OpenRows::known() const {
    std::vector<Assignment> known;
    for (std::size_t column = 0; column < cursor->columns().size(); ++column) {
        const std::u16string_view name = cursor->columns()[column].baseColumn;
        if (!name.empty() && cursor->columns()[column].keyParts == 0 && cursor->isKnown(column)) {
            known.push_back({name, cursor->value(column)});
        }
    }
    return known;
}

bool OpenRows::readsAsBefore(Driver &driver, const BaseTable &table,
                             const std::vector<Assignment> &read) const {
    if (read.empty()) {
        return false;
    }
    std::vector<std::u16string_view> columns;
    std::ranges::transform(read, std::back_inserter(columns), &Assignment::column);
    RowStore now;
    driver.query(selectRow(table.name, columns, keyOf(table)), now);
    if (now.rowCount() == 0) {
        return false;
    }
    for (std::size_t i = 0; i < read.size(); ++i) {
        if (now.value(0, i).held() != read[i].value.held()) {
            return false;
        }
    }
    return true;
}

void OpenRows::refuseUnmet(Driver &driver, const BaseTable &table,
                           const std::vector<Assignment> &read) const {
    const RowKey key = keyOf(table);
    if (!readsAsBefore(driver, table, read)) {
        throw changedByAnother();
    }
    // The row reads as before, so a value that does not equal itself cannot be read unchanged.
    const auto notKept = std::ranges::find_if(read, [&](const Assignment &held) {
        RowStore found;
        driver.query(selectRow(driver, table.name, {held.column}, key, {held}), found);
        return found.rowCount() == 0;
    });
    if (notKept == read.end()) {
        throw changedByAnother();
    }
    throw rowIsNot(u"Its column " + std::u16string(notKept->column) +
                       u" holds a value that cannot be read unchanged.",
                   HelpContext::valueNotKept);
}

void OpenRows::insert() {
    const std::shared_ptr<OpenDatabase> open = connected();
    const BaseTable &table = writable(*open);
    std::vector<std::u16string_view> keyColumns;
    for (const std::size_t column : table.key) {
        keyColumns.push_back(cursor->columns()[column].baseColumn);
    }
    const std::vector<Assignment> values = assignments();
    const Held held = preparedChanges();
    cursor->prepareAppend();
    prepareUndo(*open, [row = cursor->rowCount()](ClientCursor &rows) { rows.remove(row); });
    const std::vector<Value> key = writing(
        *open, [] { return std::u16string(u"The new record was not stored"); },
        [&] { return open->driver().insert(table.name, values, keyColumns); });
    open->keepPrepared();
    cursor->append();
    hold(held);
    // Memory for a long text can be missing here. The record is stored all the same, and the set
    // already holds it as a row.
    for (std::size_t i = 0; i < key.size(); ++i) {
        cursor->set(table.key[i], cursor->prepared(viewOf(key[i])));
    }
}

void OpenRows::write() {
    const std::shared_ptr<OpenDatabase> open = connected();
    Driver &driver = open->driver();
    const BaseTable &table = writable(*open);
    const std::vector<Assignment> values = assignments();
    std::vector<Assignment> read;
    for (const auto &change : changes) {
        read.push_back({cursor->columns()[change.first].baseColumn, cursor->value(change.first)});
    }
    const Held held = preparedChanges();
    prepareUndo(*open, [row = cursor->current(), before = replacedBy(held)](ClientCursor &rows) {
        for (const auto &[column, cell] : before) {
            rows.set(row, column, cell);
        }
    });
    const auto outcome = [&] { return u"The change of " + nameOf(table) + u" was not stored"; };
    writing(*open, outcome, [&] {
        if (driver.execute(updateRow(driver, table.name, values, keyOf(table), read)) == 0) {
            refuseUnmet(driver, table, read);
        }
    });
    open->keepPrepared();
    hold(held);
}

void OpenRows::remove() {
    const std::shared_ptr<OpenDatabase> open = connected();
    Driver &driver = open->driver();
    const BaseTable &table = writable(*open);
    prepareUndo(*open, [row = cursor->current()](ClientCursor &rows) { rows.bringBack(row); });
    const auto outcome = [&] { return u"The removal of " + nameOf(table) + u" was not stored"; };
    const std::vector<Assignment> read = known();
    writing(*open, outcome, [&] {
        if (driver.execute(deleteRow(driver, table.name, keyOf(table), read)) == 0) {
            refuseUnmet(driver, table, read);
        }
    });
    open->keepPrepared();
    discardPending();
    cursor->remove(cursor->current());
}

void OpenRows::resync() {
    const std::shared_ptr<OpenDatabase> open = connected();
    const BaseTable &owner = table(open->driver());
    std::vector<std::size_t> columns;
    std::vector<std::u16string_view> names;
    for (std::size_t column = 0; column < cursor->columns().size(); ++column) {
        if (const std::u16string_view name = cursor->columns()[column].baseColumn; !name.empty()) {
            columns.push_back(column);
            names.push_back(name);
        }
    }
    RowStore row;
    try {
        open->driver().query(selectRow(owner.name, names, keyOf(owner)), row);
        if (row.rowCount() == 0) {
            throw changedByAnother();
        }
    } catch (const Error &error) {
        refuse(error, u"What was stored before stays stored, but " + nameOf(owner) +
                          u" could not be read again");
    }
    Held held;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        held.emplace_back(columns[i], cursor->prepared(row.value(0, i)));
    }
    hold(held);
}

template <class Undo> void OpenRows::prepareUndo(OpenDatabase &open, Undo undo) const {
    if (!open.inTransaction()) {
        return;
    }
    open.prepare([rows = std::weak_ptr<ClientCursor>(cursor), undo = std::move(undo)] {
        if (const std::shared_ptr<ClientCursor> stillOpen = rows.lock()) {
            undo(*stillOpen);
        }
    });
}

OpenRows::Held OpenRows::preparedChanges() {
    Held held;
    const std::vector<Column> &columns = cursor->columns();
    for (const auto &[changed, value] : changes) {
        const RowStore::Cell prepared = cursor->prepared(viewOf(value));
        // A query can have the same column twice.
        for (std::size_t column = 0; column < columns.size(); ++column) {
            if (std::ranges::equal(columns[column].baseColumn, columns[changed].baseColumn)) {
                held.emplace_back(column, prepared);
            }
        }
    }
    return held;
}

OpenRows::Held OpenRows::replacedBy(const Held &held) const {
    Held replaced;
    replaced.reserve(held.size());
    for (const auto &change : held) {
        replaced.emplace_back(change.first, cursor->cell(change.first));
    }
    return replaced;
}

void OpenRows::hold(const Held &held) noexcept {
    for (const auto &[column, prepared] : held) {
        cursor->set(column, prepared);
    }
    discardPending();
}

} // namespace kvex::recordset
