#include "adapters/recordset/ClientRecordset.h"

#include "adapters/recordset/ClientConnection.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kvex::recordset {
namespace {

ValueView viewOf(const Value &value) {
    return std::visit([](const auto &held) { return ValueView(ValueView::Held(held)); }, value);
}

/// `value` as a database stores it. No database keeps an unpaired surrogate, so the record set must
/// not show one either.
Value storable(const Value &value) {
    if (const auto *text = std::get_if<std::u16string>(&value)) {
        return fromUtf8(toUtf8(*text));
    }
    return value;
}

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
        const bool isUnknown = error.number() == connectionLost && !open.inTransaction();
        refuse(error, isUnknown ? outcome() + u", as far as is known" : outcome());
    }
}

auto &required(auto &opened) {
    if (!opened) {
        throw Error(error_number::objectClosed);
    }
    return *opened;
}

} // namespace

void ClientRecordset::setCursorLocation(CursorLocation /*location*/) {
    if (opened_) {
        throw Error(error_number::objectOpen);
    }
}

void ClientRecordset::open(std::u16string_view source, Connection &connection,
                           CursorType /*cursor*/, LockType lock, std::int32_t /*options*/) {
    if (opened_) {
        throw Error(error_number::objectOpen);
    }
    const auto *client = dynamic_cast<const ClientConnection *>(&connection);
    if (!client) {
        throw Error(error_number::badArgument);
    }
    std::weak_ptr<OpenDatabase> database = client->database();
    RowStore rows;
    const Statement query{std::u16string(source), {}};
    database.lock()->driver().query(query, rows);
    opened_.emplace(Opened{.cursor = std::make_shared<ClientCursor>(std::move(rows)),
                           .database = std::move(database),
                           .source = query.text,
                           .lock = lock,
                           .changes = {},
                           .base = {}});
}

ObjectState ClientRecordset::state() const {
    return opened_ ? ObjectState::open : ObjectState::closed;
}

void ClientRecordset::close() {
    static_cast<void>(opened());
    opened_.reset();
}

bool ClientRecordset::bof() const {
    return eof() && opened().cursor->count() == 0;
}

bool ClientRecordset::eof() const {
    return !opened().isNew && opened().cursor->atEnd();
}

std::int32_t ClientRecordset::recordCount() const {
    return static_cast<std::int32_t>(opened().cursor->count());
}

void ClientRecordset::moveFirst() {
    opened().discardPending();
    opened().cursor->moveFirst();
}

void ClientRecordset::moveNext() {
    opened().discardPending();
    opened().cursor->moveNext();
}

void ClientRecordset::find(std::u16string_view criterion, std::int32_t skip) {
    opened().discardPending();
    if (skip < 0) {
        throw Error(error_number::badArgument);
    }
    opened().cursor->find(FindCriterion(criterion), static_cast<std::size_t>(skip));
}

ValueView ClientRecordset::field(std::u16string_view name) const {
    const Opened &open = opened();
    const std::size_t column = open.cursor->columnOf(name);
    if (!open.isNew) {
        open.cursor->requireCurrent();
    }
    const auto pending = open.changes.find(column);
    if (pending != open.changes.end()) {
        return viewOf(pending->second);
    }
    return open.isNew ? ValueView() : open.cursor->value(column);
}

void ClientRecordset::setField(std::u16string_view name, const Value &value) {
    Opened &open = opened();
    const std::size_t column = open.cursor->columnOf(name);
    if (!open.isNew) {
        open.cursor->requireCurrent();
    }
    Value stored = storable(value);
    if (!open.isNew && open.cursor->value(column).held() == viewOf(stored).held()) {
        open.changes.erase(column);
    } else {
        open.changes.insert_or_assign(column, std::move(stored));
    }
}

void ClientRecordset::requireWritable() {
    Opened &open = opened();
    static_cast<void>(open.writable(open.connected()->driver()));
}

void ClientRecordset::addNew() {
    opened().discardPending();
    opened().isNew = true;
}

void ClientRecordset::update() {
    Opened &open = opened();
    if (open.isNew) {
        open.insert();
    } else if (!open.changes.empty()) {
        open.write();
    }
}

void ClientRecordset::deleteCurrent() {
    Opened &open = opened();
    open.requireRow();
    open.remove();
}

void ClientRecordset::resyncCurrent() {
    Opened &open = opened();
    open.requireRow();
    const std::shared_ptr<OpenDatabase> database = open.connected();
    const BaseTable &table = open.table(database->driver());
    std::vector<std::size_t> columns;
    std::vector<std::u16string_view> names;
    for (std::size_t column = 0; column < open.cursor->columns().size(); ++column) {
        if (const std::u16string_view name = open.cursor->columns()[column].baseColumn;
            !name.empty()) {
            columns.push_back(column);
            names.push_back(name);
        }
    }
    RowStore row;
    try {
        database->driver().query(selectRow(table.name, names, open.keyOf(table)), row);
        if (row.rowCount() == 0) {
            throw changedByAnother();
        }
    } catch (const Error &error) {
        refuse(error, u"What was stored before stays stored, but " + open.nameOf(table) +
                          u" could not be read again");
    }
    Opened::Held held;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        held.emplace_back(columns[i], open.cursor->prepared(row.value(0, i)));
    }
    open.hold(held);
}

const ClientRecordset::Opened &ClientRecordset::opened() const {
    return required(opened_);
}

ClientRecordset::Opened &ClientRecordset::opened() {
    return required(opened_);
}

void ClientRecordset::Opened::discardPending() noexcept {
    changes.clear();
    isNew = false;
}

void ClientRecordset::Opened::requireRow() const {
    if (isNew) {
        throw Error(error_number::noCurrentRecord);
    }
    cursor->requireCurrent();
}

std::shared_ptr<OpenDatabase> ClientRecordset::Opened::connected() const {
    std::shared_ptr<OpenDatabase> connected = database.lock();
    if (!connected) {
        throw Error(error_number::objectClosed);
    }
    return connected;
}

const BaseTable &ClientRecordset::Opened::table(Driver &driver) {
    if (!base) {
        std::vector<Column> columns = cursor->columns();
        driver.describe(source, columns);
        cursor->setColumns(std::move(columns));
        base = BaseTable::of(cursor->columns());
    }
    return *base;
}

const BaseTable &ClientRecordset::Opened::writable(Driver &driver) {
    if (lock == LockType::readOnly) {
        throw Error(error_number::badArgument, u"The record set was opened for reading only.");
    }
    try {
        return table(driver);
    } catch (const Error &error) {
        refuse(error, u"Nothing was stored");
    }
}

RowKey ClientRecordset::Opened::keyOf(const BaseTable &table) const {
    RowKey key;
    for (const std::size_t column : table.key) {
        key.push_back({cursor->columns()[column].baseColumn, cursor->value(column)});
    }
    return key;
}

std::u16string ClientRecordset::Opened::nameOf(const BaseTable &table) const {
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

std::vector<Assignment> ClientRecordset::Opened::assignments() const {
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

std::vector<Assignment> ClientRecordset::Opened::known() const {
    std::vector<Assignment> known;
    for (std::size_t column = 0; column < cursor->columns().size(); ++column) {
        const std::u16string_view name = cursor->columns()[column].baseColumn;
        if (!name.empty() && cursor->columns()[column].keyParts == 0 && cursor->isKnown(column)) {
            known.push_back({name, cursor->value(column)});
        }
    }
    return known;
}

bool ClientRecordset::Opened::readsAsBefore(Driver &driver, const BaseTable &table,
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

void ClientRecordset::Opened::refuseUnmet(Driver &driver, const BaseTable &table,
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

void ClientRecordset::Opened::insert() {
    const std::shared_ptr<OpenDatabase> open = connected();
    const BaseTable &table = writable(open->driver());
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

void ClientRecordset::Opened::write() {
    const std::shared_ptr<OpenDatabase> open = connected();
    Driver &driver = open->driver();
    const BaseTable &table = writable(driver);
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

void ClientRecordset::Opened::remove() {
    const std::shared_ptr<OpenDatabase> open = connected();
    Driver &driver = open->driver();
    const BaseTable &table = writable(driver);
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

template <class Undo>
void ClientRecordset::Opened::prepareUndo(OpenDatabase &open, Undo undo) const {
    if (!open.inTransaction()) {
        return;
    }
    open.prepare([rows = std::weak_ptr<ClientCursor>(cursor), undo = std::move(undo)] {
        if (const std::shared_ptr<ClientCursor> stillOpen = rows.lock()) {
            undo(*stillOpen);
        }
    });
}

ClientRecordset::Opened::Held ClientRecordset::Opened::preparedChanges() {
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

ClientRecordset::Opened::Held ClientRecordset::Opened::replacedBy(const Held &held) const {
    Held replaced;
    replaced.reserve(held.size());
    for (const auto &change : held) {
        replaced.emplace_back(change.first, cursor->cell(change.first));
    }
    return replaced;
}

void ClientRecordset::Opened::hold(const Held &held) noexcept {
    for (const auto &[column, prepared] : held) {
        cursor->set(column, prepared);
    }
    discardPending();
}

} // namespace kvex::recordset
